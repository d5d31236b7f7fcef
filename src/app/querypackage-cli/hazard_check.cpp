#include "hazard_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <boost/filesystem/exception.hpp>
#include <cstdint>
#include <vector>

#include "cimxml.h"
#include "driver_files.h"
#include "letter_case.h"
#include "literals.h"
#include "pack_choice.h"
#include "query_parameters.h"
#include "repository.h"

namespace Vornik::Cli {

namespace {

bool PassesParameterCheck(const QuerySettings& settings) {
  try {
    return CheckParameters({settings.folder, settings.machineType, settings.osValue,
                            settings.arcValue, settings.includePackageIds,
                            settings.excludePackageIds})
               .fault == ParameterFault::None;
  } catch (const boost::filesystem::filesystem_error&) {
    return false;
  }
}

bool LacksClassification(const SupXmlProperties& properties) {
  return ReadDriverFiles(properties).unclassifiedIndex.has_value();
}

bool SameProperty(const SupXmlProperty& a, const SupXmlProperty& b) {
  return a.name == b.name && a.type == b.type && a.values == b.values;
}

bool SameProperties(const SupXmlProperties& a, const SupXmlProperties& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameProperty);
}

// The classifications that count are those of the last property of that name.
int LineOfClassifications(const TiXmlNode* top) {
  SupXmlProperties properties;
  ReadProperties(top, properties);
  std::vector<const TiXmlNode*> elements;
  CollectProperties(top, elements);
  for (std::size_t i = properties.size(); i-- > 0;) {
    if (EqualByCLibraryFold(properties[i].name, PropertyName::driverFilesClassification)) {
      return LineOf(*elements[i]);
    }
  }
  return 0;
}

int LineInIndividual(const std::string& file) {
  CimXmlDocument document;
  document.LoadFile(file, DescriptorKind::Individual, Positions::Tracked);
  return LineOfClassifications(document.Root());
}

int LineInMember(const std::string& file, const SupXmlProperties& member) {
  CimXmlDocument document;
  document.LoadFile(file, DescriptorKind::Pack, Positions::Tracked);
  std::vector<const TiXmlNode*> instances;
  CollectInstances(document.Root(), instances);
  for (const TiXmlNode* instance : instances) {
    SupXmlProperties properties;
    ReadProperties(instance, properties);
    if (SameProperties(properties, member)) return LineOfClassifications(instance);
  }
  return 0;
}

Hazard MisfitIn(const std::string& file) {
  CimXmlDocument document;
  document.LoadFile(file, DescriptorKind::Pack, Positions::Tracked);
  std::vector<const TiXmlNode*> instances;
  const TiXmlNode* misfit = CollectInstances(document.Root(), instances);
  Hazard hazard;
  hazard.file = file;
  hazard.line = misfit == nullptr ? 0 : LineOf(*misfit);
  return hazard;
}

Hazard UnclassifiedIn(const std::string& file, const SupXmlProperties& properties, int line) {
  return {HazardKind::UnclassifiedDriver,
          file,
          line,
          GetPropertyValue(PropertyName::identificationCode, properties),
          GetPropertyValues(PropertyName::driverFiles, properties).size(),
          GetPropertyValues(PropertyName::driverFilesClassification, properties).size()};
}

const KovuPackEntry* ChosenPack(const QuerySettings& settings, const Repository& repository) {
  PackChooser chooser;
  for (std::size_t i = 0; i < repository.packs.size(); ++i) {
    const SupXmlProperties& pack = PackLevelProperties(repository.packs[i]);
    if (JudgePack(pack, settings.machineType, settings.osValue) == PackVerdict::Applies) {
      chooser.Offer(static_cast<std::int32_t>(i), pack);
    }
  }
  const std::int32_t chosen = chooser.Chosen();
  return chosen == -1 ? nullptr : &repository.packs[static_cast<std::size_t>(chosen)];
}

std::optional<Hazard> HazardOfMembers(const KovuPackEntry& pack) {
  // The first member is the pack itself, and its driver files are never read.
  for (std::size_t i = 1; i < pack.members.size(); ++i) {
    const SupXmlProperties& member = pack.members[i].properties;
    if (!LacksClassification(member)) continue;
    return UnclassifiedIn(pack.kovuXmlFile, member, LineInMember(pack.kovuXmlFile, member));
  }
  return std::nullopt;
}

std::optional<Hazard> HazardOfIndividuals(const std::vector<PackageXmlEntry>& individuals) {
  const auto found = std::find_if(
      individuals.begin(), individuals.end(),
      [](const PackageXmlEntry& entry) { return LacksClassification(entry.properties); });
  if (found == individuals.end()) return std::nullopt;
  return UnclassifiedIn(found->xmlFile, found->properties, LineInIndividual(found->xmlFile));
}

std::string Place(const Hazard& hazard) {
  return hazard.line == 0 ? hazard.file : fmt::format("{}:{}", hazard.file, hazard.line);
}

}  // namespace

std::optional<Hazard> FindHazard(const QuerySettings& settings) {
  if (!PassesParameterCheck(settings)) return std::nullopt;
  const Repository repository = ReadRepository(settings.folder);

  // The whole folder is loaded before the first record is built.
  const auto misfit = std::find_if(
      repository.files.begin(), repository.files.end(),
      [](const RepositoryFile& file) { return file.fault == FileFault::InstanceMisfit; });
  if (misfit != repository.files.end()) return MisfitIn(misfit->path);
  if (repository.walkFailure) return std::nullopt;

  if (const KovuPackEntry* pack = ChosenPack(settings, repository)) {
    if (auto hazard = HazardOfMembers(*pack)) return hazard;
  }
  return HazardOfIndividuals(repository.individuals);
}

std::string Describe(const Hazard& hazard) {
  if (hazard.kind == HazardKind::InstanceMisfit) {
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
