#include "remedy/repository_faults.h"

#include <fmt/format.h>

#include <algorithm>

#include "filters/platform.h"
#include "model/filter_table.h"
#include "model/literals.h"
#include "model/query_parameters.h"
#include "output/wording.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

std::string MissingText(const PropertySource& source, const char* property, const char* filter) {
  return fmt::format("{} has no \"{}\", which the {} filter needs.", source.File(), property,
                     filter);
}

std::string PlatformFault(const PropertySource& source, const QuerySettings& settings) {
  constexpr const char* filter = "platform";
  const SupXmlProperties& properties = source.entry->properties;
  switch (EvaluatePlatform(properties, settings.osValue, settings.arcValue, settings.machineType)
              .verdict) {
    case PlatformVerdict::NoMachineTypes:
      return MissingText(source, PropertyName::orderedMachineTypeList, filter);
    case PlatformVerdict::NoOperatingSystems:
      return MissingText(source, PropertyName::orderedOSList, filter);
    case PlatformVerdict::NoArchitectures:
      return MissingText(source, PropertyName::orderedOSArchitectureList, filter);
    case PlatformVerdict::Matched:
    case PlatformVerdict::NotMatched:
      break;
  }
  std::vector<std::string> types;
  for (const PlatformEntry& entry : ReadPlatformEntries(properties)) {
    types.push_back(entry.machineType);
  }
  if (std::any_of(types.begin(), types.end(), IsMachineType)) return "";
  return fmt::format("The ordered lists of {} name no machine type of four digits, but {}.",
                     source.File(), QuotedList(types));
}

std::string PayloadFault(PayloadVerdict verdict, const PropertySource& source,
                         const std::string& folder) {
  constexpr const char* filter = "payloadExist";
  const auto missing = [&](const char* property) {
    const std::string name = GetPropertyValue(property, source.entry->properties);
    return fmt::format("{} is no regular file, but \"{}\" in {} names it.",
                       PathInFolder(folder, name), property, source.File());
  };
  switch (verdict) {
    case PayloadVerdict::NoXmlFilename:
      return MissingText(source, PropertyName::xmlFilename, filter);
    case PayloadVerdict::NoPayload:
      return MissingText(source, PropertyName::payload, filter);
    case PayloadVerdict::DescriptorMissing:
      return missing(PropertyName::xmlFilename);
    case PayloadVerdict::PayloadMissing:
      return missing(PropertyName::payload);
    case PayloadVerdict::Found:
      break;
  }
  return "";
}

}  // namespace

std::vector<std::string> FindRepositoryFaults(QueryModel& model, const QuerySettings& settings,
                                              const std::string& code) {
  const PropertySource source = model.SourceOf(code);
  if (source.entry == nullptr) {
    return {
        "The descriptor has no \"identificationCode\", by which the filters find its properties."};
  }
  std::vector<std::string> faults{PlatformFault(source, settings)};
  if (settings.payloadExistFilter) {
    faults.push_back(PayloadFault(model.PayloadOf(source), source, settings.folder));
  }
  for (const Filter& filter : Filters()) {
    const char* needed = filter.neededProperty;
    if (needed == nullptr || !Runs(filter, settings)) continue;
    if (GetPropertyValue(needed, source.entry->properties).empty()) {
      faults.push_back(MissingText(source, needed, filter.name));
    }
  }
  faults.erase(std::remove(faults.begin(), faults.end(), std::string()), faults.end());
  return faults;
}

}  // namespace Vornik::Cli
