#include "remedy/remedies.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>
#include <vector>

#include "filters/package_ids.h"
#include "filters/sep.h"
#include "filters/update_type.h"
#include "model/literals.h"
#include "remedy/platform_candidates.h"
#include "remedy/repository_faults.h"
#include "remedy/trials.h"
#include "text/decimal.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

using Ids = std::vector<std::string>;

constexpr std::size_t maxQueries = 3;

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

// Changes of settings whose effect on the package depends on no other setting. Each element makes
// all filters match that look at the package's own properties, in as few changes as possible.
std::vector<QuerySettings> OwnChanges(QueryModel& model, QuerySettings settings,
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

// Which settings are changed whose effect on the package depends on other settings.
struct InterdependentChanges {
  bool excludeIds;
  bool kovuFilter;
  bool supersedeFilter;

  std::size_t Count() const {
    return std::size_t{excludeIds} + std::size_t{kovuFilter} + std::size_t{supersedeFilter};
  }
};

// In the order of preference: a list before a switch.
constexpr std::array<InterdependentChanges, 8> interdependentChanges{{{false, false, false},
                                                                      {true, false, false},
                                                                      {false, true, false},
                                                                      {false, false, true},
                                                                      {true, true, false},
                                                                      {true, false, true},
                                                                      {false, true, true},
                                                                      {true, true, true}}};
constexpr std::size_t maxInterdependent = 3;
constexpr std::size_t maxDistance = 3;

class Search {
 public:
  Search(QueryModel& model, const QuerySettings& settings, const std::string& code)
      : model_(model),
        settings_(settings),
        code_(code),
        source_(model.SourceOf(code)),
        trials_(model, code) {}

  Remedies Find() {
    Remedies remedies;
    remedies.code = code_;
    remedies.inTheRepository = FindRepositoryFaults(model_, settings_, code_);
    if (source_.entry != nullptr) Run();
    if (!queries_.empty()) {
      remedies.state = RemedyState::Found;
    } else if (trials_.HasReachedLimit()) {
      remedies.state = RemedyState::Unknown;
    } else {
      AddUnreachable(remedies);
    }
    remedies.searchEnded = trials_.HasReachedLimit();
    remedies.queries = std::move(queries_);
    return remedies;
  }

 private:
  void Run() {
    FindOrigins();
    ownChanges_ = OwnChanges(model_, settings_, code_, source_);
    machines_ = MatchingMachines(source_.entry->properties, model_.Packages(), settings_);
    for (std::size_t size = 0; size <= maxInterdependent + maxDistance; ++size) {
      for (std::size_t distance = 0; distance <= std::min(size, maxDistance); ++distance) {
        TryMachines(distance, size - distance);
      }
      if (!queries_.empty()) return;
    }
  }

  // Where records of the code can come from.
  void FindOrigins() {
    const auto hasCode = [this](const PackageXmlEntry& entry) {
      return GetPropertyValue(PropertyName::identificationCode, entry.properties) == code_;
    };
    const auto& individuals = model_.Packages().packageXmlEntries();
    isIndividual_ = std::any_of(individuals.begin(), individuals.end(), hasCode);
    const auto& packs = model_.Packages().kovuPackEntries();
    for (std::size_t i = 0; i < packs.size(); ++i) {
      const auto& members = packs[i].members;
      if (!members.empty() && std::any_of(members.begin() + 1, members.end(), hasCode)) {
        packs_.insert(i);
      }
    }
  }

  void TryMachines(std::size_t distance, std::size_t interdependent) {
    for (const Machine& machine : machines_) {
      if (Distance(machine, settings_) != distance) continue;
      for (const InterdependentChanges& changes : interdependentChanges) {
        if (changes.Count() == interdependent) Try(machine, changes);
      }
    }
  }

  void Try(const Machine& machine, const InterdependentChanges& change) {
    if (IsEnough()) return;
    if (change.kovuFilter && !settings_.kovuFilter) return;
    if (change.supersedeFilter && !settings_.supersedeFilter) return;
    if (!change.excludeIds && IsListed(settings_.excludePackageIds, code_)) return;
    QuerySettings query = settings_;
    query.machineType = machine.machineType;
    query.osValue = machine.osValue;
    query.arcValue = machine.arcValue;
    query.kovuFilter = settings_.kovuFilter && !change.kovuFilter;
    query.supersedeFilter = settings_.supersedeFilter && !change.supersedeFilter;
    if (!MayHavePackage(query)) return;
    if (!change.excludeIds) {
      TryWithOwnChanges(query);
      return;
    }
    const std::size_t before = queries_.size();
    for (Ids& ids : ExcludeLists(query)) {
      query.excludePackageIds = std::move(ids);
      TryWithOwnChanges(query);
      if (queries_.size() != before) break;  // a longer list adds nothing
    }
  }

  // Whether the package can be a record of the query, and pass the Kovu filter.
  bool MayHavePackage(const QuerySettings& query) {
    const std::optional<std::size_t> pack = model_.ChosenPackFor(query);
    return (pack && packs_.count(*pack) != 0) || (isIndividual_ && !query.kovuFilter);
  }

  // Other exclude lists for a query: without the package itself, and with the packages that it is
  // ranked with, which are then not ranked.
  std::vector<Ids> ExcludeLists(const QuerySettings& query) {
    const Ids own = Without(query.excludePackageIds, code_);
    std::vector<Ids> lists{own};
    if (query.supersedeFilter) {
      QuerySettings trial = query;
      trial.excludePackageIds = own;
      if (const Rivals* rivals = trials_.FindRivals(trial)) {
        lists.push_back(With(own, Without(rivals->above, code_)));
        lists.push_back(With(own, Without(rivals->all, code_)));
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

  void TryWithOwnChanges(QuerySettings query) {
    for (const QuerySettings& own : ownChanges_) {
      query.updateTypes = own.updateTypes;
      query.includePackageIds = own.includePackageIds;
      query.sepFilter = own.sepFilter;
      query.payloadExistFilter = own.payloadExistFilter;
      if (!IsEnough() && trials_.Passes(query)) queries_.push_back(query);
    }
  }

  bool IsEnough() const { return queries_.size() == maxQueries; }

  void AddUnreachable(Remedies& remedies) const {
    if (isIndividual_ || machines_.empty()) return;
    remedies.inTheRepository.emplace_back(
        "On no machine that the ordered lists of the package name, a pack that lists it among its "
        "packages is the one in use.");
  }

  QueryModel& model_;
  const QuerySettings& settings_;
  const std::string& code_;
  const PropertySource source_;
  Trials trials_;
  bool isIndividual_ = false;
  std::set<std::size_t> packs_;  // that list the code after the first member
  std::vector<QuerySettings> ownChanges_;
  std::vector<Machine> machines_;
  std::vector<QuerySettings> queries_;
};

}  // namespace

Remedies FindRemedies(QueryModel& model, const QuerySettings& settings, const std::string& code) {
  return Search(model, settings, code).Find();
}

}  // namespace Vornik::Cli
