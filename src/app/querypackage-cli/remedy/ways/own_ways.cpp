// What one property or one file of the package decides: payload and update type.
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "model/literals.h"
#include "output/wording.h"
#include "remedy/ways/ways.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

constexpr const char* payloadExtension = ".exe";

std::string ValueOf(const PropertySource& source, const char* property) {
  return GetPropertyValue(property, source.entry->properties);
}

// Other instances of exactly the code.
std::vector<const PackageXmlEntry*> OthersOf(const EditTarget& target) {
  std::vector<const PackageXmlEntry*> others;
  const auto add = [&](const PackageXmlEntry& entry) {
    if (&entry != target.source.entry &&
        GetPropertyValue(PropertyName::identificationCode, entry.properties) == target.code) {
      others.push_back(&entry);
    }
  };
  const Repository& packages = target.folder.Model().Packages();
  for (const KovuPackEntry& pack : packages.kovuPackEntries()) {
    std::for_each(pack.members.begin(), pack.members.end(), add);
  }
  std::for_each(packages.packageXmlEntries().begin(), packages.packageXmlEntries().end(), add);
  return others;
}

// Names of files that the descriptors with the package's code are, or name in the property.
std::vector<std::string> NamesFor(const EditTarget& target, const char* property) {
  std::vector<std::string> names;
  const bool isOwnFile = property == PropertyName::xmlFilename;
  if (isOwnFile) names.push_back(FileNameOf(target.source.File()));
  for (const PackageXmlEntry* other : OthersOf(target)) {
    if (isOwnFile) names.push_back(FileNameOf(other->xmlFile));
    names.push_back(GetPropertyValue(property, other->properties));
  }
  if (isOwnFile && target.source.pack != nullptr) {
    // The name of its pack's file would make a member the pack itself.
    const std::string pack = FileNameOf(target.source.pack->kovuXmlFile);
    const bool isPack = IsSelfInstance(target.source.pack->kovuXmlFile,
                                       ValueOf(target.source, PropertyName::xmlFilename));
    names.erase(std::remove_if(names.begin(), names.end(),
                               [&](const auto& name) { return (name == pack) != isPack; }),
                names.end());
  }
  return names;
}

Edit FileToAdd(const std::string& path) {
  Edit edit;
  edit.kind = EditKind::AddFile;
  edit.file = path;
  return edit;
}

// The way is taken only where the rule then finds that file.
void AddName(const EditTarget& target, const char* property, const std::string& name,
             PayloadVerdict missing, std::vector<Edits>& ways) {
  if (name.empty()) return;
  CopiedInstance instance = target.Instance();
  const Edit edit = EditOf(instance, target.source.File(), property, {name});
  FolderCopy changed = target.folder.Copy();
  Apply(edit, changed);
  const PayloadVerdict verdict = EvaluatePayload(changed.Find(instance.id)->entry.properties,
                                                 target.settings.folder, target.folder.Files());
  if (verdict != missing && verdict != PayloadVerdict::NoXmlFilename) ways.push_back({edit});
}

void AddFile(const EditTarget& target, const char* property, std::vector<Edits>& ways) {
  const std::string path = PathInFolder(target.settings.folder, ValueOf(target.source, property));
  if (FileStates::CanAdd(path)) ways.push_back({FileToAdd(path)});
}

// A payload that no descriptor names is named after the descriptor's file.
void AddNewPayload(const EditTarget& target, std::vector<Edits>& ways) {
  const std::string name = FileStem(target.source.entry->xmlFile) + payloadExtension;
  const std::string path = PathInFolder(target.settings.folder, name);
  Edits edits{target.Set(PropertyName::payload, {name})};
  if (!target.folder.Files()(path)) {
    if (!FileStates::CanAdd(path)) return;
    edits.push_back(FileToAdd(path));
  }
  ways.push_back(std::move(edits));
}

}  // namespace

std::vector<Edits> PayloadWays(const EditTarget& target) {
  std::vector<Edits> ways;
  const PayloadVerdict verdict = target.folder.Model().PayloadOf(target.source);
  const bool isXml =
      verdict == PayloadVerdict::NoXmlFilename || verdict == PayloadVerdict::DescriptorMissing;
  const char* property = isXml ? PropertyName::xmlFilename : PropertyName::payload;
  const PayloadVerdict missing =
      isXml ? PayloadVerdict::DescriptorMissing : PayloadVerdict::PayloadMissing;
  for (const std::string& name : NamesFor(target, property)) {
    AddName(target, property, name, missing, ways);
  }
  if (verdict == missing) AddFile(target, property, ways);
  if (!isXml && (ways.empty() || verdict == PayloadVerdict::NoPayload)) {
    AddNewPayload(target, ways);
  }
  return ways;
}

std::vector<Edits> UpdateTypeWays(const EditTarget& target) {
  const auto type = static_cast<std::int32_t>(target.settings.updateTypes.front());
  return {{target.Set(PropertyName::type, {fmt::format("{}", type)})}};
}

}  // namespace Vornik::Cli
