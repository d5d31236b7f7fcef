// The platform filter: which position of the ordered lists decides, and what does not fit.
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "explain/filters.h"
#include "filters/platform.h"
#include "model/literals.h"

namespace Vornik::Cli {

namespace {

struct Lists {
  std::vector<std::string> machineTypes;
  std::vector<std::string> systems;
  std::vector<std::string> architectures;

  std::size_t Positions() const {
    return std::min({machineTypes.size(), systems.size(), architectures.size()});
  }
};

Lists ListsOf(const SupXmlProperties& properties) {
  return {GetPropertyValues(PropertyName::orderedMachineTypeList, properties),
          GetPropertyValues(PropertyName::orderedOSList, properties),
          GetPropertyValues(PropertyName::orderedOSArchitectureList, properties)};
}

// Whether one position's operating system or architecture fits, by the filter's own rule.
bool Fits(const std::string& system, OsValue osValue, const std::string& architecture,
          ArcValue arcValue) {
  const SupXmlProperties position{{PropertyName::orderedMachineTypeList, "", {""}},
                                  {PropertyName::orderedOSList, "", {system}},
                                  {PropertyName::orderedOSArchitectureList, "", {architecture}}};
  return EvaluatePlatform(position, osValue, arcValue, "").verdict == PlatformVerdict::Matched;
}

std::string PositionText(const Lists& lists, std::size_t i) {
  return fmt::format("machine type \"{}\", operating system \"{}\", architecture \"{}\"",
                     lists.machineTypes[i], lists.systems[i], lists.architectures[i]);
}

// What does not fit at a position with the right machine type.
std::string MisfitText(const Lists& lists, std::size_t i, const QuerySettings& settings) {
  const bool systemFits = Fits(lists.systems[i], settings.osValue, "0", ArcValue::NotSet);
  const bool architectureFits =
      Fits("0", OsValue::NotSet, lists.architectures[i], settings.arcValue);
  std::string text = fmt::format("Position {} has the machine type", i + 1);
  if (!systemFits) {
    text += fmt::format(", but the operating system \"{}\" instead of {}", lists.systems[i],
                        static_cast<std::uint32_t>(settings.osValue));
  }
  if (!architectureFits) {
    text += fmt::format("{} the architecture \"{}\" instead of {}", systemFits ? ", but" : " and",
                        lists.architectures[i], static_cast<std::uint32_t>(settings.arcValue));
  }
  return text + '.';
}

void AddMisfits(FilterExplanation& explanation, const Lists& lists, const QuerySettings& settings) {
  const std::size_t positions = lists.Positions();
  for (std::size_t i = 0; i < lists.machineTypes.size(); ++i) {
    const std::string& machineType = lists.machineTypes[i];
    if (machineType != settings.machineType) {
      if (machineType.find(settings.machineType) != std::string::npos) {
        explanation.details.push_back(fmt::format(
            "Position {} has \"{}\", which is compared as a whole.", i + 1, machineType));
      }
    } else if (i < positions) {
      explanation.details.push_back(MisfitText(lists, i, settings));
    } else {
      explanation.details.push_back(fmt::format(
          "Position {} has the machine type, but does not count: the shortest list ends after {}.",
          i + 1, positions));
    }
  }
}

FilterExplanation& SayMissing(FilterExplanation& explanation, const char* reason,
                              const char* property) {
  return Say(explanation, reason,
             fmt::format("\"{}\" is missing or empty, so there is no verdict.", property));
}

void SayNotMatched(FilterExplanation& explanation, const Lists& lists,
                   const QuerySettings& settings) {
  const auto end = lists.machineTypes.begin() + static_cast<std::ptrdiff_t>(lists.Positions());
  const bool known = std::find(lists.machineTypes.begin(), end, settings.machineType) != end;
  Say(explanation, "noEntryMatches",
      known ? "Positions of its lists have the machine type, but none fits the machine."
            : fmt::format("None of the positions that count ({}) has the machine type {}.",
                          lists.Positions(), settings.machineType));
  AddMisfits(explanation, lists, settings);
}

}  // namespace

FilterExplanation ExplainPlatform(const PackageContext& package) {
  FilterExplanation explanation = BeginExplanation(FilterId::Platform, package);
  if (package.source.entry == nullptr) return ExplainNoProperties(explanation);
  for (const char* property : {PropertyName::orderedMachineTypeList, PropertyName::orderedOSList,
                               PropertyName::orderedOSArchitectureList}) {
    AddReading(explanation, package, property);
  }
  const QuerySettings& settings = package.settings;
  const SupXmlProperties& properties = package.source.entry->properties;
  const Lists lists = ListsOf(properties);
  const PlatformResult result =
      EvaluatePlatform(properties, settings.osValue, settings.arcValue, settings.machineType);
  switch (result.verdict) {
    case PlatformVerdict::Matched:
      return Say(explanation, "entryMatches",
                 fmt::format("Position {} of its lists fits the machine: {}.", result.entry + 1,
                             PositionText(lists, result.entry)));
    case PlatformVerdict::NotMatched:
      SayNotMatched(explanation, lists, settings);
      break;
    case PlatformVerdict::NoMachineTypes:
      return SayMissing(explanation, "noMachineTypes", PropertyName::orderedMachineTypeList);
    case PlatformVerdict::NoOperatingSystems:
      return SayMissing(explanation, "noOperatingSystems", PropertyName::orderedOSList);
    case PlatformVerdict::NoArchitectures:
      return SayMissing(explanation, "noArchitectures", PropertyName::orderedOSArchitectureList);
  }
  return explanation;
}

}  // namespace Vornik::Cli
