#include "model/query_model.h"

#include <algorithm>

#include "filters/kovu.h"
#include "filters/platform.h"
#include "filters/sep.h"
#include "filters/update_type.h"
#include "model/literals.h"
#include "model/query_parameters.h"
#include "records/driver_files.h"
#include "records/record_building.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

std::uint32_t StatusOf(bool matched) {
  return matched ? FilterStatus::Matched : FilterStatus::NotMatched;
}

std::uint32_t StatusOf(PlatformVerdict verdict) {
  switch (verdict) {
    case PlatformVerdict::Matched:
      return FilterStatus::Matched;
    case PlatformVerdict::NotMatched:
      return FilterStatus::NotMatched;
    default:
      return FilterStatus::NotEvaluated;
  }
}

std::uint32_t StatusOf(UpdateTypeVerdict verdict) {
  switch (verdict) {
    case UpdateTypeVerdict::Matched:
      return FilterStatus::Matched;
    case UpdateTypeVerdict::NotMatched:
      return FilterStatus::NotMatched;
    case UpdateTypeVerdict::NoType:
      break;
  }
  return FilterStatus::NotEvaluated;
}

bool PassesParameterCheck(const QuerySettings& settings, const std::string& folder) {
  return CheckParameters({folder, settings.machineType, settings.osValue, settings.arcValue,
                          settings.includePackageIds, settings.excludePackageIds})
             .fault == ParameterFault::None;
}

// Copies the built records and drops the repeats.
void KeepFirst(ModelledQuery& query) {
  for (const BuiltRecord* built : query.built) query.records.push_back(built->record);
  query.duplicates = FindDuplicates(query.records);
  RemoveDuplicates(query.records, query.duplicates);
  auto next = query.duplicates.begin();
  for (std::size_t i = 0; i < query.built.size(); ++i) {
    if (next != query.duplicates.end() && next->index == i) {
      ++next;
    } else {
      query.origins.push_back(query.built[i]);
    }
  }
}

}  // namespace

QueryModel::QueryModel(const Repository& repository, std::string folder)
    : repository_(repository), folder_(std::move(folder)) {
  Build();
}

// Packs first: that is the order in which a code is looked up.
void QueryModel::Build() {
  for (const KovuPackEntry& pack : repository_.packs) {
    std::vector<BuiltRecord>& records = members_[&pack];
    for (std::size_t i = 0; i < pack.members.size(); ++i) {
      const PropertySource source{&pack.members[i], &pack, i};
      AddSource(source);
      // The first member is the pack itself and never becomes a record.
      if (i > 0) BuildOne(source, records);
    }
  }
  for (const PackageXmlEntry& entry : repository_.individuals) {
    AddSource({&entry, nullptr, 0});
    BuildOne({&entry, nullptr, 0}, individuals_);
  }
}

void QueryModel::AddSource(const PropertySource& source) {
  sources_.try_emplace(GetPropertyValue(PropertyName::identificationCode, source.entry->properties),
                       source);
}

void QueryModel::BuildOne(const PropertySource& source, std::vector<BuiltRecord>& records) {
  const bool inPack = source.pack != nullptr;
  const std::string packFile = inPack ? source.pack->kovuXmlFile : "";
  DriverFileReading drivers = ReadDriverFiles(source.entry->properties);
  BuiltRecord built{BuildRecord(*source.entry, packFile, inPack ? FileStem(packFile) : ""), source,
                    drivers.unclassifiedIndex.has_value()};
  built.record.driverFiles = std::move(drivers.files);
  records.push_back(std::move(built));
}

ModelledQuery QueryModel::Run(const QuerySettings& settings) {
  ModelledQuery query;
  if (!PassesParameterCheck(settings, folder_) || repository_.walkFailure) return query;
  const auto& packs = Packs(settings.machineType, settings.osValue);
  const auto append = [&query](const std::vector<BuiltRecord>& records) {
    for (const BuiltRecord& built : records) query.built.push_back(&built);
  };
  for (std::size_t i = 0; i < packs.size(); ++i) {
    if (packs[i].chosen) append(members_[&repository_.packs[i]]);
  }
  append(individuals_);
  query.canRun = std::none_of(query.built.begin(), query.built.end(),
                              [](const BuiltRecord* built) { return built->endsProcess; });
  if (!query.canRun) return query;

  KeepFirst(query);
  IdLists ids{IdSet(settings.includePackageIds), IdSet(settings.excludePackageIds)};
  for (QueryPackageResult& record : query.records) Judge(settings, ids, record);
  if (settings.supersedeFilter) ResolveSupersede(settings, query);
  return query;
}

void QueryModel::Judge(const QuerySettings& settings, IdLists& ids, QueryPackageResult& record) {
  const std::string& code = record.identificationCode;
  const PropertySource source = SourceOf(code);
  if (source.entry != nullptr) {
    record.platformFilterStatus =
        StatusOf(EvaluatePlatform(source.entry->properties, settings.osValue, settings.arcValue,
                                  settings.machineType)
                     .verdict);
  }
  if (settings.kovuFilter) {
    record.kovuFilterStatus = StatusOf(IsFromPack(record));
  }
  if (settings.sepFilter) record.sepFilterStatus = StatusOf(!IsSepCode(code));
  if (settings.payloadExistFilter) {
    record.payloadExistFilterStatus =
        StatusOf(source.entry != nullptr && PayloadOf(source) == PayloadVerdict::Found);
  }
  if (!settings.includePackageIds.empty()) {
    record.includeIdFilterStatus = StatusOf(ids.included.Contains(code));
  }
  if (!settings.excludePackageIds.empty()) {
    record.excludeIdFilterStatus = StatusOf(!ids.excluded.Contains(code));
  }
  if (!settings.updateTypes.empty() && source.entry != nullptr) {
    record.updateTypeFilterStatus =
        StatusOf(EvaluateUpdateType(source.entry->properties, settings.updateTypes));
  }
}

void QueryModel::ResolveSupersede(const QuerySettings& settings, ModelledQuery& query) {
  query.lists.resize(query.records.size());
  for (std::size_t i = 0; i < query.records.size(); ++i) {
    if (!IsNotRefused(query.records[i])) continue;
    const PropertySource source = SourceOf(query.records[i].identificationCode);
    if (source.entry == nullptr) continue;
    query.lists[i] = GetPropertyValues(PropertyName::supersede, source.entry->properties);
  }
  const LocaleFold fold;
  const SupersedeInput input{query.records, query.lists, settings.excludePackageIds, fold};
  query.supersedence = ResolveSupersedence(input);
  const auto verdicts = ApplySupersedence(*query.supersedence, input);
  for (std::size_t i = 0; i < verdicts.size(); ++i) WriteVerdict(verdicts[i], query.records[i]);
}

PropertySource QueryModel::SourceOf(const std::string& code) {
  // The library does not look for an empty code.
  if (code.empty()) return {};
  const auto found = sources_.find(code);
  return found == sources_.end() ? PropertySource() : found->second;
}

const std::vector<PackResult>& QueryModel::Packs(const std::string& machineType, OsValue osValue) {
  const auto key = std::make_pair(machineType, osValue);
  const auto known = packs_.find(key);
  if (known != packs_.end()) return known->second;
  return packs_.emplace(key, EvaluatePacks(repository_.packs, machineType, osValue)).first->second;
}

PayloadVerdict QueryModel::PayloadOf(const PropertySource& source) {
  const auto known = payloads_.find(source.entry);
  if (known != payloads_.end()) return known->second;
  const PayloadVerdict verdict = EvaluatePayload(source.entry->properties, folder_);
  return payloads_.emplace(source.entry, verdict).first->second;
}

std::size_t IndexOf(const std::vector<QueryPackageResult>& records, const std::string& code) {
  const auto found = std::find_if(
      records.begin(), records.end(),
      [&code](const QueryPackageResult& record) { return record.identificationCode == code; });
  return static_cast<std::size_t>(found - records.begin());
}

}  // namespace Vornik::Cli
