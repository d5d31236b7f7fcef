#include <fmt/format.h>

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <set>
#include <string>
#include <vector>

#include "lint/checks/checks.h"
#include "model/literals.h"
#include "output/wording.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

std::string KeyOf(const std::string& name, LintTarget target) {
  return NameKey(NameParts(name, target), target);
}

// The keys of all names of files in the descriptors.
std::set<std::string> KeysInDescriptors(const LintFolder& folder) {
  std::set<std::string> keys;
  const auto add = [&](const LintPackage& package) {
    for (const char* name : {PropertyName::payload, PropertyName::xmlFilename}) {
      keys.insert(KeyOf(package.Value(name), folder.target));
    }
  };
  for (const LintPack& pack : folder.packs) {
    for (const LintPackage& member : pack.members) add(member);
  }
  for (const LintPackage& package : folder.individuals) add(package);
  return keys;
}

// Of the folder itself, without those that end in ".xml" in any case, which have findings of their
// own; by name.
std::set<std::string> OtherFilesIn(const std::string& folder) {
  std::set<std::string> names;
  boost::system::error_code failed;
  fs::directory_iterator entry(folder, failed);
  for (; !failed && entry != fs::directory_iterator(); entry.increment(failed)) {
    boost::system::error_code unknown;
    std::string name = entry->path().filename().string();
    if (HasDescriptorExtension(FoldByGlobalLocale(name))) continue;
    if (fs::is_regular_file(entry->status(unknown))) names.insert(std::move(name));
  }
  return names;
}

void CheckUnnamedFiles(const LintFolder& folder, LintReport& report) {
  const auto keys = KeysInDescriptors(folder);
  std::vector<std::string> unnamed;
  for (const std::string& name : OtherFilesIn(folder.path)) {
    if (keys.count(KeyOf(name, folder.target)) == 0) unnamed.push_back(name);
  }
  if (unnamed.empty()) return;
  report.Add(LintId::FilesUnnamed, LintFolder::ownName, {},
             fmt::format("No descriptor names {} of the folder: {}.", Count(unnamed.size(), "file"),
                         BriefList(unnamed)));
}

}  // namespace

void CheckFolderContents(const LintFolder& folder, LintReport& report) {
  if (!folder.walkFailure && folder.individuals.empty() && folder.packs.empty()) {
    report.Add(LintId::NoDescriptors, LintFolder::ownName, {},
               fmt::format("No file of the folder is a descriptor that can be read; {} of them end "
                           "in \"{}\".",
                           folder.files.size(), descriptorExtension));
  }
  CheckUnnamedFiles(folder, report);
}

}  // namespace Vornik::Cli
