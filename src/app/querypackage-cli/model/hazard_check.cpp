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

// Of the entries from an index on. packFile: that of their pack; empty: they have none.
std::optional<Hazard> UnclassifiedAmong(const std::vector<PackageXmlEntry>& entries,
                                        std::size_t begin, const std::string& packFile) {
  for (std::size_t i = begin; i < entries.size(); ++i) {
    const auto& [file, properties] = entries[i];
    if (!EndsProcess(properties)) continue;
    return UnclassifiedIn(packFile.empty() ? file : packFile, properties);
  }
  return std::nullopt;
}

std::string Place(const Hazard& hazard) {
  return hazard.line == 0 ? hazard.file : fmt::format("{}:{}", hazard.file, hazard.line);
}

}  // namespace

bool EndsProcess(const SupXmlProperties& properties) {
  return ReadDriverFiles(properties).unclassifiedIndex.has_value();
}

std::optional<Hazard> FindHazard(const QuerySettings& settings, const FolderReading& folder) {
  // The whole folder is loaded before the first record is built.
  const auto hanging =
      std::find_if(folder.files.begin(), folder.files.end(), [](const RepositoryFile& file) {
        return file.reading.fault == DescriptorFault::InstanceWithoutClassName;
      });
  if (hanging != folder.files.end()) return InstanceHazardIn(hanging->path);
  if (folder.walkFailure) return std::nullopt;

  const std::vector<KovuPackEntry>& packs = folder.repository.kovuPackEntries();
  const auto chosen = ChosenPack(EvaluatePacks(packs, settings.machineType, settings.osValue));
  if (chosen) {
    // The first member is the pack itself, and its driver files are never read.
    const KovuPackEntry& pack = packs[*chosen];
    if (auto hazard = UnclassifiedAmong(pack.members, 1, pack.kovuXmlFile)) return hazard;
  }
  return UnclassifiedAmong(folder.repository.packageXmlEntries(), 0, "");
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
