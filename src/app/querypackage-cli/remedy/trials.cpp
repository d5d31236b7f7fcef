#include "remedy/trials.h"

#include <algorithm>
#include <utility>

#include "model/filter_table.h"

namespace Vornik::Cli {

namespace {

// Some repositories name thousands of machines.
constexpr std::size_t maxRankings = 300;

}  // namespace

Trials::Trials(QueryModel& model, std::string code) : model_(model), code_(std::move(code)) {}

bool Trials::Passes(const QuerySettings& settings) {
  if (!HasPackage(settings)) return false;
  QueryPackageResult record = query_->records[index_];
  model_.FilterEach(settings, QueryModel::IdLists(settings), query_->sources[index_], record);
  if (settings.supersedeFilter) record.supersedeFilterStatus = FilterStatus::Matched;
  if (!IsMatchedByAll(record, settings)) return false;
  if (!settings.supersedeFilter) return true;
  const Ranking* ranking = RankingFor(settings);
  return ranking != nullptr && ranking->isKept;
}

const Rivals* Trials::FindRivals(const QuerySettings& settings) {
  const Ranking* ranking = HasPackage(settings) ? RankingFor(settings) : nullptr;
  return ranking == nullptr ? nullptr : &ranking->rivals;
}

bool Trials::HasPackage(const QuerySettings& settings) {
  if (!HasValidParameters(settings)) return false;
  const std::optional<std::size_t> pack = model_.ChosenPackFor(settings);
  if (!query_ || pack != pack_) {
    query_ = model_.BuildRecords(settings);
    pack_ = pack;
    index_ = IndexOf(query_->records, code_);
  }
  return query_->canRun && index_ < query_->records.size();
}

const Trials::Ranking* Trials::RankingFor(const QuerySettings& settings) {
  const Machine machine(settings.machineType, settings.osValue, settings.arcValue);
  const auto key = std::make_pair(machine, settings.excludePackageIds);
  const auto known = rankings_.find(key);
  if (known != rankings_.end()) return &known->second;
  if (rankings_.size() == maxRankings) {
    hasReachedLimit_ = true;
    return nullptr;
  }
  UseMachine(machine, settings);
  const bool isSuperseded = model_.ResolveSupersede(settings, *query_)[index_].isSuperseded;
  return &rankings_.emplace(key, Ranking{!isSuperseded, RivalsOfPackage()}).first->second;
}

void Trials::UseMachine(const Machine& machine, const QuerySettings& settings) {
  std::vector<QueryPackageResult>& records = query_->records;
  const auto [statuses, isNew] = platforms_.try_emplace(machine);
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (isNew) {
      records[i].platformFilterStatus = PlatformStatus(settings, query_->sources[i]);
      statuses->second.push_back(records[i].platformFilterStatus);
    } else {
      records[i].platformFilterStatus = statuses->second[i];
    }
  }
}

Rivals Trials::RivalsOfPackage() const {
  Rivals rivals;
  const auto add = [this](std::vector<std::string>& codes, std::size_t record) {
    const std::string& code = query_->records[record].identificationCode;
    if (std::find(codes.begin(), codes.end(), code) == codes.end()) codes.push_back(code);
  };
  ForEachRanking(*query_->supersedence, [&](const RecordGroup& ranked) {
    const auto own = std::find(ranked.begin(), ranked.end(), index_);
    if (own == ranked.end()) return;
    for (auto other = ranked.begin(); other != ranked.end(); ++other) {
      if (*other == index_) continue;
      add(rivals.all, *other);
      if (other > own) add(rivals.above, *other);
    }
  });
  return rivals;
}

}  // namespace Vornik::Cli
