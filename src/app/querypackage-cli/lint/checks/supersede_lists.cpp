#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "lint/checks/checks.h"
#include "lint/checks/pack_lists.h"
#include "lint/checks/rings.h"
#include "lint/checks/shared_machines.h"
#include "lint/checks/supersede_effect.h"
#include "model/literals.h"
#include "output/wording.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr const char* listName = PropertyName::supersede;

class SupersedeChecks {
 public:
  SupersedeChecks(const LintFolder& folder, LintReport& report)
      : packages_(PackagesByCode(folder)),
        report_(report),
        lists_(folder),
        machines_(packages_),
        graph_(packages_.size()),
        listers_(packages_.size()),
        ringOf_(packages_.size(), noRing) {
    // As a query finds the record for a code: the first one, without regard to case.
    for (std::size_t i = 0; i < packages_.size(); ++i) {
      firstByCode_.try_emplace(FoldByGlobalLocale(packages_[i]->Code()), i);
    }
  }

  // all: including those whose code an earlier package has.
  void Check(const std::vector<const LintPackage*>& all) {
    for (const LintPackage* package : all) CheckList(*package);
    for (std::size_t i = 0; i < packages_.size(); ++i) AddEdges(i);
    const auto rings = FindRings(graph_);
    for (std::size_t r = 0; r < rings.size(); ++r) {
      ReportRing(rings[r]);
      for (const std::size_t index : rings[r]) ringOf_[index] = r;
    }
    for (std::size_t i = 0; i < packages_.size(); ++i) CheckEffects(i);
  }

 private:
  void CheckList(const LintPackage& package) {
    const auto codes = package.Values(listName);
    const auto places = package.PlacesOfEntries(listName);
    for (std::size_t k = 0; k < codes.size(); ++k) {
      if (EqualByGlobalLocaleFold(codes[k], package.Code())) {
        report_.Add(
            LintId::SupersedeSelf, package, places[k],
            fmt::format("\"{}\" names the package itself, {}.", listName, QuotedBriefly(codes[k])));
      } else if (firstByCode_.count(FoldByGlobalLocale(codes[k])) == 0) {
        report_.Add(LintId::SupersedeUnknown, package, places[k],
                    fmt::format("\"{}\" names {}, which no package of the folder has.", listName,
                                codes[k].empty() ? "the empty code" : QuotedBriefly(codes[k])));
      }
    }
  }

  void AddEdges(std::size_t index) {
    for (const std::string& code : packages_[index]->Values(listName)) {
      const auto found = firstByCode_.find(FoldByGlobalLocale(code));
      if (found == firstByCode_.end()) continue;
      graph_[index].push_back(found->second);
      listers_[found->second].push_back(index);
    }
  }

  bool AreInOneRing(std::size_t a, std::size_t b) const {
    return ringOf_[a] != noRing && ringOf_[a] == ringOf_[b];
  }

  bool CanMeet(std::size_t a, std::size_t b) const {
    return lists_.CanMeet(packages_[a]->Code(), packages_[b]->Code());
  }

  bool MayTry() { return tried_++ < maxTried; }

  void CheckEffects(std::size_t owner) {
    const std::set<std::size_t> listed(graph_[owner].begin(), graph_[owner].end());
    for (const std::size_t index : listed) {
      if (index == owner || AreInOneRing(owner, index)) continue;
      if (!MayTry()) return;
      if (!CanMeet(owner, index) || !machines_.Have(owner, index)) continue;
      const SupersedeEffect effect =
          EffectOfList(*packages_[owner], *packages_[index], ThirdPackage(owner, index));
      if (effect == SupersedeEffect::KeptByVersion) {
        ReportEffect(LintId::SupersedeOverridden, owner, index);
      } else if (effect == SupersedeEffect::KeptByOwnList && !IsListedLater(index)) {
        ReportEffect(LintId::SupersedeChain, owner, index);
      }
    }
  }

  // One that the list of the listed package names, in a query with both.
  const LintPackage* ThirdPackage(std::size_t owner, std::size_t listed) {
    for (const std::size_t index : graph_[listed]) {
      if (!MayTry()) return nullptr;
      if (index == listed) return packages_[listed];
      if (index == owner) continue;
      if (CanMeet(index, owner) && CanMeet(index, listed)) return packages_[index];
    }
    return nullptr;
  }

  // Whether a list that is applied after the package's own one names it.
  bool IsListedLater(std::size_t listed) {
    const auto [known, isNew] = isListedLater_.try_emplace(listed, false);
    if (!isNew) return known->second;
    const std::string code = packages_[listed]->Code();
    known->second =
        std::any_of(listers_[listed].begin(), listers_[listed].end(), [&](std::size_t lister) {
          return packages_[lister]->Code() > code && CanMeet(lister, listed) &&
                 machines_.Have(lister, listed);
        });
    return known->second;
  }

  void ReportEffect(LintId id, std::size_t owner, std::size_t listed) {
    const LintPackage& package = *packages_[owner];
    const std::string code = QuotedBriefly(packages_[listed]->Code());
    const std::string why =
        id == LintId::SupersedeChain
            ? fmt::format("the list of {} is applied after this one and keeps {}", code, code)
            : fmt::format(
                  "they share a driver file, and as text {} of {} is greater than {}, so "
                  "this package is superseded instead",
                  VersionOf(listed), code, VersionOf(owner));
    report_.Add(id, package, PlaceOfEntry(owner, listed),
                fmt::format("\"{}\" names {}, but {}.", listName, code, why));
  }

  std::string VersionOf(std::size_t index) const {
    return QuotedBriefly(packages_[index]->Value(PropertyName::Version));
  }

  TextPosition PlaceOfEntry(std::size_t owner, std::size_t listed) const {
    const auto codes = packages_[owner]->Values(listName);
    const auto entry = std::find_if(codes.begin(), codes.end(), [&](const std::string& code) {
      return EqualByGlobalLocaleFold(code, packages_[listed]->Code());
    });
    return packages_[owner]->PlacesOfEntries(listName).at(
        static_cast<std::size_t>(entry - codes.begin()));
  }

  void ReportRing(const std::vector<std::size_t>& ring) {
    std::vector<std::string> codes;
    codes.reserve(ring.size());
    for (const std::size_t index : ring) codes.push_back(packages_[index]->Code());
    const std::string text =
        fmt::format("These packages supersede one another in a ring: {}.", BriefList(codes));
    for (const std::size_t index : ring) {
      const LintPackage& package = *packages_[index];
      report_.Add(LintId::SupersedeRing, package, package.PlaceOfProperty(listName), text);
    }
  }

  static constexpr std::size_t noRing = static_cast<std::size_t>(-1);

  // Entries of lists whose effect is looked at. More of them than any repository has; the limit
  // keeps a hostile one from taking minutes.
  static constexpr std::size_t maxTried = 200'000;

  std::vector<const LintPackage*> packages_;
  LintReport& report_;
  PackLists lists_;
  SharedMachines machines_;
  std::map<std::string, std::size_t> firstByCode_;
  Graph graph_;    // which packages each one names
  Graph listers_;  // which packages name each one
  std::vector<std::size_t> ringOf_;
  std::size_t tried_ = 0;
  std::map<std::size_t, bool> isListedLater_;
};

}  // namespace

void CheckSupersedeLists(const LintFolder& folder, LintReport& report) {
  SupersedeChecks(folder, report).Check(AllPackages(folder));
}

}  // namespace Vornik::Cli
