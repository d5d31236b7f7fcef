#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>

#include "lint/checks/checks.h"
#include "model/edit_distance.h"
#include "model/literals.h"
#include "output/wording.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr std::array<const char*, 22> knownNames{
    PropertyName::identificationCode,
    PropertyName::buildNumber,
    PropertyName::description,
    PropertyName::updateSelection,
    PropertyName::rebootRequired,
    PropertyName::severity,
    PropertyName::category,
    PropertyName::payload,
    PropertyName::type,
    PropertyName::Version,
    PropertyName::applicableDeviceId,
    PropertyName::preReq,
    PropertyName::coReq,
    PropertyName::driverFiles,
    PropertyName::driverFilesClassification,
    PropertyName::supersede,
    PropertyName::xmlFilename,
    PropertyName::applicableMachineTypes,
    PropertyName::applicableOperatingSystems,
    PropertyName::orderedMachineTypeList,
    PropertyName::orderedOSList,
    PropertyName::orderedOSArchitectureList,
};

// One edit away, without regard to case; null if the name itself is known or none is near.
const char* NearestKnown(std::string_view name) {
  const std::string folded = FoldByGlobalLocale(name);
  const char* nearest = nullptr;
  for (const char* known : knownNames) {
    const std::string foldedKnown = FoldByGlobalLocale(known);
    if (folded == foldedKnown) return nullptr;
    if (EditDistance(folded, foldedKnown, 1) == 1) nearest = known;
  }
  return nearest;
}

class NameChecks {
 public:
  explicit NameChecks(LintReport& report) : report_(report) {}

  void Check(const LintPackage& package) {
    const SupXmlProperties& properties = package.Properties();
    for (std::size_t i = 0; i < properties.size(); ++i) {
      const auto [known, isNew] = nearest_.try_emplace(properties[i].name, nullptr);
      if (isNew) known->second = NearestKnown(properties[i].name);
      const char* const nearest = known->second;
      // Beside the property itself, the other name is probably meant.
      if (nearest == nullptr || !package.Occurrences(nearest).empty()) continue;
      report_.Add(LintId::PropertyMisspelled, package, package.Placed(i).place,
                  fmt::format("Nothing reads {}, which is one letter away from \"{}\".",
                              QuotedBriefly(properties[i].name), nearest));
    }
  }

 private:
  LintReport& report_;
  std::map<std::string, const char*> nearest_;
};

}  // namespace

void CheckPropertyNames(const LintFolder& folder, LintReport& report) {
  NameChecks checks(report);
  for (const LintPack& pack : folder.packs) {
    for (const LintPackage& member : pack.members) checks.Check(member);
  }
  for (const LintPackage& package : folder.individuals) checks.Check(package);
}

}  // namespace Vornik::Cli
