#include "lint_folder.h"

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/system_error.hpp>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "cimxml.h"
#include "descriptor_files.h"
#include "descriptor_markers.h"
#include "lint_documents.h"
#include "lint_markers.h"
#include "literals.h"
#include "package_paths.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

struct Entry {
  std::string path;
  std::string name;
};

std::vector<Entry> ListDescriptors(LintFolder& folder) {
  std::vector<Entry> entries;
  try {
    for (fs::directory_iterator entry{fs::path(folder.path)}, end; entry != end; ++entry) {
      const fs::path& path = entry->path();
      if (!HasDescriptorExtension(path.native())) continue;
      entries.push_back({path.string(), path.filename().string()});
    }
  } catch (const boost::system::system_error& error) {
    folder.walkFailure = error.what();
  }
  std::sort(entries.begin(), entries.end(),
            [](const Entry& a, const Entry& b) { return a.name < b.name; });
  return entries;
}

// See LintPack::isPackage.
std::vector<bool> PackagesAmong(const LintPack& pack) {
  std::vector<bool> isPackage(pack.members.size(), true);
  bool hasNamed = false;
  for (std::size_t i = 0; i < pack.ownInstances; ++i) {
    if (pack.members[i].Value(PropertyName::xmlFilename) != pack.file) continue;
    isPackage[i] = false;
    hasNamed = true;
  }
  if (!hasNamed && pack.ownInstances != 0) isPackage.front() = false;
  return isPackage;
}

// The members in the order in which the library keeps them; see pack_members.h.
LintPack PackOf(const Entry& entry, std::vector<LintPackage> instances) {
  LintPack pack;
  pack.file = entry.name;
  const auto others = std::stable_partition(
      instances.begin(), instances.end(), [&entry](const LintPackage& instance) {
        return IsPacksOwnInstance(entry.path, instance.Value(PropertyName::xmlFilename));
      });
  pack.ownInstances = static_cast<std::size_t>(others - instances.begin());
  std::reverse(instances.begin(), others);
  pack.members = std::move(instances);
  pack.isPackage = PackagesAmong(pack);
  return pack;
}

void ReadPack(const Entry& entry, const TiXmlNode& root, LintFolder& folder) {
  std::vector<const TiXmlNode*> instances;
  if (CollectInstances(&root, instances) != nullptr || instances.empty()) return;
  PackageReader reader(entry.name);
  std::vector<LintPackage> packages;
  for (const TiXmlNode* instance : instances) {
    LintPackage package = reader.Read(*instance, PlaceOf(*instance));
    if (!package.Properties().empty()) packages.push_back(std::move(package));
  }
  folder.packs.push_back(PackOf(entry, std::move(packages)));
}

void ReadIndividual(const Entry& entry, const TiXmlNode& root, LintFolder& folder) {
  std::vector<const TiXmlNode*> instances;
  CollectInstances(&root, instances);
  const TiXmlNode& begin = instances.empty() ? root : *instances.front();
  LintPackage package = PackageReader(entry.name).Read(root, PlaceOf(begin));
  if (!package.Properties().empty()) folder.individuals.push_back(std::move(package));
}

void ReadDescriptor(const Entry& entry, LintFolder& folder, LintReport& report) {
  const auto bytes = ReadRegularFile(entry.path);
  if (!bytes) {
    report.Add(LintId::NotReadable, entry.name, {},
               "This is no regular file that can be read, so it gives no package.");
    return;
  }
  const std::string text = TextAsSearched(*bytes, folder.target);
  const DescriptorMarkers markers = FindMarkers(text);
  CheckMarkers({entry.name, *bytes, text, markers}, report);
  if (!IsKovuText(markers) && !IsIndividualText(markers)) return;

  const auto kind = IsKovuText(markers) ? DescriptorKind::Pack : DescriptorKind::Individual;
  CimXmlDocument document;
  const LoadOutcome outcome = document.LoadBytes(*bytes, kind, Positions::Tracked);
  CheckDocument({entry.name, *bytes, text, markers}, document, outcome, report);
  if (document.Root() == nullptr) return;
  if (kind == DescriptorKind::Pack) {
    ReadPack(entry, *document.Root(), folder);
  } else {
    ReadIndividual(entry, *document.Root(), folder);
  }
}

}  // namespace

LintFolder ReadLintFolder(const std::string& path, LintTarget target, LintReport& report) {
  LintFolder folder;
  folder.path = path;
  folder.target = target;
  for (const Entry& entry : ListDescriptors(folder)) {
    folder.files.push_back(entry.name);
    ReadDescriptor(entry, folder, report);
  }
  return folder;
}

std::vector<const LintPackage*> AllPackages(const LintFolder& folder) {
  std::vector<const LintPackage*> packages;
  for (const LintPack& pack : folder.packs) {
    for (std::size_t i = 0; i < pack.members.size(); ++i) {
      if (pack.isPackage[i]) packages.push_back(&pack.members[i]);
    }
  }
  for (const LintPackage& package : folder.individuals) packages.push_back(&package);
  return packages;
}

std::vector<const LintPackage*> PackagesByCode(const LintFolder& folder) {
  std::unordered_set<std::string> known{""};
  std::vector<const LintPackage*> packages;
  for (const LintPackage* package : AllPackages(folder)) {
    if (known.insert(package->Code()).second) packages.push_back(package);
  }
  return packages;
}

}  // namespace Vornik::Cli
