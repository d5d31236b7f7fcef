#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "lint/checks/checks.h"
#include "lint/checks/pack_lists.h"
#include "model/literals.h"
#include "output/wording.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr const char* codeName = PropertyName::identificationCode;

void Add(LintId id, const LintPackage& package, std::string text, LintReport& report) {
  report.Add(id, package.File(), package.PlaceOfValue(codeName), std::move(text));
}

// The place of a package's code, for the finding about another one.
std::string PlaceText(const LintPackage& package) {
  const int line = package.PlaceOfValue(codeName).line;
  return line == 0 ? package.File() : fmt::format("{}, line {}", package.File(), line);
}

// Packages of which a query keeps one for each code.
using Rivals = std::vector<const LintPackage*>;

// lists: null where the order of the rivals is known. Individual descriptors come after the members
// of a pack, so the folder's listing decides only where no pack lists the code.
void CheckRepeats(const Rivals& rivals, const PackLists* lists, LintReport& report) {
  std::map<std::string, Rivals> byCode;
  for (const LintPackage* package : rivals) {
    if (!package->Code().empty()) byCode[package->Code()].push_back(package);
  }
  for (const auto& [code, packages] : byCode) {
    const bool dependsOnListing = lists != nullptr && lists->Listing(code).empty();
    for (const LintPackage* package : packages) {
      if (packages.size() == 1) break;
      const LintPackage* other = packages.front() == package ? packages[1] : packages.front();
      Add(LintId::CodeRepeated, *package,
          fmt::format("{} packages have the code {}; one of the others is in {}{}.",
                      packages.size(), QuotedBriefly(code), PlaceText(*other),
                      dependsOnListing ? ", and the folder's listing decides which is kept" : ""),
          report);
    }
  }
}

void CheckRepeatsEverywhere(const LintFolder& folder, LintReport& report) {
  for (const LintPack& pack : folder.packs) {
    Rivals members;
    for (std::size_t i = 0; i < pack.members.size(); ++i) {
      if (pack.isPackage[i]) members.push_back(&pack.members[i]);
    }
    CheckRepeats(members, nullptr, report);
  }
  Rivals individuals;
  for (const LintPackage& package : folder.individuals) individuals.push_back(&package);
  const PackLists lists(folder);
  CheckRepeats(individuals, &lists, report);
}

void CheckCase(const LintFolder& folder, LintReport& report) {
  std::map<std::string, std::map<std::string, const LintPackage*>> spellings;
  for (const LintPackage* package : PackagesByCode(folder)) {
    const std::string code = package->Code();
    spellings[FoldByGlobalLocale(code)].try_emplace(code, package);
  }
  for (const auto& [folded, packages] : spellings) {
    for (const auto& [code, package] : packages) {
      if (packages.size() == 1) break;
      const auto& other =
          packages.begin()->second == package ? *packages.rbegin() : *packages.begin();
      Add(LintId::CodeCase, *package,
          fmt::format("The code {} differs only in case from {} in {}.", QuotedBriefly(code),
                      QuotedBriefly(other.first), PlaceText(*other.second)),
          report);
    }
  }
}

std::vector<std::string> DifferingProperties(const LintPackage& a, const LintPackage& b) {
  std::map<std::string, const SupXmlProperty*> last[2];
  const SupXmlProperties* both[2] = {&a.Properties(), &b.Properties()};
  std::set<std::string> names;
  for (int i = 0; i < 2; ++i) {
    for (const SupXmlProperty& property : *both[i]) {
      const std::string folded = FoldByGlobalLocale(property.name);
      last[i][folded] = &property;
      names.insert(folded);
    }
  }
  std::vector<std::string> differing;
  for (const std::string& name : names) {
    const auto inA = last[0].find(name);
    const auto inB = last[1].find(name);
    const bool isInBoth = inA != last[0].end() && inB != last[1].end();
    if (isInBoth && inA->second->values == inB->second->values) continue;
    differing.push_back((inA == last[0].end() ? inB : inA)->second->name);
  }
  return differing;
}

// What a filter finds first for each code: members of all packs, including their own instances, and
// only then individual descriptors.
class FirstDescriptions {
 public:
  explicit FirstDescriptions(LintReport& report) : report_(report) {}

  void Meet(const LintPackage& package, bool isInPack) {
    const std::string code = package.Code();
    if (code.empty()) return;
    const auto [first, isNew] = firstByCode_.try_emplace(code, &package);
    if (isNew && !isInPack) firstByCode_.erase(first);
    if (!isNew) Compare(package, *first->second, isInPack);
  }

 private:
  void Compare(const LintPackage& package, const LintPackage& first, bool isInPack) {
    const auto differing = DifferingProperties(package, first);
    if (differing.empty()) return;
    Add(LintId::CodeShadowed, package,
        fmt::format("{} describes {} otherwise and {}; they differ in {}.", PlaceText(first),
                    QuotedBriefly(package.Code()),
                    isInPack && package.File() != first.File() ? "decides if it is listed first"
                                                               : "decides",
                    BriefList(differing)),
        report_);
  }

  LintReport& report_;
  std::map<std::string, const LintPackage*> firstByCode_;
};

void CheckShadows(const LintFolder& folder, LintReport& report) {
  FirstDescriptions descriptions(report);
  for (const LintPack& pack : folder.packs) {
    for (const LintPackage& member : pack.members) descriptions.Meet(member, true);
  }
  for (const LintPackage& package : folder.individuals) descriptions.Meet(package, false);
}

}  // namespace

void CheckCodes(const LintFolder& folder, LintReport& report) {
  CheckRepeatsEverywhere(folder, report);
  CheckCase(folder, report);
  CheckShadows(folder, report);
}

}  // namespace Vornik::Cli
