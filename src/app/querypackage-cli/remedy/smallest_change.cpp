#include "remedy/smallest_change.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>
#include <vector>

#include "explain/supersede.h"
#include "filters/package_ids.h"
#include "filters/sep.h"
#include "filters/update_type.h"
#include "model/literals.h"
#include "remedy/platform_candidates.h"
#include "remedy/repository_faults.h"
#include "text/decimal.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

using Ids = std::vector<std::string>;

// Each is run through the library.
constexpr std::size_t mostQueries = 3;

// How often the supersede rule is tried: it looks at every package, and some repositories name
// thousands of machines.
constexpr std::size_t mostTrials = 300;

bool IsListed(const Ids& ids, const std::string& code) { return IdSet(ids).Contains(code); }

Ids Without(Ids ids, const std::string& code) {
  ids.erase(std::remove_if(ids.begin(), ids.end(),
                           [&code](const auto& id) { return EqualByGlobalLocaleFold(id, code); }),
            ids.end());
  return ids;
}

Ids With(Ids ids, const Ids& more) {
  ids.insert(ids.end(), more.begin(), more.end());
  return ids;
}

// Settings that can only help by being changed: what the filters that look at one package alone
// ask for. Each element makes all of them match, in as few changes as possible.
std::vector<QuerySettings> ChangedAlone(QueryModel& model, QuerySettings settings,
                                        const std::string& code, const PropertySource& source) {
  if (IsSepCode(code)) settings.sepFilter = false;
  if (model.PayloadOf(source) != PayloadVerdict::Found) settings.payloadExistFilter = false;

  std::vector<QuerySettings> changed{settings};
  const auto& properties = source.entry->properties;
  const auto type = EvaluateUpdateType(properties, settings.updateTypes);
  if (!settings.updateTypes.empty() && type != UpdateTypeVerdict::Matched) {
    if (type == UpdateTypeVerdict::NotMatched) {
      const auto number = ParseDecimal(GetPropertyValue(PropertyName::type, properties));
      changed.front().updateTypes.push_back(static_cast<UpdateType>(number));
      changed.push_back(settings);
    }
    changed.back().updateTypes.clear();
  }
  if (!settings.includePackageIds.empty() && !IsListed(settings.includePackageIds, code)) {
    std::vector<QuerySettings> withoutList = changed;
    for (QuerySettings& each : changed) each.includePackageIds.push_back(code);
    for (QuerySettings& each : withoutList) each.includePackageIds.clear();
    changed.insert(changed.end(), withoutList.begin(), withoutList.end());
  }
  return changed;
}

// What is changed of the settings whose effect on one package depends on the others.
struct Joint {
  bool excludeIds;
  bool kovuFilter;
  bool supersedeFilter;

  std::size_t Count() const {
    return std::size_t{excludeIds} + std::size_t{kovuFilter} + std::size_t{supersedeFilter};
  }
};

// In the order of preference: a list before a switch.
constexpr std::array<Joint, 8> joints{{{false, false, false},
                                       {true, false, false},
                                       {false, true, false},
                                       {false, false, true},
                                       {true, true, false},
                                       {true, false, true},
                                       {false, true, true},
                                       {true, true, true}}};
constexpr std::size_t mostJoint = 3;
constexpr std::size_t mostDistance = 3;

class Search {
 public:
  Search(QueryModel& model, const QuerySettings& settings, const std::string& code,
         const Verification& verify)
      : model_(model),
        settings_(settings),
        code_(code),
        verify_(verify),
        source_(model.SourceOf(code)) {}

  WayOut Find() {
    WayOut out;
    out.code = code_;
    out.inTheRepository = FindRepositoryFaults(model_, settings_, code_);
    if (source_.entry != nullptr) Run();
    if (!queries_.empty()) {
      out.state = WayOutState::Found;
    } else if (ended_) {
      out.state = WayOutState::Unknown;
    } else {
      AddUnreachable(out);
    }
    out.searchEnded = ended_;
    out.queries = std::move(queries_);
    return out;
  }

 private:
  void Run() {
    FindPlaces();
    alone_ = ChangedAlone(model_, settings_, code_, source_);
    machines_ = MatchingMachines(source_.entry->properties, model_.Folder(), settings_);
    for (std::size_t size = 0; size <= mostJoint + mostDistance; ++size) {
      for (std::size_t distance = 0; distance <= std::min(size, mostDistance); ++distance) {
        TryMachines(distance, size - distance);
      }
      if (!queries_.empty()) return;
    }
  }

  // Where records of the code can come from.
  void FindPlaces() {
    const auto hasCode = [this](const PackageXmlEntry& entry) {
      return GetPropertyValue(PropertyName::identificationCode, entry.properties) == code_;
    };
    const Repository& folder = model_.Folder();
    isIndividual_ = std::any_of(folder.individuals.begin(), folder.individuals.end(), hasCode);
    for (std::size_t i = 0; i < folder.packs.size(); ++i) {
      const auto& members = folder.packs[i].members;
      if (!members.empty() && std::any_of(members.begin() + 1, members.end(), hasCode)) {
        packs_.insert(i);
      }
    }
  }

  void TryMachines(std::size_t distance, std::size_t joint) {
    for (const Machine& machine : machines_) {
      if (Distance(machine, settings_) != distance) continue;
      for (const Joint& change : joints) {
        if (change.Count() == joint && !IsEnough()) Try(machine, change);
      }
    }
  }

  bool IsEnough() const { return queries_.size() == mostQueries || refused_ == mostQueries; }

  void Try(const Machine& machine, const Joint& change) {
    if (change.kovuFilter && !settings_.kovuFilter) return;
    if (change.supersedeFilter && !settings_.supersedeFilter) return;
    if (!change.excludeIds && IsListed(settings_.excludePackageIds, code_)) return;
    QuerySettings query = settings_;
    query.machineType = machine.machineType;
    query.osValue = machine.osValue;
    query.arcValue = machine.arcValue;
    query.kovuFilter = settings_.kovuFilter && !change.kovuFilter;
    query.supersedeFilter = settings_.supersedeFilter && !change.supersedeFilter;
    if (!MayHoldPackage(query)) return;
    if (!change.excludeIds) {
      TryWithAlone(query);
      return;
    }
    const std::size_t before = queries_.size();
    for (Ids& ids : ExcludeLists(query)) {
      query.excludePackageIds = std::move(ids);
      TryWithAlone(query);
      if (queries_.size() != before) break;  // a longer list adds nothing
    }
  }

  // Cheap tests, which a query that helps passes.
  bool MayHoldPackage(const QuerySettings& query) {
    const auto& packResults = model_.Packs(query.machineType, query.osValue);
    const bool inPack = std::any_of(packs_.begin(), packs_.end(), [&packResults](std::size_t pack) {
      return packResults[pack].chosen;
    });
    return inPack || (isIndividual_ && !query.kovuFilter);
  }

  // Other exclude lists for a query: without the package itself, and with the packages that it is
  // ranked with, which are then not ranked.
  std::vector<Ids> ExcludeLists(const QuerySettings& query) {
    const Ids own = Without(query.excludePackageIds, code_);
    std::vector<Ids> lists{own};
    if (query.supersedeFilter && TakeTrial()) {
      QuerySettings trial = query;
      trial.excludePackageIds = own;
      const ModelledQuery modelled = model_.Run(trial);
      const std::size_t index = IndexOf(modelled.records, code_);
      if (index < modelled.records.size()) {
        const Rivals rivals = RivalsOf(modelled, index);
        lists.push_back(With(own, Without(rivals.above, code_)));
        lists.push_back(With(own, Without(rivals.all, code_)));
      }
    }
    lists.emplace_back();
    std::vector<Ids> distinct;
    for (Ids& list : lists) {
      if (list == query.excludePackageIds) continue;
      if (std::find(distinct.begin(), distinct.end(), list) == distinct.end()) {
        distinct.push_back(std::move(list));
      }
    }
    return distinct;
  }

  void TryWithAlone(QuerySettings query) {
    for (const QuerySettings& alone : alone_) {
      query.updateTypes = alone.updateTypes;
      query.includePackageIds = alone.includePackageIds;
      query.sepFilter = alone.sepFilter;
      query.payloadExistFilter = alone.payloadExistFilter;
      if (!IsEnough() && Passes(query)) Verify(query);
    }
  }

  bool Passes(const QuerySettings& query) {
    if (query.supersedeFilter && !TakeTrial()) return false;
    const ModelledQuery modelled = model_.Run(query);
    const std::size_t index = IndexOf(modelled.records, code_);
    return index < modelled.records.size() && IsMatchedByAll(modelled.records[index], query);
  }

  bool TakeTrial() {
    if (trials_ == mostTrials) {
      ended_ = true;
      return false;
    }
    ++trials_;
    return true;
  }

  void Verify(const QuerySettings& query) {
    if (verify_(query, code_)) {
      queries_.push_back(query);
    } else {
      ++refused_;
      ended_ = true;
    }
  }

  void AddUnreachable(WayOut& out) const {
    if (isIndividual_ || machines_.empty()) return;
    out.inTheRepository.emplace_back(
        "On no machine that the ordered lists of the package name, a pack that lists it among its "
        "packages is the one in use.");
  }

  QueryModel& model_;
  const QuerySettings& settings_;
  const std::string& code_;
  const Verification& verify_;
  const PropertySource source_;
  bool isIndividual_ = false;
  std::set<std::size_t> packs_;  // that list the code behind the first member
  std::vector<QuerySettings> alone_;
  std::vector<Machine> machines_;
  std::vector<QuerySettings> queries_;
  std::size_t trials_ = 0;
  std::size_t refused_ = 0;  // queries that the library did not agree to
  bool ended_ = false;
};

}  // namespace

WayOut FindSmallestChange(QueryModel& model, const QuerySettings& settings, const std::string& code,
                          const Verification& verify) {
  return Search(model, settings, code, verify).Find();
}

}  // namespace Vornik::Cli
