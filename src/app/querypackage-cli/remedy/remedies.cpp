#include "remedy/remedies.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>
#include <variant>
#include <vector>

#include "filters/package_ids.h"
#include "model/filter_table.h"
#include "model/literals.h"
#include "remedy/platform_candidates.h"
#include "remedy/repository_faults.h"
#include "remedy/trials.h"
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

bool IsMatched(const Filter& filter, const FilterInput& input) {
  return !Runs(filter, input.settings) || filter.evaluate(input) == FilterStatus::Matched;
}

void SwitchOff(const FilterSetting& setting, QuerySettings& settings) {
  std::visit([&settings](auto member) { settings.*member = {}; }, setting.member);
}

// Changes of independent settings. Each element makes all their filters match, in as few changes
// as possible.
std::vector<QuerySettings> OwnChanges(QueryModel& model, const QuerySettings& settings,
                                      const std::string& code, const PropertySource& source) {
  QueryPackageResult record;
  record.identificationCode = code;
  const auto matches = [&](const Filter& filter, const QuerySettings& changed) {
    return IsMatched(filter, {changed, QueryModel::IdLists(changed), source, record, model});
  };
  std::vector<QuerySettings> changes{settings};
  for (const Filter* filter : FiltersWithSetting()) {
    const FilterSetting& setting = filter->setting.value();
    if (setting.dependence != Dependence::Independent || matches(*filter, settings)) continue;
    std::vector<QuerySettings> longer;
    for (QuerySettings each : changes) {
      if (setting.addOwn == nullptr) break;
      setting.addOwn(source, each);
      if (matches(*filter, each)) longer.push_back(std::move(each));
    }
    for (QuerySettings& each : changes) SwitchOff(setting, each);
    changes.insert(changes.begin(), longer.begin(), longer.end());
  }
  return changes;
}

void CopyIndependent(const QuerySettings& from, QuerySettings& to) {
  for (const Filter* filter : FiltersWithSetting()) {
    const FilterSetting& setting = filter->setting.value();
    if (setting.dependence != Dependence::Independent) continue;
    std::visit([&](auto member) { to.*member = from.*member; }, setting.member);
  }
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
  Search(QueryModel& model, const NamedMachines& named, const QuerySettings& settings,
         const std::string& code)
      : model_(model),
        named_(named),
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
    machines_ = MatchingMachines(source_.entry->properties, named_, settings_);
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
      CopyIndependent(own, query);
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
  const NamedMachines& named_;
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

Remedies FindRemedies(QueryModel& model, const NamedMachines& machines,
                      const QuerySettings& settings, const std::string& code) {
  return Search(model, machines, settings, code).Find();
}

}  // namespace Vornik::Cli
