// The platform filter: which position of the ordered lists decides, and what does not fit.
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "explain/filters.h"
#include "filters/platform.h"
#include "model/literals.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

// The three lists, and what of each entry that counts fits the machine.
struct EvaluatedLists {
  EvaluatedLists(const SupXmlProperties& properties, const QuerySettings& settings)
      : machineTypes(GetPropertyValues(PropertyName::orderedMachineTypeList, properties)),
        systems(GetPropertyValues(PropertyName::orderedOSList, properties)),
        architectures(GetPropertyValues(PropertyName::orderedOSArchitectureList, properties)),
        fits(EvaluatePlatformEntries(properties, settings.osValue, settings.arcValue,
                                     settings.machineType)) {}

  std::vector<std::string> machineTypes;
  std::vector<std::string> systems;
  std::vector<std::string> architectures;
  std::vector<PlatformFit> fits;
};

// 0 stands for any.
std::string CodeListed(const char* what, const std::string& text) {
  return fmt::format(ParseDecimal(text) == 0 ? "any {} (\"{}\")" : "{} \"{}\"", what, text);
}

std::string PositionText(const EvaluatedLists& lists, std::size_t i) {
  return fmt::format("machine type \"{}\", {}, {}", lists.machineTypes[i],
                     CodeListed("operating system", lists.systems[i]),
                     CodeListed("architecture", lists.architectures[i]));
}

// What does not fit at a position with the right machine type.
std::string MisfitText(const EvaluatedLists& lists, std::size_t i, const QuerySettings& settings) {
  const PlatformFit& fit = lists.fits[i];
  std::string text = fmt::format("Position {} has the machine type", i + 1);
  if (!fit.osValue) {
    text += fmt::format(", but the operating system \"{}\" instead of {}", lists.systems[i],
                        static_cast<std::uint32_t>(settings.osValue));
  }
  if (!fit.arcValue) {
    text += fmt::format("{} the architecture \"{}\" instead of {}", fit.osValue ? ", but" : " and",
                        lists.architectures[i], static_cast<std::uint32_t>(settings.arcValue));
  }
  return text + '.';
}

// The machine type of an entry that is not reached has no fit: it is compared here.
void AddMisfits(FilterExplanation& explanation, const EvaluatedLists& lists,
                const QuerySettings& settings) {
  for (std::size_t i = 0; i < lists.machineTypes.size(); ++i) {
    const std::string& machineType = lists.machineTypes[i];
    if (machineType != settings.machineType) {
      if (machineType.find(settings.machineType) != std::string::npos) {
        explanation.details.push_back(fmt::format(
            "Position {} has \"{}\", which is compared as a whole.", i + 1, machineType));
      }
    } else if (i < lists.fits.size()) {
      explanation.details.push_back(MisfitText(lists, i, settings));
    } else {
      explanation.details.push_back(fmt::format(
          "Position {} has the machine type, but does not count: the shortest list ends after {}.",
          i + 1, lists.fits.size()));
    }
  }
}

FilterExplanation& SetMissing(FilterExplanation& explanation, const PackageContext& package,
                              const char* reason, const char* property) {
  SetReason(explanation, reason,
            fmt::format("\"{}\" is missing or empty, so there is no verdict.", property));
  return SetPlace(explanation, package, property, PropertyRead::List);
}

void SetNotMatched(FilterExplanation& explanation, const EvaluatedLists& lists,
                   const PackageContext& package) {
  const QuerySettings& settings = package.settings;
  const bool known = std::any_of(lists.fits.begin(), lists.fits.end(),
                                 [](const PlatformFit& fit) { return fit.machineType; });
  SetReason(explanation, "noEntryMatches",
            known ? "Positions of its lists have the machine type, but none fits the machine."
                  : fmt::format("None of the positions that count ({}) has the machine type {}.",
                                lists.fits.size(), settings.machineType));
  AddMisfits(explanation, lists, settings);
  SetPlace(explanation, package, PropertyName::orderedMachineTypeList, PropertyRead::List);
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
  const EvaluatedLists lists(properties, settings);
  const PlatformResult result =
      EvaluatePlatform(properties, settings.osValue, settings.arcValue, settings.machineType);
  switch (result.verdict) {
    case PlatformVerdict::Matched:
      return SetReason(explanation, "entryMatches",
                       fmt::format("Position {} of its lists fits the machine: {}.",
                                   result.entry + 1, PositionText(lists, result.entry)));
    case PlatformVerdict::NotMatched:
      SetNotMatched(explanation, lists, package);
      break;
    case PlatformVerdict::NoMachineTypes:
      return SetMissing(explanation, package, "noMachineTypes",
                        PropertyName::orderedMachineTypeList);
    case PlatformVerdict::NoOperatingSystems:
      return SetMissing(explanation, package, "noOperatingSystems", PropertyName::orderedOSList);
    case PlatformVerdict::NoArchitectures:
      return SetMissing(explanation, package, "noArchitectures",
                        PropertyName::orderedOSArchitectureList);
  }
  return explanation;
}

}  // namespace Vornik::Cli
