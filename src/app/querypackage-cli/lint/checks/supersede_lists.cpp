#include <fmt/format.h>

#include <map>
#include <string>

#include "lint/checks/checks.h"
#include "lint/checks/rings.h"
#include "model/literals.h"
#include "output/wording.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr const char* listName = PropertyName::supersede;

class SupersedeChecks {
 public:
  SupersedeChecks(std::vector<const LintPackage*> packages, LintReport& report)
      : packages_(std::move(packages)), report_(report), graph_(packages_.size()) {
    // As a query finds the record for a code: the first one, without regard to case.
    for (std::size_t i = 0; i < packages_.size(); ++i) {
      firstByCode_.try_emplace(FoldByGlobalLocale(packages_[i]->Code()), i);
    }
  }

  // all: including those whose code an earlier package has.
  void Check(const std::vector<const LintPackage*>& all) {
    for (const LintPackage* package : all) CheckList(*package);
    for (std::size_t i = 0; i < packages_.size(); ++i) AddEdges(i);
    for (const auto& ring : FindRings(graph_)) ReportRing(ring);
  }

 private:
  void CheckList(const LintPackage& package) {
    const auto codes = package.Values(listName);
    const auto places = package.PlacesOfEntries(listName);
    for (std::size_t k = 0; k < codes.size(); ++k) {
      if (EqualByGlobalLocaleFold(codes[k], package.Code())) {
        report_.Add(
            LintId::SupersedeSelf, package.File(), places[k],
            fmt::format("\"{}\" names the package itself, {}.", listName, QuotedBriefly(codes[k])));
      } else if (firstByCode_.count(FoldByGlobalLocale(codes[k])) == 0) {
        report_.Add(LintId::SupersedeUnknown, package.File(), places[k],
                    fmt::format("\"{}\" names {}, which no package of the folder has.", listName,
                                QuotedBriefly(codes[k])));
      }
    }
  }

  void AddEdges(std::size_t index) {
    for (const std::string& code : packages_[index]->Values(listName)) {
      const auto found = firstByCode_.find(FoldByGlobalLocale(code));
      if (found != firstByCode_.end()) graph_[index].push_back(found->second);
    }
  }

  void ReportRing(const std::vector<std::size_t>& ring) {
    std::vector<std::string> codes;
    codes.reserve(ring.size());
    for (const std::size_t index : ring) codes.push_back(packages_[index]->Code());
    const std::string text =
        fmt::format("These packages supersede one another in a ring: {}.", BriefList(codes));
    for (const std::size_t index : ring) {
      const LintPackage& package = *packages_[index];
      report_.Add(LintId::SupersedeRing, package.File(), package.PlaceOfProperty(listName), text);
    }
  }

  std::vector<const LintPackage*> packages_;
  LintReport& report_;
  std::map<std::string, std::size_t> firstByCode_;
  Graph graph_;
};

}  // namespace

void CheckSupersedeLists(const LintFolder& folder, LintReport& report) {
  SupersedeChecks(PackagesByCode(folder), report).Check(AllPackages(folder));
}

}  // namespace Vornik::Cli
