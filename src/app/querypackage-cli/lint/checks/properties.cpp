#include <fmt/format.h>

#include <array>
#include <string>
#include <utility>

#include "lint/checks/blanks.h"
#include "lint/checks/checks.h"
#include "model/literals.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

struct Needed {
  const char* name;
  bool isList;
  const char* effect;  // of having none
};

constexpr const char* noPlatform = "the platform filter cannot judge the package";

constexpr std::array<Needed, 7> neededByPackages{{
    {PropertyName::identificationCode, false, "no filter finds the package's properties"},
    {PropertyName::type, false, "the update-type filter cannot judge the package"},
    {PropertyName::xmlFilename, false, "the payload filter refuses the package"},
    {PropertyName::payload, false, "the payload filter refuses the package"},
    {PropertyName::orderedMachineTypeList, true, noPlatform},
    {PropertyName::orderedOSList, true, noPlatform},
    {PropertyName::orderedOSArchitectureList, true, noPlatform},
}};

constexpr Needed neededByInstances{PropertyName::xmlFilename, false,
                                   "the instance is taken for the pack's own"};

constexpr std::array<const char*, 7> singleProperties{
    PropertyName::identificationCode, PropertyName::type,    PropertyName::Version,
    PropertyName::xmlFilename,        PropertyName::payload, PropertyName::category,
    PropertyName::description,
};

constexpr std::array<const char*, 8> listProperties{
    PropertyName::orderedMachineTypeList,     PropertyName::orderedOSList,
    PropertyName::orderedOSArchitectureList,  PropertyName::applicableMachineTypes,
    PropertyName::applicableOperatingSystems, PropertyName::driverFiles,
    PropertyName::driverFilesClassification,  PropertyName::supersede,
};

// Properties whose values are compared as they are.
constexpr std::array<const char*, 4> comparedValues{
    PropertyName::identificationCode, PropertyName::Version, PropertyName::xmlFilename,
    PropertyName::payload};

bool HasValue(const LintPackage& package, const Needed& needed) {
  return needed.isList ? !package.Values(needed.name).empty() : !package.Value(needed.name).empty();
}

class PropertyChecks {
 public:
  PropertyChecks(const LintPackage& package, LintReport& report)
      : package_(package), report_(report) {}

  void Need(const Needed& needed) {
    if (HasValue(package_, needed)) return;
    const bool isThere = !package_.Occurrences(needed.name).empty();
    Add(isThere ? LintId::PropertyEmpty : LintId::PropertyMissing,
        package_.PlaceOfProperty(needed.name),
        fmt::format("\"{}\" {}, so {}.", needed.name, isThere ? "has no value" : "is missing",
                    needed.effect));
  }

  void NeedVersion(const char* effect) {
    if (!package_.Value(PropertyName::Version).empty()) return;
    Add(LintId::VersionMissing, package_.PlaceOfProperty(PropertyName::Version),
        fmt::format("\"{}\" is missing or empty, so {}.", PropertyName::Version, effect));
  }

  void CheckForm() {
    for (const char* name : singleProperties) {
      CheckProperty(name, "the last one that has a value decides");
    }
    for (const char* name : listProperties) {
      CheckProperty(name, "the last one decides");
      CheckEmptyEntries(name);
    }
    for (const char* name : comparedValues) {
      CheckBlank(name, package_.Value(name), package_.PlaceOfValue(name));
    }
  }

 private:
  void Add(LintId id, TextPosition place, std::string text) {
    report_.Add(id, package_, place, std::move(text));
  }

  void CheckProperty(const char* name, const char* whichDecides) {
    const auto found = package_.Occurrences(name);
    for (std::size_t i = 1; i < found.size(); ++i) {
      Add(LintId::PropertyRepeated, package_.Placed(found[i]).place,
          fmt::format("\"{}\" is given {} times; {}.", name, found.size(), whichDecides));
    }
    for (const std::size_t one : found) CheckSplitValues(name, package_.Placed(one));
  }

  void CheckSplitValues(const char* name, const PlacedProperty& property) {
    for (const PlacedValue& value : property.values) {
      if (value.texts < 2) continue;
      Add(LintId::ValueSplit, value.place,
          fmt::format("This VALUE of \"{}\" is divided and gives {} values.", name, value.texts));
    }
  }

  void CheckEmptyEntries(const char* name) {
    if (package_.Values(name).empty()) return;
    const PlacedProperty& property = package_.Placed(package_.Occurrences(name).back());
    for (const PlacedValue& value : property.values) {
      if (value.texts != 0) continue;
      Add(LintId::ValueEmpty, value.place,
          fmt::format("This VALUE of \"{}\" is empty, which is no entry: later entries move up.",
                      name));
    }
  }

  void CheckBlank(const char* name, const std::string& value, TextPosition place) {
    if (!HasBlankAround(value)) return;
    Add(LintId::PropertyBlank, place,
        fmt::format("The value {} of \"{}\" begins or ends with a blank, which counts when it is "
                    "compared.",
                    QuotedBriefly(value), name));
  }

  const LintPackage& package_;
  LintReport& report_;
};

void CheckPackage(const LintPackage& package, LintReport& report) {
  PropertyChecks checks(package, report);
  for (const Needed& needed : neededByPackages) checks.Need(needed);
  checks.NeedVersion("the package ranks lowest of those that share a driver file");
  checks.CheckForm();
}

void CheckInstanceOfPack(const LintPack& pack, std::size_t member, LintReport& report) {
  const LintPackage& instance = pack.members[member];
  PropertyChecks checks(instance, report);
  checks.Need(neededByInstances);
  if (!pack.isPackage[member]) {
    checks.NeedVersion("the pack displaces no other one");
    checks.CheckForm();
    return;
  }
  for (const Needed& needed : neededByPackages) {
    if (needed.name != neededByInstances.name) checks.Need(needed);
  }
  checks.NeedVersion("the package ranks lowest of those that share a driver file");
  checks.CheckForm();
}

}  // namespace

void CheckProperties(const LintFolder& folder, LintReport& report) {
  for (const LintPack& pack : folder.packs) {
    for (std::size_t i = 0; i < pack.members.size(); ++i) CheckInstanceOfPack(pack, i, report);
  }
  for (const LintPackage& package : folder.individuals) CheckPackage(package, report);
}

}  // namespace Vornik::Cli
