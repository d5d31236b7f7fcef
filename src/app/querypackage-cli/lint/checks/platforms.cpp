#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "filters/platform.h"
#include "lint/checks/blanks.h"
#include "lint/checks/checks.h"
#include "lint/checks/numbers.h"
#include "model/literals.h"
#include "model/query_parameters.h"
#include "output/wording.h"
#include "records/pack_selection.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

constexpr std::array<const char*, 3> orderedLists{PropertyName::orderedMachineTypeList,
                                                  PropertyName::orderedOSList,
                                                  PropertyName::orderedOSArchitectureList};

class PlatformChecks {
 public:
  PlatformChecks(const LintPackage& package, LintReport& report)
      : package_(package), report_(report) {}

  // A list without entries is another finding.
  void CheckLengths() {
    std::array<std::size_t, 3> lengths{};
    std::transform(orderedLists.begin(), orderedLists.end(), lengths.begin(),
                   [this](const char* name) { return package_.Values(name).size(); });
    const std::size_t counted = ReadPlatformEntries(package_.Properties()).size();
    const bool areEqual = std::count(lengths.begin(), lengths.end(), counted) == 3;
    if (areEqual || counted == 0) return;
    const auto shortest = std::find(lengths.begin(), lengths.end(), counted) - lengths.begin();
    Add(LintId::ListsUnequal,
        package_.PlaceOfProperty(orderedLists[static_cast<std::size_t>(shortest)]),
        fmt::format("The ordered lists have {}, {} and {}, so of each only the first {}.",
                    Count(lengths[0], "machine type"), Count(lengths[1], "operating system"),
                    Count(lengths[2], "architecture"),
                    counted == 1 ? "one counts" : fmt::format("{} count", counted)));
  }

  void CheckCodes(const char* list, const char* what) {
    const auto values = package_.Values(list);
    const auto places = package_.PlacesOfEntries(list);
    for (std::size_t i = 0; i < values.size(); ++i) {
      const auto code = static_cast<std::uint32_t>(ParseDecimal(values[i]));
      const std::string meaning =
          code == anyCode ? fmt::format("means any {}", what) : fmt::format("reads as {}", code);
      CheckNumber(ReadCodeText(values[i]), LintId::PlatformNotNumber, places[i],
                  fmt::format("entry {} of \"{}\", {},", i + 1, list, QuotedBriefly(values[i])),
                  meaning);
    }
  }

  void CheckType() {
    const std::string type = package_.Value(PropertyName::type);
    if (type.empty()) return;
    CheckNumber(ReadTypeText(type), LintId::TypeNotNumber,
                package_.PlaceOfValue(PropertyName::type),
                fmt::format("\"{}\", {},", PropertyName::type, QuotedBriefly(type)),
                fmt::format("reads as {}", ParseDecimal(type)));
  }

  // types: as the library reads the values of the list.
  void CheckMachineTypes(const char* list, const std::vector<std::string>& types) {
    const auto places = package_.PlacesOfEntries(list);
    for (std::size_t i = 0; i < types.size(); ++i) {
      if (IsMachineType(types[i])) continue;
      const bool isBlank = IsMachineType(std::string(WithoutBlanksAround(types[i])));
      Add(isBlank ? LintId::PropertyBlank : LintId::MachineTypeInvalid, places[i],
          isBlank ? fmt::format("The value {} of \"{}\" begins or ends with a blank, which counts "
                                "when it is compared.",
                                QuotedBriefly(types[i]), list)
                  : fmt::format("Entry {} of \"{}\", {}, is not four digits, so no machine has it.",
                                i + 1, list, QuotedBriefly(types[i])));
    }
  }

 private:
  void Add(LintId id, TextPosition place, std::string text) {
    report_.Add(id, package_, place, std::move(text));
  }

  void CheckNumber(NumberReading reading, LintId notNumber, TextPosition place,
                   const std::string& subject, const std::string& meaning) {
    switch (reading) {
      case NumberReading::NotNumber:
        Add(notNumber, place, fmt::format("This is no number: {} {}.", subject, meaning));
        break;
      case NumberReading::OutOfRange:
        Add(LintId::NumberOutOfRange, place,
            fmt::format("This is out of range: {} {}.", subject, meaning));
        break;
      case NumberReading::TrailingText:
        Add(LintId::NumberTrailingText, place,
            fmt::format("Not all of this is read: {} {}.", subject, meaning));
        break;
      case NumberReading::Exact:
        break;
    }
  }

  const LintPackage& package_;
  LintReport& report_;
};

void CheckPackLists(const LintPackage& own, LintReport& report) {
  PlatformChecks checks(own, report);
  checks.CheckMachineTypes(
      PropertyName::applicableMachineTypes,
      ParseApplicableMachineTypes(own.Values(PropertyName::applicableMachineTypes)));
  checks.CheckCodes(PropertyName::applicableOperatingSystems, "operating system");
}

}  // namespace

void CheckPlatforms(const LintFolder& folder, LintReport& report) {
  for (const LintPack& pack : folder.packs) {
    if (!pack.members.empty()) CheckPackLists(pack.MeantOwn(), report);
  }
  for (const LintPackage* package : AllPackages(folder)) {
    PlatformChecks checks(*package, report);
    checks.CheckLengths();
    checks.CheckMachineTypes(PropertyName::orderedMachineTypeList,
                             package->Values(PropertyName::orderedMachineTypeList));
    checks.CheckCodes(PropertyName::orderedOSList, "operating system");
    checks.CheckCodes(PropertyName::orderedOSArchitectureList, "architecture");
    checks.CheckType();
  }
}

}  // namespace Vornik::Cli
