// Carries edits of a repository out on its files, and takes them back.
#ifndef VORNIK_TESTS_CLI_EDITS_ON_DISK_H
#define VORNIK_TESTS_CLI_EDITS_ON_DISK_H

#include <map>
#include <string>
#include <vector>

#include "remedy/edit.h"
#include "temp_folder.h"

namespace Vornik::Testing {

class EditsOnDisk {
 public:
  // Writes the descriptors again, in the form of tests. Instances are found by the edits' lines.
  // Throws std::runtime_error where an edit cannot be carried out.
  EditsOnDisk(const TempFolder& folder, const Cli::Edits& edits);
  ~EditsOnDisk();
  EditsOnDisk(const EditsOnDisk&) = delete;
  EditsOnDisk& operator=(const EditsOnDisk&) = delete;

 private:
  using Instances = std::vector<SupXmlProperties>;

  void AddFile(const std::string& path);
  Instances& InstancesOf(const std::string& file);
  std::string NameOf(const std::string& path) const;

  const TempFolder& folder_;
  std::map<std::string, std::string> before_;     // texts by path
  std::map<std::string, Instances> descriptors_;  // by path
  std::vector<std::string> added_;                // paths
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_EDITS_ON_DISK_H
