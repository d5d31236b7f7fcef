#include <fmt/format.h>

#include <set>
#include <string>

#include "lint/checks/checks.h"
#include "model/literals.h"
#include "output/wording.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

void CheckList(const LintPackage& package, const char* list,
               const std::set<std::string>& foldedCodes, LintReport& report) {
  const auto codes = package.Values(list);
  if (codes.empty()) return;
  const auto places = package.PlacesOfEntries(list);
  for (std::size_t k = 0; k < codes.size(); ++k) {
    if (foldedCodes.count(FoldByGlobalLocale(codes[k])) != 0) continue;
    report.Add(LintId::RequirementUnknown, package, places[k],
               fmt::format("\"{}\" names {}, which no package of the folder has.", list,
                           codes[k].empty() ? "the empty code" : QuotedBriefly(codes[k])));
  }
}

}  // namespace

void CheckRequirements(const LintFolder& folder, LintReport& report) {
  const auto packages = AllPackages(folder);
  std::set<std::string> foldedCodes;
  for (const LintPackage* package : packages) {
    if (!package->Code().empty()) foldedCodes.insert(FoldByGlobalLocale(package->Code()));
  }
  for (const LintPackage* package : packages) {
    for (const char* list : {PropertyName::preReq, PropertyName::coReq}) {
      CheckList(*package, list, foldedCodes, report);
    }
  }
}

}  // namespace Vornik::Cli
