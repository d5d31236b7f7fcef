#include "query/driver_overlap.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "filters/supersede/supersede.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

using Records = std::vector<QueryPackageResult>;
using Order = std::vector<RecordIndex>;

constexpr std::size_t maxIndividuals = 5;  // of which every order is tried
constexpr std::size_t maxComponent = 200;
constexpr std::size_t maxEvaluated = 50'000;  // records, for all components together

// Records that driver files connect.
class Components {
 public:
  explicit Components(const Supersedence& supersedence) : parents_(supersedence.takesPart.size()) {
    std::iota(parents_.begin(), parents_.end(), std::size_t{0});
    for (const std::vector<RecordIndex>& sharing : supersedence.byFile.records) {
      RecordIndex first = noRecord;
      for (const RecordIndex i : sharing) {
        if (!supersedence.takesPart[i]) continue;
        if (first == noRecord) first = i;
        parents_[Root(i)] = Root(first);
      }
    }
  }

  // Those of more than two records, each in order.
  std::vector<Order> Large() {
    std::map<RecordIndex, Order> byRoot;
    for (RecordIndex i = 0; i < parents_.size(); ++i) byRoot[Root(i)].push_back(i);
    std::vector<Order> large;
    for (auto& [root, members] : byRoot) {
      if (members.size() > 2) large.push_back(std::move(members));
    }
    return large;
  }

 private:
  RecordIndex Root(RecordIndex i) {
    while (parents_[i] != i) i = parents_[i] = parents_[parents_[i]];
    return i;
  }

  std::vector<RecordIndex> parents_;
};

bool HaveCommonFile(const Order& component, const Supersedence& supersedence) {
  const auto& files = supersedence.byFile.files[component.front()];
  return std::any_of(files.begin(), files.end(), [&](std::size_t file) {
    const auto& all = supersedence.byFile.records[file];
    return std::count_if(all.begin(), all.end(), [&](RecordIndex i) {
             return supersedence.takesPart[i];
           }) == static_cast<std::ptrdiff_t>(component.size());
  });
}

// Tries orders of one component. The members of the pack keep their places, before the others.
class OrderTrials {
 public:
  OrderTrials(const Records& records, const QuerySettings& settings, const Order& component)
      : records_(records), settings_(settings), all_(component) {
    const auto individual = std::stable_partition(
        all_.begin(), all_.end(),
        [&records](RecordIndex i) { return !records[i].kovuXmlFile.empty(); });
    individuals_ = static_cast<std::size_t>(all_.end() - individual);
  }

  std::size_t Individuals() const { return individuals_; }

  // The packages that some orders keep and others do not. budget: how many records may be
  // evaluated; an order beyond it is not tried.
  std::set<std::string> Varying(std::size_t& budget) const {
    const std::set<std::string> kept = Kept(all_);
    std::set<std::string> varying;
    ForEachOrder([&](const Order& order) {
      if (budget < order.size()) return;
      budget -= order.size();
      const std::set<std::string> other = Kept(order);
      std::set_symmetric_difference(kept.begin(), kept.end(), other.begin(), other.end(),
                                    std::inserter(varying, varying.end()));
    });
    return varying;
  }

 private:
  template <typename Visit>
  void ForEachOrder(Visit visit) const {
    const auto members = static_cast<std::ptrdiff_t>(all_.size() - individuals_);
    Order order = all_;
    if (individuals_ <= maxIndividuals) {
      while (std::next_permutation(order.begin() + members, order.end())) visit(order);
      return;
    }
    for (auto i = members; i < static_cast<std::ptrdiff_t>(all_.size()); ++i) {
      order = all_;
      std::rotate(order.begin() + members, order.begin() + i, order.begin() + i + 1);
      visit(order);
      order = all_;
      std::rotate(order.begin() + i, order.begin() + i + 1, order.end());
      visit(order);
    }
  }

  std::set<std::string> Kept(const Order& order) const {
    Records ordered;
    ordered.reserve(order.size());
    for (const RecordIndex i : order) ordered.push_back(records_[i]);
    const std::vector<std::optional<Vornik::CodeList>> noLists(ordered.size());
    const LocaleFold fold;
    const SupersedeInput input{ordered, noLists, settings_.excludePackageIds, fold};
    const auto verdicts = ApplySupersedence(ResolveSupersedence(input), input);
    std::set<std::string> kept;
    for (std::size_t i = 0; i < ordered.size(); ++i) {
      if (!verdicts[i].isSuperseded) kept.insert(ordered[i].identificationCode);
    }
    return kept;
  }

  const Records& records_;
  const QuerySettings& settings_;
  Order all_;
  std::size_t individuals_ = 0;
};

std::set<std::string> CodesOf(const OrderWarnings& warnings) {
  std::set<std::string> codes;
  for (const OrderWarning& one : warnings) codes.insert(one.codes.begin(), one.codes.end());
  return codes;
}

}  // namespace

OrderWarnings WarnOfDriverOverlap(const QuerySettings& settings, const Records& records) {
  OrderWarnings warnings;
  if (!settings.supersedeFilter) return warnings;
  const LocaleFold fold;
  const std::vector<std::optional<Vornik::CodeList>> noLists(records.size());
  const Supersedence supersedence =
      ResolveSupersedence({records, noLists, settings.excludePackageIds, fold});
  std::optional<std::set<std::string>> known;  // of which equal versions are warned of
  std::size_t budget = maxEvaluated;
  for (const Order& component : Components(supersedence).Large()) {
    if (component.size() > maxComponent || HaveCommonFile(component, supersedence)) continue;
    const OrderTrials trials(records, settings, component);
    if (trials.Individuals() < 2) continue;
    const std::set<std::string> varying = trials.Varying(budget);
    if (varying.empty()) continue;
    if (!known) known = CodesOf(WarnOfEqualVersions(settings, records));
    if (std::includes(known->begin(), known->end(), varying.begin(), varying.end())) continue;
    std::vector<std::string> codes(varying.begin(), varying.end());
    warnings.push_back(
        {fmt::format("whether {} {} kept depends on the order in which the system lists the "
                     "folder: the driver files of several packages overlap only partly",
                     CodeList(codes), codes.size() == 1 ? "is" : "are"),
         std::move(codes)});
  }
  return warnings;
}

}  // namespace Vornik::Cli
