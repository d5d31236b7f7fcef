// Random small repositories: each explained verdict is the record's, each smallest change does what
// it promises, and no smaller one does.
#include <algorithm>
#include <set>

#include "cli_fixture.h"
#include "explain/explain.h"
#include "model/query_parameters.h"
#include "random_repository.h"
#include "remedy/settings_change.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

using Cli::QuerySettings;
using Records = std::vector<QueryPackageResult>;

Descriptor WithProperties(const SupXmlProperties& properties) {
  Descriptor descriptor;
  for (const SupXmlProperty& property : properties) {
    descriptor.Set(property.name, property.values);
  }
  return descriptor;
}

bool Passes(const QuerySettings& settings, const std::string& code) {
  const Cli::LibraryRun run = Cli::RunLibrary(settings, Cli::Format::Json);
  const auto record = std::find_if(run.records.begin(), run.records.end(), [&](const auto& each) {
    return each.identificationCode == code;
  });
  return run.code == QueryCode::Completed && record != run.records.end() &&
         Cli::IsMatchedByAll(*record, settings);
}

bool IsValid(const QuerySettings& settings) {
  return CheckParameters({settings.folder, settings.machineType, settings.osValue,
                          settings.arcValue, settings.includePackageIds,
                          settings.excludePackageIds})
             .fault == ParameterFault::None;
}

// Valid queries that differ from the given one in exactly one setting. Of the lists: empty, and
// more, or fewer ids than before.
std::vector<QuerySettings> Neighbours(const QuerySettings& settings, const std::string& code,
                                      const std::vector<std::string>& codes) {
  std::vector<QuerySettings> neighbours;
  const auto add = [&](auto change) {
    QuerySettings changed = settings;
    change(changed);
    const bool differs = Cli::ChangesBetween(settings, changed).size() == 1;
    if (differs && IsValid(changed)) neighbours.push_back(changed);
  };
  for (const char* type : {"1234", "5678"}) add([&](auto& s) { s.machineType = type; });
  for (const unsigned int os : {10U, 11U}) {
    add([&](auto& s) { s.osValue = static_cast<OsValue>(os); });
  }
  for (const unsigned int arc : {9U, 5U}) {
    add([&](auto& s) { s.arcValue = static_cast<ArcValue>(arc); });
  }
  add([](auto& s) { s.kovuFilter = false; });
  add([](auto& s) { s.sepFilter = false; });
  add([](auto& s) { s.payloadExistFilter = false; });
  add([](auto& s) { s.supersedeFilter = false; });
  add([](auto& s) { s.updateTypes.clear(); });
  add([](auto& s) { s.updateTypes.push_back(UpdateType::Any); });
  add([](auto& s) { s.includePackageIds.clear(); });
  add([&](auto& s) { s.includePackageIds.push_back(code); });
  add([](auto& s) { s.excludePackageIds.clear(); });
  for (const std::string& other : codes) {
    add([&](auto& s) { s.excludePackageIds.push_back(other); });
  }
  return neighbours;
}

class ExplainPropertyTest : public CliTest {
 protected:
  ExplainPropertyTest() {
    folder.Write("p.exe", "x");
    silent.level = 0;
  }

  // Half of them with ordered lists of one machine, so that many can be offered.
  static Descriptor RandomPackage(RandomRepository& random) {
    Descriptor package = WithProperties(random.Package());
    RandomPick& pick = random.Pick();
    if (pick.OneIn(2)) {
      const auto machineType = pick.Of<std::string>({"1234", "5678"});
      const auto os = pick.Of<std::string>({"10", "11", "0"});
      package.For(machineType, os, pick.Of<std::string>({"9", "5", "0"}));
    }
    return package;
  }

  void WriteRepository(RandomRepository& random) {
    for (const std::string& name : names) {
      boost::filesystem::remove(boost::filesystem::path(folder.Path()) / name);
    }
    names.clear();
    random.SetFileNames({"i0.xml", "i0.xml", "i0.xml", "none.xml"}, {"p.exe", "p.exe", "none.exe"});
    const std::size_t individuals = random.Pick().Below(6);
    for (std::size_t i = 0; i <= individuals; ++i) {
      WriteFile("i" + std::to_string(i) + ".xml", RandomPackage(random).Individual());
    }
    const std::size_t packs = random.Pick().Below(4);
    for (std::size_t i = 0; i < packs; ++i) WritePack("k" + std::to_string(i) + ".xml", random);
  }

  void WritePack(const std::string& name, RandomRepository& random) {
    std::vector<Descriptor> instances;
    if (!random.Pick().OneIn(10)) {
      instances.push_back(WithProperties(random.PackLevel()).Set("xmlFilename", name));
    }
    const std::size_t members = random.Pick().Below(4);
    for (std::size_t m = 0; m <= members; ++m) {
      instances.push_back(RandomPackage(random));
    }
    WriteFile(name, Pack(instances));
  }

  void WriteFile(const std::string& name, const std::string& text) {
    folder.Write(name, text);
    names.push_back(name);
  }

  // Valid ones.
  QuerySettings Settings(RandomRepository& random) {
    QuerySettings settings;
    while (!IsValid(settings)) {
      QueryPackageImp query;
      random.Configure(query);
      settings = {
          folder.Path(),     query.machineType,        query.osValue,           query.arcValue,
          query.updateTypes, query.includePackageIds,  query.excludePackageIds, query.kovuFilter,
          query.sepFilter,   query.payloadExistFilter, query.supersedeFilter};
    }
    return settings;
  }

  void Check(const QuerySettings& settings) {
    Cli::LogCapture capture(silent);
    const Cli::LibraryRun run = Cli::RunLibrary(settings, Cli::Format::Json);
    const Cli::LogLines log = capture.End();
    if (run.code != QueryCode::Completed) return;
    for (const QueryPackageResult& record : run.records) {
      codes.insert(record.identificationCode);
    }
    for (const QueryPackageResult& record : run.records) {
      const Cli::Explanation explanation =
          Cli::Explain(settings, record.identificationCode, run, log, Passes);
      ASSERT_FALSE(explanation.folderChanged);
      ASSERT_EQ(explanation.packages.size(), 1U);
      ASSERT_NO_FATAL_FAILURE(CheckVerdicts(explanation.packages[0], record, settings));
      ASSERT_NO_FATAL_FAILURE(CheckWayOut(explanation.packages[0].wayOut, record, settings));
    }
  }

  void CheckVerdicts(const Cli::PackageExplanation& package, const QueryPackageResult& record,
                     const QuerySettings& settings) {
    ++packages;
    for (const Cli::FilterExplanation& filter : package.filters) {
      const Cli::Filter& info = Cli::FilterOf(filter.filter);
      ASSERT_NE(filter.reason, "folderChanged") << info.name;
      ASSERT_NE(filter.reason, "") << info.name;
      ASSERT_EQ(filter.reason == "off", !Cli::Runs(filter.filter, settings)) << info.name;
      if (info.slot == nullptr) continue;
      ASSERT_EQ(filter.status, record.*info.slot) << info.name;
      const bool logs = filter.runs && filter.filter != Cli::FilterId::Supersede;
      ASSERT_EQ(!filter.log.empty(), logs || (filter.runs && record.identificationCode.empty()));
      reasons.insert(std::string(info.name) + " " + filter.reason);
    }
    CheckSupersede(package, record);
  }

  // The reason and the chain say the same as the record.
  void CheckSupersede(const Cli::PackageExplanation& package, const QueryPackageResult& record) {
    const auto& filter = package.filters[static_cast<std::size_t>(Cli::FilterId::Supersede)];
    const std::string& reason = filter.reason;
    if (reason == "off") return;
    ASSERT_EQ(record.supersedeFilterStatus == FilterStatus::NotMatched,
              reason == "replacedByList" || reason == "replacedInGroup");
    if (reason == "notReplaced") {
      ASSERT_EQ(record.supersededById, "");
    }
    if (reason == "replacedByList") {
      ASSERT_EQ(record.supersededById, package.supersede.listedBy.back().code);
    }
    if (reason == "replacedInGroup") {
      const auto& ranking = package.supersede.groups.back().ranking;
      const auto above = std::find_if(ranking.rbegin(), ranking.rend(), [](const auto& one) {
                           return one.isThis;
                         }).base();
      ASSERT_NE(above, ranking.end());
      ASSERT_EQ(record.supersededById, above->code);
    }
  }

  void CheckWayOut(const Cli::WayOut& out, const QueryPackageResult& record,
                   const QuerySettings& settings) {
    const std::string& code = record.identificationCode;
    const bool offered = Cli::IsMatchedByAll(record, settings);
    ASSERT_EQ(out.state == Cli::WayOutState::NotNeeded, offered);
    ASSERT_NE(out.state, Cli::WayOutState::Unknown);
    ASSERT_EQ(out.queries.empty(), out.state != Cli::WayOutState::Found);
    if (offered) return;
    std::size_t size = 3;
    for (const QuerySettings& query : out.queries) {
      size = Cli::ChangesBetween(settings, query).size();
      ASSERT_EQ(size, Cli::ChangesBetween(settings, out.queries.front()).size());
      ASSERT_TRUE(Passes(query, code)) << code;
    }
    ++(out.queries.empty() ? impossible : found);
    const std::vector<std::string> all(codes.begin(), codes.end());
    if (size < 2) return;
    for (const QuerySettings& single : Neighbours(settings, code, all)) {
      ASSERT_FALSE(Passes(single, code)) << code << ": " << TextOf(settings, single);
      if (size < 3 || !checksPairs) continue;
      for (const QuerySettings& pair : Neighbours(single, code, all)) {
        ASSERT_FALSE(Passes(pair, code)) << code << ": " << TextOf(settings, pair);
      }
    }
  }

  void CheckRounds() {
    const TestRandom test;
    RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
    const std::size_t rounds = test.Rounds(100);
    for (std::size_t round = 0; round < rounds; ++round) {
      SCOPED_TRACE(round);
      WriteRepository(random);
      codes.clear();
      checksPairs = round % 30 == 0;
      ASSERT_NO_FATAL_FAILURE(Check(Settings(random)));
    }
    if (!test.RunsAllRounds()) return;
    EXPECT_GT(packages, 300U);
    EXPECT_GT(found, 150U);
    EXPECT_GT(impossible, 100U);
    EXPECT_GE(reasons.size(), 36U) << testing::PrintToString(reasons);
  }

  static std::string TextOf(const QuerySettings& before, const QuerySettings& after) {
    std::string text;
    for (const auto& change : Cli::ChangesBetween(before, after)) text += change.text + "; ";
    return text;
  }

  Cli::LogOptions silent;
  std::vector<std::string> names;
  std::set<std::string> codes;
  std::set<std::string> reasons;
  std::size_t packages = 0;
  std::size_t found = 0;
  std::size_t impossible = 0;
  bool checksPairs = false;
};

// In two parts, so that they can run at the same time.
class ExplainPropertyParts : public ExplainPropertyTest, public testing::WithParamInterface<int> {};

TEST_P(ExplainPropertyParts, VerdictsAndChangesAreThoseOfTheLibrary) { CheckRounds(); }

INSTANTIATE_TEST_SUITE_P(Part, ExplainPropertyParts, testing::Range(0, 2));

}  // namespace
}  // namespace Vornik::Testing
