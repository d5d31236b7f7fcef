#include "lint/checks/supersede_effect.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "filters/supersede/supersede.h"
#include "model/literals.h"
#include "records/driver_files.h"

namespace Vornik::Cli {

namespace {

enum class DriverFiles { Read, Ignored };

QueryPackageResult RecordOf(const LintPackage& package, DriverFiles driverFiles) {
  QueryPackageResult record;
  record.identificationCode = package.Code();
  record.Version = package.Value(PropertyName::Version);
  record.platformFilterStatus = FilterStatus::Matched;
  if (driverFiles == DriverFiles::Read) {
    record.driverFiles = ReadDriverFiles(package.Properties()).files;
  }
  return record;
}

// A package, and what its list names of the others that are queried with it: other codes do not
// count, and a list may be long.
struct Queried {
  const LintPackage* package;
  CodeList list;
};

// Whether each package is superseded in a query of these.
std::vector<bool> Superseded(const std::vector<Queried>& packages, DriverFiles driverFiles) {
  Records records;
  std::vector<std::optional<CodeList>> lists;
  for (const Queried& queried : packages) {
    records.push_back(RecordOf(*queried.package, driverFiles));
    lists.emplace_back(queried.list);
  }
  const std::vector<std::string> nothingExcluded;
  const LocaleFold fold;
  const SupersedeInput input{records, lists, nothingExcluded, fold};
  std::vector<bool> superseded;
  for (const SupersedeVerdict& verdict : ApplySupersedence(ResolveSupersedence(input), input)) {
    superseded.push_back(verdict.isSuperseded);
  }
  return superseded;
}

// Whether the owner is superseded instead, in whatever order the folder lists the two, and not by a
// list.
bool IsKeptByVersion(const LintPackage& owner, const LintPackage& listed) {
  const Queried naming{&owner, {listed.Code()}};
  const Queried named{&listed, {}};
  const auto isReversed = [&](DriverFiles driverFiles) {
    return Superseded({naming, named}, driverFiles) == std::vector<bool>{true, false} &&
           Superseded({named, naming}, driverFiles) == std::vector<bool>{false, true};
  };
  return isReversed(DriverFiles::Read) && !isReversed(DriverFiles::Ignored);
}

}  // namespace

SupersedeEffect EffectOfList(const LintPackage& owner, const LintPackage& listed,
                             const LintPackage* third) {
  if (IsKeptByVersion(owner, listed)) return SupersedeEffect::KeptByVersion;
  if (third == nullptr) return SupersedeEffect::Superseded;
  std::vector<Queried> packages{{&owner, {listed.Code()}}, {&listed, {third->Code()}}};
  if (third != &listed) packages.push_back({third, {}});
  const bool isKept =
      !Superseded(packages, DriverFiles::Ignored)[1] && !Superseded(packages, DriverFiles::Read)[1];
  return isKept ? SupersedeEffect::KeptByOwnList : SupersedeEffect::Superseded;
}

}  // namespace Vornik::Cli
