#include "model/filter_table.h"

#include <algorithm>

#include "explain/filters.h"
#include "explain/supersede.h"
#include "filters/kovu.h"
#include "filters/sep.h"
#include "filters/update_type.h"
#include "model/literals.h"
#include "model/query_model.h"
#include "querypackageimp.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

using Record = QueryPackageResult;
using Settings = QuerySettings;

std::uint32_t StatusOf(bool matched) {
  return matched ? FilterStatus::Matched : FilterStatus::NotMatched;
}

std::uint32_t EvaluatePayloadExist(const FilterInput& input) {
  return StatusOf(input.source.entry != nullptr &&
                  input.model.PayloadOf(input.source) == PayloadVerdict::Found);
}

std::uint32_t EvaluateType(const FilterInput& input) {
  if (input.source.entry == nullptr) return FilterStatus::NotEvaluated;
  const UpdateTypeVerdict verdict =
      EvaluateUpdateType(input.source.entry->properties, input.settings.updateTypes);
  if (verdict == UpdateTypeVerdict::NoType) return FilterStatus::NotEvaluated;
  return StatusOf(verdict == UpdateTypeVerdict::Matched);
}

std::string OwnValue(const PropertySource& package, const char* property) {
  return GetPropertyValue(property, package.entry->properties);
}

constexpr std::array<Filter, filterCount> filters{{
    {FilterId::Duplicate,
     "duplicate",
     "",
     nullptr,
     "",
     LogText::duplicate,
     {},
     "Of all descriptors with exactly the same identification code the first one becomes the "
     "package, members of the chosen pack before individual descriptors.",
     nullptr,
     ExplainDuplicate},

    {FilterId::Platform,
     "platform",
     "platformFilterStatus",
     &Record::platformFilterStatus,
     "PLATFORM",
     LogText::platform,
     {LogText::platformMatched,
      LogText::platformNotMatched,
      LogText::noProperties,
      {{{"noMachineTypes", LogText::noMachineTypeList},
        {"noOperatingSystems", LogText::noOsList},
        {"noArchitectures", LogText::noArchitectureList}}}},
     "One position of \"orderedMachineTypeList\", \"orderedOSList\" and "
     "\"orderedOSArchitectureList\" has to hold exactly the machine type, and the operating system "
     "and the architecture or 0.",
     [](const FilterInput& input) { return PlatformStatus(input.settings, input.source); },
     ExplainPlatform},

    {FilterId::Kovu,
     "kovu",
     "kovuFilterStatus",
     &Record::kovuFilterStatus,
     "KOVU",
     LogText::kovu,
     {LogText::kovuMatched, LogText::kovuNotMatched},
     "The package has to come from the one pack that is chosen for the machine.",
     [](const FilterInput& input) { return StatusOf(IsFromPack(input.record)); },
     ExplainKovu,
     FilterSetting{
         "kovuFilter", &Settings::kovuFilter,
         [](const Settings& from, QueryPackageImp& to) { to.kovuFilter = from.kovuFilter; },
         "--no-kovu-filter", "Do not judge whether a package comes from the machine's pack",
         "It is switched off by --no-kovu-filter.", Dependence::Interdependent}},

    {FilterId::Sep,
     "sep",
     "sepFilterStatus",
     &Record::sepFilterStatus,
     "SEP",
     LogText::sep,
     {LogText::sepMatched, LogText::sepNotMatched},
     "The identification code must hold neither \"orx_utl_tsep\" nor \"orx_utl_sep\", in exactly "
     "these letters.",
     [](const FilterInput& input) { return StatusOf(!IsSepCode(input.record.identificationCode)); },
     ExplainSep,
     FilterSetting{"sepFilter", &Settings::sepFilter,
                   [](const Settings& from, QueryPackageImp& to) { to.sepFilter = from.sepFilter; },
                   "--no-sep-filter", "Do not judge whether a package is a Sep package",
                   "It is switched off by --no-sep-filter.", Dependence::Independent}},

    {FilterId::PayloadExist,
     "payloadExist",
     "payloadExistFilterStatus",
     &Record::payloadExistFilterStatus,
     "PAYLOAD",
     LogText::payloadExist,
     {LogText::payloadExistMatched,
      LogText::payloadExistNotMatched,
      LogText::noProperties,
      {{{"noXmlFilename", LogText::noXmlFilename}, {"noPayload", LogText::noPayload}, {}}}},
     "The names in \"xmlFilename\" and \"payload\" have to be regular files of the folder.",
     EvaluatePayloadExist,
     ExplainPayload,
     FilterSetting{"payloadExistFilter", &Settings::payloadExistFilter,
                   [](const Settings& from, QueryPackageImp& to) {
                     to.payloadExistFilter = from.payloadExistFilter;
                   },
                   "--no-payload-exist-filter",
                   "Do not judge whether a package's files are in the folder",
                   "It is switched off by --no-payload-exist-filter.", Dependence::Independent}},

    {FilterId::Supersede,
     "supersede",
     "supersedeFilterStatus",
     &Record::supersedeFilterStatus,
     "SUPERSEDE",
     LogText::supersede,
     {nullptr, nullptr, LogText::noProperties},
     "The \"supersede\" lists are applied in byte order of their packages' codes: each marks what "
     "it "
     "names as replaced, then keeps its own package. After them, of the packages that share a "
     "driver "
     "file, only the one with the greatest \"Version\" (compared as text) is kept.",
     nullptr,
     ExplainSupersede,
     FilterSetting{"supersedeFilter", &Settings::supersedeFilter,
                   [](const Settings& from, QueryPackageImp& to) {
                     to.supersedeFilter = from.supersedeFilter;
                   },
                   "--no-supersede-filter",
                   "Do not judge whether a package is replaced by another one",
                   "It is switched off by --no-supersede-filter.", Dependence::Interdependent}},

    {FilterId::IncludeId,
     "includeId",
     "includeIdFilterStatus",
     &Record::includeIdFilterStatus,
     "INCLUDE",
     LogText::includeIds,
     {LogText::includeIdMatched, LogText::includeIdNotMatched},
     "The identification code has to be in the include list, as a whole and in any case.",
     [](const FilterInput& input) {
       return StatusOf(input.ids.included.Contains(input.record.identificationCode));
     },
     ExplainInclude,
     FilterSetting{"includePackageIds", &Settings::includePackageIds,
                   [](const Settings& from, QueryPackageImp& to) {
                     to.includePackageIds = from.includePackageIds;
                   },
                   "--include",
                   "Identification code that is wanted, in any case.\n"
                   "Repeatable; without it the filter is off",
                   "It is off because no --include is given.", Dependence::Independent, "ID",
                   [](const PropertySource& package, Settings& settings) {
                     settings.includePackageIds.push_back(
                         OwnValue(package, PropertyName::identificationCode));
                   }}},

    {FilterId::ExcludeId,
     "excludeId",
     "excludeIdFilterStatus",
     &Record::excludeIdFilterStatus,
     "EXCLUDE",
     LogText::excludeIds,
     {LogText::excludeIdMatched, LogText::excludeIdNotMatched},
     "The identification code must not be in the exclude list, as a whole and in any case.",
     [](const FilterInput& input) {
       return StatusOf(!input.ids.excluded.Contains(input.record.identificationCode));
     },
     ExplainExclude,
     FilterSetting{"excludePackageIds", &Settings::excludePackageIds,
                   [](const Settings& from, QueryPackageImp& to) {
                     to.excludePackageIds = from.excludePackageIds;
                   },
                   "--exclude",
                   "Identification code that is not wanted, in any case.\n"
                   "Repeatable; without it the filter is off",
                   "It is off because no --exclude is given.", Dependence::Interdependent, "ID"}},

    {FilterId::UpdateType,
     "updateType",
     "updateTypeFilterStatus",
     &Record::updateTypeFilterStatus,
     "TYPE",
     LogText::updateType,
     {LogText::updateTypeMatched,
      LogText::updateTypeNotMatched,
      LogText::noProperties,
      {{{"noType", LogText::noUpdateType}, {}, {}}}},
     "The number at the front of \"type\" has to be an update type that is asked for; 99 on either "
     "side meets everything.",
     EvaluateType,
     ExplainUpdateType,
     FilterSetting{
         "updateTypes", &Settings::updateTypes,
         [](const Settings& from, QueryPackageImp& to) { to.updateTypes = from.updateTypes; },
         "--update-type",
         "Update type that is wanted, -2147483648 to 2147483647;\n"
         "99 is any. Repeatable; without it the filter is off",
         "It is off because no --update-type is given.", Dependence::Independent, "N",
         [](const PropertySource& package, Settings& settings) {
           settings.updateTypes.push_back(
               static_cast<UpdateType>(ParseDecimal(OwnValue(package, PropertyName::type))));
         }},
     PropertyName::type},
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

const std::vector<const Filter*>& FiltersWithSetting() {
  static const std::vector<const Filter*> ordered = [] {
    std::vector<const Filter*> all;
    all.reserve(settingOrder.size());
    for (const FilterId id : settingOrder) all.push_back(&FilterOf(id));
    return all;
  }();
  return ordered;
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
