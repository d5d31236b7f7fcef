#include "model/query_model.h"

#include <algorithm>

#include "filters/platform.h"
#include "model/filter_table.h"
#include "model/literals.h"
#include "records/driver_files.h"
#include "records/record_building.h"
#include "text/paths.h"

namespace Vornik::Cli {

QueryModel::QueryModel(const FolderReading& folder, std::string path, IsFile isFile)
    : folder_(folder), path_(std::move(path)), isFile_(std::move(isFile)) {}

Evaluation QueryModel::Evaluate(const QuerySettings& settings) {
  if (!HasValidParameters(settings) || folder_.walkFailure) return {};
  Evaluation query = BuildRecords(settings);
  if (!query.canRun) {
    query.records.clear();
    return query;
  }
  const IdLists ids(settings);
  for (std::size_t i = 0; i < query.records.size(); ++i) {
    FilterEach(settings, ids, query.sources[i], query.records[i]);
  }
  WriteSupersede(settings, query);
  return query;
}

void QueryModel::EvaluateMachine(const QuerySettings& settings, Evaluation& query) {
  for (std::size_t i = 0; i < query.records.size(); ++i) {
    QueryPackageResult& record = query.records[i];
    record.platformFilterStatus = PlatformStatus(settings, query.sources[i]);
    record.supersedesId.clear();
    record.supersededById.clear();
  }
  WriteSupersede(settings, query);
}

void QueryModel::Prepare(const QuerySettings& settings, const std::vector<Machine>& machines) {
  for (const Machine& machine : machines) Packs(machine.machineType, machine.osValue);
  for (const std::string& code : CodesOf(Packages())) {
    const PropertySource source = SourceOf(code);
    if (settings.payloadExistFilter) PayloadOf(source);
  }
}

void QueryModel::WriteSupersede(const QuerySettings& settings, Evaluation& query) {
  if (!settings.supersedeFilter) return;
  const std::vector<SupersedeVerdict> verdicts = ResolveSupersede(settings, query);
  for (std::size_t i = 0; i < verdicts.size(); ++i) WriteVerdict(verdicts[i], query.records[i]);
}

Evaluation QueryModel::BuildRecords(const QuerySettings& settings) {
  Evaluation query;
  query.canRun = true;
  if (const std::optional<std::size_t> chosen = ChosenPackFor(settings)) {
    const KovuPackEntry& pack = Packages().kovuPackEntries()[*chosen];
    // The first member is the pack itself and never becomes a record.
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      BuildOne({&pack.members[i], &pack, i}, query);
    }
  }
  for (const PackageXmlEntry& entry : Packages().packageXmlEntries()) {
    BuildOne({&entry, nullptr, 0}, query);
  }

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
  for (const QueryPackageResult& record : query.records) {
    query.sources.push_back(SourceOf(record.identificationCode));
  }
  return query;
}

void QueryModel::BuildOne(const PropertySource& source, Evaluation& query) {
  const std::string packFile = source.pack == nullptr ? "" : source.pack->kovuXmlFile;
  DriverFileReading drivers = ReadDriverFiles(source.entry->properties);
  if (drivers.unclassifiedIndex) query.canRun = false;
  query.records.push_back(
      BuildRecord(*source.entry, packFile, packFile.empty() ? "" : FileStem(packFile)));
  query.records.back().driverFiles = std::move(drivers.files);
  query.built.push_back(source);
}

QueryModel::IdLists::IdLists(const QuerySettings& settings)
    : included(settings.includePackageIds), excluded(settings.excludePackageIds) {}

void QueryModel::FilterEach(const QuerySettings& settings, const IdLists& ids,
                            const PropertySource& source, QueryPackageResult& record) {
  const FilterInput input{settings, ids, source, record, *this};
  for (const Filter& filter : Filters()) {
    if (filter.evaluate != nullptr && Runs(filter, settings)) {
      record.*filter.slot = filter.evaluate(input);
    }
  }
}

std::vector<SupersedeVerdict> QueryModel::ResolveSupersede(const QuerySettings& settings,
                                                           Evaluation& query) {
  query.lists.assign(query.records.size(), std::nullopt);
  for (std::size_t i = 0; i < query.records.size(); ++i) {
    const PackageXmlEntry* entry = query.sources[i].entry;
    if (entry == nullptr || !IsNotRefused(query.records[i])) continue;
    query.lists[i] = GetPropertyValues(PropertyName::supersede, entry->properties);
  }
  const LocaleFold fold;
  const SupersedeInput input{query.records, query.lists, settings.excludePackageIds, fold};
  query.supersedence = ResolveSupersedence(input);
  return ApplySupersedence(*query.supersedence, input);
}

PropertySource QueryModel::SourceOf(const std::string& code) const {
  // The library does not look for an empty code.
  return code.empty() ? PropertySource() : Packages().FindSource(code);
}

const std::vector<PackResult>& QueryModel::Packs(const std::string& machineType, OsValue osValue) {
  const auto key = std::make_pair(machineType, osValue);
  const auto known = packs_.find(key);
  if (known != packs_.end()) return known->second;
  return packs_.emplace(key, EvaluatePacks(Packages().kovuPackEntries(), machineType, osValue))
      .first->second;
}

std::optional<std::size_t> QueryModel::ChosenPackFor(const QuerySettings& settings) {
  return ChosenPack(Packs(settings.machineType, settings.osValue));
}

PayloadVerdict QueryModel::PayloadOf(const PropertySource& source) {
  const auto known = payloads_.find(source.entry);
  if (known != payloads_.end()) return known->second;
  const PayloadVerdict verdict = EvaluatePayload(source.entry->properties, path_, isFile_);
  return payloads_.emplace(source.entry, verdict).first->second;
}

const NamedMachines& QueryModel::Named() {
  if (!named_) named_.emplace(Packages());
  return *named_;
}

std::uint32_t PlatformStatus(const QuerySettings& settings, const PropertySource& source) {
  if (source.entry == nullptr) return FilterStatus::NotEvaluated;
  switch (EvaluatePlatform(source.entry->properties, settings.osValue, settings.arcValue,
                           settings.machineType)
              .verdict) {
    case PlatformVerdict::Matched:
      return FilterStatus::Matched;
    case PlatformVerdict::NotMatched:
      return FilterStatus::NotMatched;
    default:
      return FilterStatus::NotEvaluated;
  }
}

std::size_t IndexOf(const std::vector<QueryPackageResult>& records, const std::string& code) {
  const auto found = std::find_if(
      records.begin(), records.end(),
      [&code](const QueryPackageResult& record) { return record.identificationCode == code; });
  return static_cast<std::size_t>(found - records.begin());
}

}  // namespace Vornik::Cli
