// A package folder that a fuzzer fills: the same folder for all inputs, so that a run costs no more
// than the files that it changes.
#ifndef VORNIK_FUZZ_FUZZED_FOLDER_H
#define VORNIK_FUZZ_FUZZED_FOLDER_H

#include <map>
#include <string>

#include "plain_query.h"
#include "temp_folder.h"

namespace Vornik::Fuzzing {

class FuzzedFolder {
 public:
  // What always lies in the folder: a folder named like a descriptor, and one with a file in it.
  FuzzedFolder();

  // Leaves these files in the folder and no others; bytes by name.
  void Hold(const std::map<std::string, std::string>& files);

  const std::string& Path() const { return folder_.Path(); }

  // What the plain query has to know of the folder. Valid while the object lives.
  Testing::PlainFolder Plain() const;

 private:
  bool HoldsFile(const std::string& name) const;

  Testing::TempFolder folder_;
  std::map<std::string, std::string> files_;
};

// The file as the plain query takes it, told from its bytes.
Testing::PlainFile PlainFileOf(const std::string& name, const std::string& bytes);

}  // namespace Vornik::Fuzzing

#endif  // VORNIK_FUZZ_FUZZED_FOLDER_H
