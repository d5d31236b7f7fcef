#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "filters/platform.h"
#include "filters/supersede/code_index.h"
#include "filters/supersede/version_ranking.h"
#include "lint/checks/checks.h"
#include "lint/checks/version_order.h"
#include "model/literals.h"
#include "output/wording.h"
#include "records/driver_files.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

// Pairs of a system and an architecture that are tried for one machine type. More of them than any
// repository has; the limit keeps a hostile one from taking hours.
constexpr std::size_t mostPlatforms = 64;

struct RankedPackage {
  const LintPackage* package;
  QueryPackageResult record;  // code and version alone, which the ranking reads
  std::vector<std::string> driverFiles;
  std::vector<PlatformEntry> platforms;
};

using Indices = std::vector<std::size_t>;

RankedPackage RankedOf(const LintPackage& package) {
  RankedPackage ranked{&package, {}, {}, ReadPlatformEntries(package.Properties())};
  ranked.record.identificationCode = package.Code();
  ranked.record.Version = package.Value(PropertyName::Version);
  for (auto& file : ReadDriverFiles(package.Properties()).files) {
    ranked.driverFiles.push_back(std::move(file.name));
  }
  return ranked;
}

// The numbers to ask for so that every entry is met: those that are listed, or any if none is.
template <typename Code>
class Candidates {
 public:
  void Add(Code code) {
    if (code != Code::NotSet) codes_.insert(code);
  }

  std::vector<Code> Codes() const {
    if (codes_.empty()) return {Code::NotSet};
    return {codes_.begin(), codes_.end()};
  }

 private:
  std::set<Code> codes_;
};

// Packages that share a driver file.
struct Family {
  std::string driverFile;  // as one of them spells it
  Indices members;
};

// Looks at each set of packages that a query for some machine ranks with one another.
class VersionChecks {
 public:
  VersionChecks(std::vector<RankedPackage> packages, LintReport& report)
      : packages_(std::move(packages)), report_(report) {}

  void Check() {
    for (const auto& [members, driverFile] : Families()) {
      if (members.size() > 1) CheckFamily({driverFile, members});
    }
  }

 private:
  struct Place {
    std::size_t package;
    const PlatformEntry* entry;
  };

  // Of families of the same packages, one.
  std::map<Indices, std::string> Families() const {
    std::map<std::string, Family> byName;
    for (std::size_t i = 0; i < packages_.size(); ++i) {
      for (const std::string& file : packages_[i].driverFiles) {
        Family& family = byName[FoldByGlobalLocale(file)];
        if (family.members.empty()) family.driverFile = file;
        if (family.members.empty() || family.members.back() != i) family.members.push_back(i);
      }
    }
    std::map<Indices, std::string> families;
    for (auto& [name, family] : byName) {
      families.try_emplace(std::move(family.members), std::move(family.driverFile));
    }
    return families;
  }

  void CheckFamily(const Family& family) {
    std::map<std::string, std::vector<Place>> byMachineType;
    for (const std::size_t i : family.members) {
      for (const PlatformEntry& entry : packages_[i].platforms) {
        byMachineType[entry.machineType].push_back({i, &entry});
      }
    }
    std::set<Indices> checked;
    for (const auto& [machineType, places] : byMachineType) {
      for (Indices& met : MetTogether(places)) {
        const auto [set, isNew] = checked.insert(std::move(met));
        if (isNew && set->size() > 1) CheckRanking(family, *set);
      }
    }
  }

  // For each system and architecture, the packages that are for it. places: of one machine type.
  static std::vector<Indices> MetTogether(const std::vector<Place>& places) {
    Candidates<OsValue> systems;
    Candidates<ArcValue> architectures;
    for (const Place& place : places) {
      systems.Add(place.entry->osValue);
      architectures.Add(place.entry->arcValue);
    }
    std::vector<Indices> sets;
    for (const OsValue system : systems.Codes()) {
      for (const ArcValue architecture : architectures.Codes()) {
        if (sets.size() == mostPlatforms) return sets;
        sets.push_back(MetBy(places, system, architecture));
      }
    }
    return sets;
  }

  static Indices MetBy(const std::vector<Place>& places, OsValue system, ArcValue architecture) {
    Indices met;
    for (const auto& [package, entry] : places) {
      if (!EvaluatePlatformEntry(*entry, system, architecture, entry->machineType).IsMatch()) {
        continue;
      }
      if (met.empty() || met.back() != package) met.push_back(package);
    }
    return met;
  }

  void CheckRanking(const Family& family, const Indices& members) {
    const Indices ranking = Ranked(members);
    CheckOrder(family, ranking);
    CheckEquals(family, ranking);
    CheckCategories(family, members);
  }

  // As the supersede filter ranks them: of codes that differ only in case, the first package's.
  Indices Ranked(const Indices& members) const {
    std::vector<QueryPackageResult> records;
    for (const std::size_t i : members) records.push_back(packages_[i].record);
    const LocaleFold fold;
    const CodeIndex codes(records, fold);
    std::vector<RecordIndex> group;
    std::vector<std::string> versions;
    for (RecordIndex i = 0; i < records.size(); ++i) {
      group.push_back(codes.FirstCaseInsensitiveMatch(i));
      versions.push_back(ComparedVersion(records[group.back()], fold));
    }
    Indices ranking;
    for (const std::size_t place : RankVersions(versions)) ranking.push_back(members[group[place]]);
    return ranking;
  }

  // A package that ranks above one of a greater number.
  void CheckOrder(const Family& family, const Indices& ranking) {
    if (ranking.empty()) return;
    std::size_t greatest = ranking.front();
    for (const std::size_t i : ranking) {
      const int order = CompareAsNumbers(VersionOf(i), VersionOf(greatest));
      if (order > 0) greatest = i;
      if (order >= 0) continue;
      const bool areNumbers = IsNumbersOnly(VersionOf(i)) && IsNumbersOnly(VersionOf(greatest));
      AddOnVersion(
          areNumbers ? LintId::VersionOrder : LintId::VersionOrderMixed, i,
          fmt::format("As text, version {} is greater than {} of {} ({}), so this package "
                      "supersedes that one; they share the driver file {}.",
                      QuotedBriefly(VersionOf(i)), QuotedBriefly(VersionOf(greatest)),
                      CodeOf(greatest), FileOf(greatest), QuotedBriefly(family.driverFile)));
    }
  }

  void CheckEquals(const Family& family, const Indices& ranking) {
    for (std::size_t k = 1; k < ranking.size(); ++k) {
      const std::size_t one = std::min(ranking[k - 1], ranking[k]);
      const std::size_t other = std::max(ranking[k - 1], ranking[k]);
      if (one == other) continue;  // codes that differ only in case have one record
      if (FoldByGlobalLocale(VersionOf(one)) != FoldByGlobalLocale(VersionOf(other))) continue;
      AddOnVersion(LintId::VersionEqual, other,
                   fmt::format("Version {} is also that of {} ({}), and they share the driver file "
                               "{}: which of them is kept depends on the folder's listing.",
                               QuotedBriefly(VersionOf(other)), CodeOf(one), FileOf(one),
                               QuotedBriefly(family.driverFile)));
    }
  }

  void CheckCategories(const Family& family, const Indices& members) {
    Indices bare;
    std::copy_if(members.begin(), members.end(), std::back_inserter(bare), [this](std::size_t i) {
      return packages_[i].package->Values(PropertyName::driverFiles).empty();
    });
    for (std::size_t k = 1; k < bare.size(); ++k) {
      const LintPackage& package = *packages_[bare[k]].package;
      report_.Add(
          LintId::CategoryShared, package, package.PlaceOfValue(PropertyName::category),
          fmt::format("This package and {} ({}) have no driver files and share the category "
                      "{}, so one of them supersedes the other.",
                      CodeOf(bare.front()), FileOf(bare.front()),
                      QuotedBriefly(family.driverFile)));
    }
  }

  void AddOnVersion(LintId id, std::size_t index, std::string text) {
    const LintPackage& package = *packages_[index].package;
    report_.Add(id, package, package.PlaceOfValue(PropertyName::Version), std::move(text));
  }

  const std::string& VersionOf(std::size_t index) const { return packages_[index].record.Version; }

  std::string CodeOf(std::size_t index) const {
    return QuotedBriefly(packages_[index].record.identificationCode);
  }

  const std::string& FileOf(std::size_t index) const { return packages_[index].package->File(); }

  std::vector<RankedPackage> packages_;
  LintReport& report_;
};

}  // namespace

void CheckVersions(const LintFolder& folder, LintReport& report) {
  std::vector<RankedPackage> packages;
  for (const LintPackage* package : PackagesByCode(folder)) packages.push_back(RankedOf(*package));
  VersionChecks(std::move(packages), report).Check();
}

}  // namespace Vornik::Cli
