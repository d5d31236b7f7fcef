// A package folder that a fuzzer fills: the same folder for all inputs, so that a run writes only
// the files that it changes.
#ifndef VORNIK_FUZZ_FUZZED_FOLDER_H
#define VORNIK_FUZZ_FUZZED_FOLDER_H

#include <map>
#include <string>

#include "plain_query.h"
#include "temp_folder.h"

namespace Vornik::Fuzzing {

class FuzzedFolder {
 public:
  // The folder always contains a folder named like a descriptor, and one with a file in it.
  FuzzedFolder();

  // Leaves only these files in the folder; bytes by name.
  void Hold(const std::map<std::string, std::string>& files);

  const std::string& Path() const { return folder_.Path(); }

  // What the plain query has to know about the folder. Valid while the object lives.
  Testing::PlainFolder Plain() const;

 private:
  bool HoldsFile(const std::string& name) const;

  Testing::TempFolder folder_;
  std::map<std::string, std::string> files_;
};

// The file as the plain query takes it, from its bytes.
Testing::PlainFile PlainFileOf(const std::string& name, const std::string& bytes);

}  // namespace Vornik::Fuzzing

#endif  // VORNIK_FUZZ_FUZZED_FOLDER_H
