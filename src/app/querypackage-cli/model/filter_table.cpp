#include "model/filter_table.h"

#include <algorithm>

namespace Vornik::Cli {

namespace {

using Record = QueryPackageResult;
using Settings = QuerySettings;

constexpr std::array<Filter, filterCount> filters{{
    {FilterId::Duplicate, "duplicate", "", nullptr, "", LogText::duplicate,
     "Of all descriptors with exactly the same identification code the first one becomes the "
     "package, members of the chosen pack before individual descriptors.",
     nullptr, std::nullopt},

    {FilterId::Platform, "platform", "platformFilterStatus", &Record::platformFilterStatus,
     "PLATFORM", LogText::platform,
     "One position of \"orderedMachineTypeList\", \"orderedOSList\" and "
     "\"orderedOSArchitectureList\" has to hold exactly the machine type, and the operating system "
     "and the architecture or 0.",
     nullptr, std::nullopt},

    {FilterId::Kovu, "kovu", "kovuFilterStatus", &Record::kovuFilterStatus, "KOVU", LogText::kovu,
     "The package has to come from the one pack that is chosen for the machine.",
     "It is switched off by --no-kovu-filter.",
     FilterSetting{
         "kovuFilter", &Settings::kovuFilter,
         [](const Settings& from, QueryPackage& to) { to.SetKovuFilter(from.kovuFilter); },
         "--no-kovu-filter", "", "Do not judge whether a package comes from the machine's pack"}},

    {FilterId::Sep, "sep", "sepFilterStatus", &Record::sepFilterStatus, "SEP", LogText::sep,
     "The identification code must hold neither \"orx_utl_tsep\" nor \"orx_utl_sep\", in exactly "
     "these letters.",
     "It is switched off by --no-sep-filter.",
     FilterSetting{"sepFilter", &Settings::sepFilter,
                   [](const Settings& from, QueryPackage& to) { to.SetSepFilter(from.sepFilter); },
                   "--no-sep-filter", "", "Do not judge whether a package is a Sep package"}},

    {FilterId::PayloadExist, "payloadExist", "payloadExistFilterStatus",
     &Record::payloadExistFilterStatus, "PAYLOAD", LogText::payloadExist,
     "The names in \"xmlFilename\" and \"payload\" have to be regular files of the folder.",
     "It is switched off by --no-payload-exist-filter.",
     FilterSetting{"payloadExistFilter", &Settings::payloadExistFilter,
                   [](const Settings& from, QueryPackage& to) {
                     to.SetPayloadExistFilter(from.payloadExistFilter);
                   },
                   "--no-payload-exist-filter", "",
                   "Do not judge whether a package's files are in the folder"}},

    {FilterId::Supersede, "supersede", "supersedeFilterStatus", &Record::supersedeFilterStatus,
     "SUPERSEDE", LogText::supersede,
     "No package of the query may replace it, neither by a \"supersede\" list nor by a greater "
     "\"Version\" (compared as text) among those that share a driver file, which has the last "
     "word.",
     "It is switched off by --no-supersede-filter.",
     FilterSetting{"supersedeFilter", &Settings::supersedeFilter,
                   [](const Settings& from, QueryPackage& to) {
                     to.SetSupersedeFilter(from.supersedeFilter);
                   },
                   "--no-supersede-filter", "",
                   "Do not judge whether a package is replaced by another one"}},

    {FilterId::IncludeId, "includeId", "includeIdFilterStatus", &Record::includeIdFilterStatus,
     "INCLUDE", LogText::includeIds,
     "The identification code has to be in the include list, as a whole and in any case.",
     "It is off because no --include is given.",
     FilterSetting{"includePackageIds", &Settings::includePackageIds,
                   [](const Settings& from, QueryPackage& to) {
                     to.SetIncludePackageIDs(from.includePackageIds);
                   },
                   "--include", "ID",
                   "Identification code that is wanted, in any case.\n"
                   "Repeatable; without it the filter is off"}},

    {FilterId::ExcludeId, "excludeId", "excludeIdFilterStatus", &Record::excludeIdFilterStatus,
     "EXCLUDE", LogText::excludeIds,
     "The identification code must not be in the exclude list, as a whole and in any case.",
     "It is off because no --exclude is given.",
     FilterSetting{"excludePackageIds", &Settings::excludePackageIds,
                   [](const Settings& from, QueryPackage& to) {
                     to.SetExcludePackageIDs(from.excludePackageIds);
                   },
                   "--exclude", "ID",
                   "Identification code that is not wanted, in any case.\n"
                   "Repeatable; without it the filter is off"}},

    {FilterId::UpdateType, "updateType", "updateTypeFilterStatus", &Record::updateTypeFilterStatus,
     "TYPE", LogText::updateType,
     "The number at the front of \"type\" has to be an update type that is asked for; 99 on either "
     "side meets everything.",
     "It is off because no --update-type is given.",
     FilterSetting{
         "updateTypes", &Settings::updateTypes,
         [](const Settings& from, QueryPackage& to) { to.SetUpdateTypes(from.updateTypes); },
         "--update-type", "N",
         "Update type that is wanted, -2147483648 to 2147483647;\n"
         "99 is any. Repeatable; without it the filter is off"}},
}};

// Published: help, documents and remedies have the settings in this order.
constexpr std::array settingOrder{FilterId::UpdateType, FilterId::IncludeId, FilterId::ExcludeId,
                                  FilterId::Kovu,       FilterId::Sep,       FilterId::PayloadExist,
                                  FilterId::Supersede};

bool IsOn(bool filter) { return filter; }

template <typename Item>
bool IsOn(const std::vector<Item>& list) {
  return !list.empty();
}

}  // namespace

const std::array<Filter, filterCount>& Filters() { return filters; }

const Filter& FilterOf(FilterId id) { return filters[static_cast<std::size_t>(id)]; }

const std::vector<FilterSetting>& FilterSettings() {
  static const std::vector<FilterSetting> settings = [] {
    std::vector<FilterSetting> ordered;
    ordered.reserve(settingOrder.size());
    for (const FilterId id : settingOrder) ordered.push_back(FilterOf(id).setting.value());
    return ordered;
  }();
  return settings;
}

bool Runs(const Filter& filter, const QuerySettings& settings) {
  if (!filter.setting) return true;
  return std::visit([&settings](auto member) { return IsOn(settings.*member); },
                    filter.setting->member);
}

bool Runs(FilterId id, const QuerySettings& settings) { return Runs(FilterOf(id), settings); }

bool IsRefused(const QueryPackageResult& record) {
  return std::any_of(filters.begin(), filters.end(), [&record](const Filter& filter) {
    return filter.slot != nullptr && record.*filter.slot == FilterStatus::NotMatched;
  });
}

bool IsMatchedByAll(const QueryPackageResult& record, const QuerySettings& settings) {
  return std::all_of(filters.begin(), filters.end(), [&](const Filter& filter) {
    if (filter.slot == nullptr) return true;
    const std::uint32_t status = record.*filter.slot;
    return status == FilterStatus::Matched ||
           (status == FilterStatus::NotEvaluated && !Runs(filter, settings));
  });
}

}  // namespace Vornik::Cli
