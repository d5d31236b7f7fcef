#include "model/hazard_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "inspection/descriptor_inspection.h"
#include "model/literals.h"
#include "records/driver_files.h"
#include "records/pack_selection.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

bool LacksClassification(const SupXmlProperties& properties) {
  return ReadDriverFiles(properties).unclassifiedIndex.has_value();
}

bool SameProperty(const SupXmlProperty& a, const SupXmlProperty& b) {
  return a.name == b.name && a.type == b.type && a.values == b.values;
}

bool SameProperties(const SupXmlProperties& a, const SupXmlProperties& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameProperty);
}

// The classifications that count are those of the last property with that name.
int LineOfClassifications(const PlacedPackage& package) {
  for (std::size_t i = package.properties.size(); i-- > 0;) {
    if (EqualByCLibraryFold(package.properties[i].name, PropertyName::driverFilesClassification)) {
      return package.places[i]->place.line;
    }
  }
  return 0;
}

int LineOfClassifications(const std::string& file, const SupXmlProperties& properties) {
  const DescriptorInspection inspection = InspectDescriptor(file);
  const auto& packages = inspection.packages;
  const auto package =
      std::find_if(packages.begin(), packages.end(), [&properties](const PlacedPackage& candidate) {
        return SameProperties(candidate.properties, properties);
      });
  return package == packages.end() ? 0 : LineOfClassifications(*package);
}

Hazard InstanceHazardIn(const std::string& file) {
  const auto instances = InspectDescriptor(file).instancesWithoutClassName;
  Hazard hazard;
  hazard.file = file;
  hazard.line = instances.empty() ? 0 : instances.front().place.line;
  return hazard;
}

Hazard UnclassifiedIn(const std::string& file, const SupXmlProperties& properties) {
  return {HazardKind::UnclassifiedDriver,
          file,
          LineOfClassifications(file, properties),
          GetPropertyValue(PropertyName::identificationCode, properties),
          GetPropertyValues(PropertyName::driverFiles, properties).size(),
          GetPropertyValues(PropertyName::driverFilesClassification, properties).size()};
}

const KovuPackEntry* ChosenPack(const QuerySettings& settings, const Repository& repository) {
  const std::vector<KovuPackEntry>& packs = repository.kovuPackEntries();
  const std::optional<std::size_t> chosen =
      ChosenPack(EvaluatePacks(packs, settings.machineType, settings.osValue));
  return chosen ? &packs[*chosen] : nullptr;
}

std::optional<Hazard> HazardOfMembers(const KovuPackEntry& pack) {
  // The first member is the pack itself, and its driver files are never read.
  for (std::size_t i = 1; i < pack.members.size(); ++i) {
    const SupXmlProperties& member = pack.members[i].properties;
    if (!LacksClassification(member)) continue;
    return UnclassifiedIn(pack.kovuXmlFile, member);
  }
  return std::nullopt;
}

std::optional<Hazard> HazardOfIndividuals(const std::vector<PackageXmlEntry>& individuals) {
  const auto found = std::find_if(
      individuals.begin(), individuals.end(),
      [](const PackageXmlEntry& entry) { return LacksClassification(entry.properties); });
  if (found == individuals.end()) return std::nullopt;
  return UnclassifiedIn(found->xmlFile, found->properties);
}

std::string Place(const Hazard& hazard) {
  return hazard.line == 0 ? hazard.file : fmt::format("{}:{}", hazard.file, hazard.line);
}

}  // namespace

std::optional<Hazard> FindHazard(const QuerySettings& settings, const FolderReading& folder) {
  // The whole folder is loaded before the first record is built.
  const auto hanging =
      std::find_if(folder.files.begin(), folder.files.end(), [](const RepositoryFile& file) {
        return file.reading.fault == DescriptorFault::InstanceWithoutClassName;
      });
  if (hanging != folder.files.end()) return InstanceHazardIn(hanging->path);
  if (folder.walkFailure) return std::nullopt;

  if (const KovuPackEntry* pack = ChosenPack(settings, folder.repository)) {
    if (auto hazard = HazardOfMembers(*pack)) return hazard;
  }
  return HazardOfIndividuals(folder.repository.packageXmlEntries());
}

std::string Describe(const Hazard& hazard) {
  if (hazard.kind == HazardKind::InstanceWithoutClassName) {
    return fmt::format(
        "{}: the first attribute of this INSTANCE is not CLASSNAME, which would keep the query "
        "from ever returning; put CLASSNAME first, or skip this check with --trust",
        Place(hazard));
  }
  return fmt::format(
      "{}: package \"{}\" has {} \"driverFiles\" but only {} \"driverFilesClassification\" values, "
      "which would end the process; give each driver file a classification, or skip this check "
      "with --trust",
      Place(hazard), hazard.code, hazard.driverFiles, hazard.classifications);
}

}  // namespace Vornik::Cli
