#include "model/filter_table.h"

#include <algorithm>
#include <cstddef>

namespace Vornik::Cli {

namespace {

using Record = QueryPackageResult;

constexpr std::array<Filter, filterCount> filters{{
    {FilterId::Duplicate, "duplicate", "", nullptr,
     "Of all descriptors with exactly the same identification code the first one becomes the "
     "package, members of the chosen pack before individual descriptors.",
     nullptr, LogText::duplicate},
    {FilterId::Platform, "platform", "platformFilterStatus", &Record::platformFilterStatus,
     "One position of \"orderedMachineTypeList\", \"orderedOSList\" and "
     "\"orderedOSArchitectureList\" has to hold exactly the machine type, and the operating system "
     "and the architecture or 0.",
     nullptr, LogText::platform},
    {FilterId::Kovu, "kovu", "kovuFilterStatus", &Record::kovuFilterStatus,
     "The package has to come from the one pack that is chosen for the machine.",
     "It is switched off by --no-kovu-filter.", LogText::kovu},
    {FilterId::Sep, "sep", "sepFilterStatus", &Record::sepFilterStatus,
     "The identification code must hold neither \"orx_utl_tsep\" nor \"orx_utl_sep\", in exactly "
     "these letters.",
     "It is switched off by --no-sep-filter.", LogText::sep},
    {FilterId::PayloadExist, "payloadExist", "payloadExistFilterStatus",
     &Record::payloadExistFilterStatus,
     "The names in \"xmlFilename\" and \"payload\" have to be regular files of the folder.",
     "It is switched off by --no-payload-exist-filter.", LogText::payloadExist},
    {FilterId::Supersede, "supersede", "supersedeFilterStatus", &Record::supersedeFilterStatus,
     "No package of the query may replace it, neither by a \"supersede\" list nor by a greater "
     "\"Version\" (compared as text) among those that share a driver file, which has the last "
     "word.",
     "It is switched off by --no-supersede-filter.", LogText::supersede},
    {FilterId::IncludeId, "includeId", "includeIdFilterStatus", &Record::includeIdFilterStatus,
     "The identification code has to be in the include list, as a whole and in any case.",
     "It is off because no --include is given.", LogText::includeIds},
    {FilterId::ExcludeId, "excludeId", "excludeIdFilterStatus", &Record::excludeIdFilterStatus,
     "The identification code must not be in the exclude list, as a whole and in any case.",
     "It is off because no --exclude is given.", LogText::excludeIds},
    {FilterId::UpdateType, "updateType", "updateTypeFilterStatus", &Record::updateTypeFilterStatus,
     "The number at the front of \"type\" has to be an update type that is asked for; 99 on either "
     "side meets everything.",
     "It is off because no --update-type is given.", LogText::updateType},
}};

}  // namespace

const std::array<Filter, filterCount>& Filters() { return filters; }

const Filter& FilterOf(FilterId id) { return filters[static_cast<std::size_t>(id)]; }

bool Runs(FilterId id, const QuerySettings& settings) {
  switch (id) {
    case FilterId::Kovu:
      return settings.kovuFilter;
    case FilterId::Sep:
      return settings.sepFilter;
    case FilterId::PayloadExist:
      return settings.payloadExistFilter;
    case FilterId::Supersede:
      return settings.supersedeFilter;
    case FilterId::IncludeId:
      return !settings.includePackageIds.empty();
    case FilterId::ExcludeId:
      return !settings.excludePackageIds.empty();
    case FilterId::UpdateType:
      return !settings.updateTypes.empty();
    case FilterId::Duplicate:
    case FilterId::Platform:
      break;
  }
  return true;
}

bool IsMatchedByAll(const QueryPackageResult& record, const QuerySettings& settings) {
  return std::all_of(filters.begin(), filters.end(), [&](const Filter& filter) {
    if (filter.slot == nullptr) return true;
    const std::uint32_t status = record.*filter.slot;
    return status == FilterStatus::Matched ||
           (status == FilterStatus::NotEvaluated && !Runs(filter.id, settings));
  });
}

}  // namespace Vornik::Cli
