#include "lint/folder.h"

#include <algorithm>
#include <boost/system/system_error.hpp>
#include <set>
#include <utility>

#include "inspection/descriptor_inspection.h"
#include "lint/documents.h"
#include "lint/markers.h"
#include "model/folder_reading.h"
#include "model/literals.h"
#include "records/pack_members.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

std::vector<DescriptorFile> ListByName(LintFolder& folder) {
  FolderListing listing = ListDescriptors(folder.path);
  if (listing.failure) folder.walkFailure = FailureText(listing.failure);
  std::sort(listing.files.begin(), listing.files.end(),
            [](const DescriptorFile& a, const DescriptorFile& b) { return a.name < b.name; });
  return std::move(listing.files);
}

// The index of the only member for which the test is true.
template <typename Test>
std::optional<std::size_t> OnlyMember(const LintPack& pack, Test test) {
  const auto& members = pack.members;
  const auto first = std::find_if(members.begin(), members.end(), test);
  if (first == members.end()) return std::nullopt;
  if (std::find_if(first + 1, members.end(), test) != members.end()) return std::nullopt;
  return static_cast<std::size_t>(first - members.begin());
}

// See LintPack::misnamedOwn.
std::optional<std::size_t> FindMisnamedOwn(const LintPack& pack) {
  if (pack.ownInstances != 0) return std::nullopt;
  const auto named = OnlyMember(pack, [&pack](const LintPackage& member) {
    return EqualByGlobalLocaleFold(member.Value(PropertyName::xmlFilename), pack.file);
  });
  if (named) return named;
  return OnlyMember(pack, [](const LintPackage& member) {
    return member.ClassName().find(Marker::pack) != std::string::npos;
  });
}

// See LintPack::isPackage.
std::vector<bool> PackagesAmong(const LintPack& pack) {
  std::vector<bool> isPackage(pack.members.size(), true);
  if (pack.misnamedOwn) isPackage[*pack.misnamedOwn] = false;
  bool hasNamed = false;
  for (std::size_t i = 0; i < pack.ownInstances; ++i) {
    if (pack.members[i].Value(PropertyName::xmlFilename) != pack.file) continue;
    isPackage[i] = false;
    hasNamed = true;
  }
  if (!hasNamed && pack.ownInstances != 0) isPackage.front() = false;
  return isPackage;
}

LintPack PackOf(const DescriptorFile& file, std::vector<LintPackage> instances) {
  std::vector<std::string> xmlFilenames;
  xmlFilenames.reserve(instances.size());
  for (const LintPackage& instance : instances) {
    xmlFilenames.push_back(instance.Value(PropertyName::xmlFilename));
  }
  const MemberOrder order = OrderMembers(file.path, xmlFilenames);
  LintPack pack;
  pack.file = file.name;
  pack.ownInstances = order.ownInstances;
  for (const std::size_t i : order.instances) pack.members.push_back(std::move(instances[i]));
  pack.misnamedOwn = FindMisnamedOwn(pack);
  pack.isPackage = PackagesAmong(pack);
  return pack;
}

bool IsUnreadable(DescriptorFault fault) {
  return fault == DescriptorFault::NotOpened || fault == DescriptorFault::IsFolder ||
         fault == DescriptorFault::NotRegular || fault == DescriptorFault::NotRead;
}

void AddPackages(const DescriptorFile& file, DescriptorInspection inspection, LintFolder& folder) {
  if (inspection.reading.fault != DescriptorFault::None) return;
  std::vector<LintPackage> packages;
  for (PlacedPackage& package : inspection.packages) {
    if (!package.properties.empty()) packages.emplace_back(file.name, std::move(package));
  }
  if (inspection.reading.kind == DescriptorKind::Pack) {
    folder.packs.push_back(PackOf(file, std::move(packages)));
  } else {
    folder.individuals.push_back(std::move(packages.front()));
  }
}

void ReadDescriptor(const DescriptorFile& file, LintFolder& folder, LintReport& report) {
  DescriptorInspection inspection = InspectDescriptor(file.path, TextModeOf(folder.target));
  if (IsUnreadable(inspection.reading.fault)) {
    report.Add(LintId::NotReadable, file.name, {},
               "This is no regular file that can be read, so it gives no package.");
    return;
  }
  const std::string bytes = inspection.bytes.value_or("");
  const SearchedFile searched{file.name, inspection, TextAsSearched(bytes, folder.target)};
  CheckMarkers(searched, report);
  if (inspection.reading.kind == DescriptorKind::Neither) return;
  CheckDocument(searched, report);
  AddPackages(file, std::move(inspection), folder);
}

}  // namespace

LintFolder ReadLintFolder(const std::string& path, LintTarget target, LintReport& report,
                          const ReadingProgress& progress) {
  LintFolder folder;
  folder.path = path;
  folder.target = target;
  const std::vector<DescriptorFile> files = ListByName(folder);
  try {
    for (const DescriptorFile& file : files) {
      folder.files.push_back(file.name);
      ReadDescriptor(file, folder, report);
      if (progress != nullptr) progress(folder.files.size(), files.size());
    }
  } catch (const boost::system::system_error& error) {
    folder.walkFailure = error.what();  // as it ends a query
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
  std::set<std::string> known{""};
  std::vector<const LintPackage*> packages;
  for (const LintPackage* package : AllPackages(folder)) {
    if (known.insert(package->Code()).second) packages.push_back(package);
  }
  return packages;
}

}  // namespace Vornik::Cli
