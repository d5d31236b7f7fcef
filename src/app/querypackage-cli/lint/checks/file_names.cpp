#include <fmt/format.h>

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <map>
#include <set>

#include "lint/checks/checks.h"
#include "model/literals.h"
#include "model/unread_files.h"
#include "output/wording.h"
#include "reading/descriptor_reading.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

bool HasMarker(const std::string& path, LintTarget target) {
  DescriptorReader reader(path);
  reader.ReadBytes(TextModeOf(target));
  return reader.Reading().kind != DescriptorKind::Neither;
}

bool HasExtension(const std::string& name, const std::string& extension) {
  return fs::path(name).extension().string() == extension;
}

void CheckUnreadFile(const UnreadFile& file, LintTarget target, LintReport& report) {
  const bool hasExtension = HasExtension(FoldByGlobalLocale(file.name), descriptorExtension);
  if (!file.inSubfolder && hasExtension) {
    report.Add(
        LintId::ExtensionCase, file.name, {},
        fmt::format("The name ends in {} instead of {}, so no query reads the file.",
                    Quoted(fs::path(file.name).extension().string()), Quoted(descriptorExtension)));
    return;
  }
  if (!HasMarker(file.path, target)) return;
  if (!file.inSubfolder) {
    report.Add(LintId::ExtensionOther, file.name, {},
               fmt::format("The file holds a descriptor's marker but does not end in {}, so no "
                           "query reads it.",
                           Quoted(descriptorExtension)));
  } else if (hasExtension) {
    const fs::path subfolder = fs::path(file.path).parent_path().filename();
    report.Add(LintId::InSubfolder, subfolder.string() + '/' + file.name, {},
               "The descriptor lies in a subfolder, and subfolders are not searched.");
  }
}

void CheckName(const std::string& name, LintTarget target, LintReport& report) {
  const bool hasBackslash = target == LintTarget::Windows && name.find('\\') != std::string::npos;
  const std::string fault = hasBackslash ? "holds a backslash, which separates folders on Windows"
                                         : NameFault(name, target);
  if (!fault.empty()) {
    report.Add(LintId::NameInvalid, name, {}, fmt::format("The file's name {}.", fault));
  }
  if (const std::string other = EncodingFault(name, target); !other.empty()) {
    report.Add(LintId::NameEncoding, name, {}, fmt::format("The file's name {}.", other));
  }
}

// The names of everything in the folder; of one that cannot be listed, what could be.
std::set<std::string> NamesIn(const std::string& folder) {
  std::set<std::string> names;
  boost::system::error_code failed;
  fs::directory_iterator entry(folder, failed);
  while (!failed && entry != fs::directory_iterator()) {
    names.insert(entry->path().filename().string());
    entry.increment(failed);
  }
  return names;
}

void CheckCollisions(const LintFolder& folder, LintReport& report) {
  std::map<std::string, std::string> firstByKey;
  for (const std::string& name : NamesIn(folder.path)) {
    const auto [first, isNew] = firstByKey.try_emplace(NameKey({name}, folder.target), name);
    if (isNew) continue;
    report.Add(
        LintId::NameCollision, name, {},
        fmt::format("On the target, the name is the same as that of {}.", Quoted(first->second)));
  }
}

}  // namespace

void CheckFileNames(const LintFolder& folder, LintReport& report) {
  for (const UnreadFile& file : FindUnreadFiles(folder.path)) {
    CheckUnreadFile(file, folder.target, report);
  }
  for (const std::string& name : folder.files) CheckName(name, folder.target, report);
  CheckCollisions(folder, report);
}

}  // namespace Vornik::Cli
