#include "list/folder_list.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <tuple>
#include <utility>

#include "list/package_counts.h"
#include "model/folder_reading.h"
#include "model/literals.h"
#include "output/wording.h"
#include "records/pack_selection.h"
#include "text/decimal.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

ListedPack ListPack(const KovuPackEntry& pack) {
  const SupXmlProperties& own = PackLevelProperties(pack);
  ListedPack listed;
  listed.file = FileNameOf(pack.kovuXmlFile);
  listed.version = GetPropertyValue(PropertyName::Version, own);
  listed.machineTypes =
      ParseApplicableMachineTypes(GetPropertyValues(PropertyName::applicableMachineTypes, own));
  for (const std::string& system :
       GetPropertyValues(PropertyName::applicableOperatingSystems, own)) {
    listed.systems.push_back(static_cast<std::uint32_t>(ParseDecimal(system)));
  }
  if (!pack.members.empty()) {
    std::transform(pack.members.begin() + 1, pack.members.end(), std::back_inserter(listed.members),
                   CodeOf);
  }
  listed.hasOwnInstance =
      IsSelfInstance(pack.kovuXmlFile, GetPropertyValue(PropertyName::xmlFilename, own));
  return listed;
}

ListedPackage ListPackage(const PackageXmlEntry& entry, const std::string& file) {
  return {CodeOf(entry), GetPropertyValue(PropertyName::Version, entry.properties),
          GetPropertyValue(PropertyName::type, entry.properties), FileNameOf(file)};
}

std::vector<ListedPackage> ListPackages(const Repository& repository) {
  std::vector<ListedPackage> packages;
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) {
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      packages.push_back(ListPackage(pack.members[i], pack.kovuXmlFile));
    }
  }
  for (const PackageXmlEntry& entry : repository.packageXmlEntries()) {
    packages.push_back(ListPackage(entry, entry.xmlFile));
  }
  std::stable_sort(packages.begin(), packages.end(), [](const auto& a, const auto& b) {
    return std::tie(a.code, a.file) < std::tie(b.code, b.file);
  });
  return packages;
}

// By file. The machines' packs keep their meaning.
void SortPacks(FolderList& list) {
  std::vector<std::size_t> order(list.packs.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&list](std::size_t a, std::size_t b) {
    return list.packs[a].file < list.packs[b].file;
  });
  std::vector<ListedPack> packs;
  std::vector<std::size_t> places(order.size());
  for (const std::size_t index : order) {
    places[index] = packs.size();
    packs.push_back(std::move(list.packs[index]));
  }
  list.packs = std::move(packs);
  for (ListedMachine& listed : list.machines) {
    if (listed.pack) listed.pack = places[*listed.pack];
  }
}

}  // namespace

FolderList ListFolder(const std::string& path) {
  FolderContents contents = ReadContents(path);
  FolderList list;
  list.hazards = FindHazards(contents);
  std::sort(list.hazards.begin(), list.hazards.end(),
            [](const Hazard& a, const Hazard& b) { return a.file < b.file; });
  const FolderReading folder = Load(std::move(contents));
  list.folder = path;
  list.files = folder.files.size();
  for (const RepositoryFile& file : folder.files) {
    if (file.reading.fault != DescriptorFault::None) list.notRead.push_back(file.name);
  }
  std::sort(list.notRead.begin(), list.notRead.end());
  FolderMachines machines = NamedMachines(folder.repository).All();
  for (Machine& machine : machines.machines) list.machines.push_back({std::move(machine), 0, {}});
  list.hasAllMachines = machines.isComplete;
  list.invalidMachines = std::move(machines.invalid);
  CountPackages(folder.repository, list.machines);
  const auto& packs = folder.repository.kovuPackEntries();
  std::transform(packs.begin(), packs.end(), std::back_inserter(list.packs), ListPack);
  SortPacks(list);
  list.packages = ListPackages(folder.repository);
  list.walkFailure = folder.walkFailure;
  return list;
}

}  // namespace Vornik::Cli
