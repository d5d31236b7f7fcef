#include "model/hazard_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "inspection/descriptor_inspection.h"
#include "model/literals.h"
#include "model/property_places.h"
#include "records/driver_files.h"
#include "records/pack_members.h"
#include "records/pack_selection.h"

namespace Vornik::Cli {

namespace {

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
          PropertyPlaces().LineOf(file, properties, PropertyName::driverFilesClassification,
                                  PropertyRead::List),
          GetPropertyValue(PropertyName::identificationCode, properties),
          GetPropertyValues(PropertyName::driverFiles, properties).size(),
          GetPropertyValues(PropertyName::driverFilesClassification, properties).size()};
}

bool EndsProcess(const SupXmlProperties& properties) {
  return ReadDriverFiles(properties).unclassifiedIndex.has_value();
}

bool IsLoaded(const FolderContents::File& file, DescriptorKind kind) {
  return file.reading.fault == DescriptorFault::None && file.reading.kind == kind;
}

std::vector<KovuPackEntry> PacksOf(const FolderContents& contents) {
  std::vector<KovuPackEntry> packs;
  for (const FolderContents::File& file : contents.files) {
    if (!IsLoaded(file, DescriptorKind::Pack)) continue;
    packs.push_back({file.path, MembersOfPack(file.path, file.reading.properties)});
  }
  return packs;
}

// The first member is the pack itself, and its driver files are never read.
std::optional<Hazard> UnclassifiedAmong(const KovuPackEntry& pack) {
  for (std::size_t i = 1; i < pack.members.size(); ++i) {
    const SupXmlProperties& properties = pack.members[i].properties;
    if (EndsProcess(properties)) return UnclassifiedIn(pack.kovuXmlFile, properties);
  }
  return std::nullopt;
}

std::optional<Hazard> UnclassifiedInChosenPack(const QuerySettings& settings,
                                               const FolderContents& contents) {
  const std::vector<KovuPackEntry> packs = PacksOf(contents);
  const auto chosen = ChosenPack(EvaluatePacks(packs, settings.machineType, settings.osValue));
  if (!chosen) return std::nullopt;
  return UnclassifiedAmong(packs[*chosen]);
}

std::optional<Hazard> FirstHazardIn(const FolderContents::File& file) {
  if (file.reading.fault == DescriptorFault::InstanceWithoutClassName) {
    return InstanceHazardIn(file.path);
  }
  if (IsLoaded(file, DescriptorKind::Pack)) {
    return UnclassifiedAmong({file.path, MembersOfPack(file.path, file.reading.properties)});
  }
  if (!IsLoaded(file, DescriptorKind::Individual)) return std::nullopt;
  const SupXmlProperties& properties = file.reading.properties.front();
  if (!EndsProcess(properties)) return std::nullopt;
  return UnclassifiedIn(file.path, properties);
}

std::string Place(const Hazard& hazard) {
  return hazard.line == 0 ? hazard.file : fmt::format("{}:{}", hazard.file, hazard.line);
}

}  // namespace

std::optional<Hazard> FindHazard(const QuerySettings& settings, const FolderContents& contents) {
  // The whole folder is loaded before the first record is built.
  for (const FolderContents::File& file : contents.files) {
    if (file.reading.fault == DescriptorFault::InstanceWithoutClassName) {
      return InstanceHazardIn(file.path);
    }
  }
  if (contents.failure) return std::nullopt;
  if (auto hazard = UnclassifiedInChosenPack(settings, contents)) return hazard;
  for (const FolderContents::File& file : contents.files) {
    if (!IsLoaded(file, DescriptorKind::Individual)) continue;
    const SupXmlProperties& properties = file.reading.properties.front();
    if (EndsProcess(properties)) return UnclassifiedIn(file.path, properties);
  }
  return std::nullopt;
}

std::vector<Hazard> FindHazards(const FolderContents& contents) {
  std::vector<Hazard> hazards;
  for (const FolderContents::File& file : contents.files) {
    auto hazard = FirstHazardIn(file);
    if (hazard) hazards.push_back(std::move(*hazard));
  }
  return hazards;
}

std::string Describe(const Hazard& hazard) {
  if (hazard.kind == HazardKind::InstanceWithoutClassName) {
    return fmt::format(
        "{}: the first attribute of this INSTANCE is not CLASSNAME, which would keep the query "
        "from ever returning; put CLASSNAME first",
        Place(hazard));
  }
  return fmt::format(
      "{}: package \"{}\" has {} \"driverFiles\" but only {} \"driverFilesClassification\" values, "
      "which would end the process; give each driver file a classification",
      Place(hazard), hazard.code, hazard.driverFiles, hazard.classifications);
}

}  // namespace Vornik::Cli
