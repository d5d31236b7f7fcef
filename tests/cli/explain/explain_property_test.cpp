// Random small repositories: each explained verdict is the record's, each smallest change does what
// it promises, and no smaller one does.
#include <algorithm>
#include <map>
#include <set>

#include "explain/explain.h"
#include "random_folder.h"
#include "remedy/offered_machines.h"
#include "remedy/settings_change.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

using Cli::QuerySettings;
using Records = std::vector<QueryPackageResult>;

bool Passes(const QuerySettings& settings, const std::string& code) {
  const Cli::LibraryRun run = Cli::RunLibrary(settings);
  const auto record = std::find_if(run.records.begin(), run.records.end(), [&](const auto& each) {
    return each.identificationCode == code;
  });
  return run.code == QueryCode::Completed && record != run.records.end() &&
         Cli::IsMatchedByAll(*record, settings);
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
    if (differs && Cli::HasValidParameters(changed)) neighbours.push_back(changed);
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

class ExplainPropertyTest : public RandomFolderTest {
 protected:
  void Check(const QuerySettings& settings) {
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    const Cli::LibraryRun run = Cli::RunLibrary(settings);
    if (run.code != QueryCode::Completed) return;
    Cli::QueryModel model(reading, folder.Path());
    const Cli::Evaluation evaluation = model.Evaluate(settings);
    const Cli::EvaluatedQuery query{settings, run, model, evaluation};
    ASSERT_EQ(Cli::FindDisagreement(query), std::nullopt);
    for (const QueryPackageResult& record : run.records) {
      codes.insert(record.identificationCode);
    }
    for (const QueryPackageResult& record : run.records) {
      const Cli::Explanation explanation = Cli::Explain(query, record.identificationCode);
      ASSERT_FALSE(explanation.folderChanged);
      ASSERT_EQ(explanation.packages.size(), 1U);
      ASSERT_NO_FATAL_FAILURE(CheckVerdicts(explanation.packages[0], record, settings));
      ASSERT_NO_FATAL_FAILURE(CheckRemedies(explanation.packages[0].remedies, record, settings));
    }
    ASSERT_NO_FATAL_FAILURE(CheckMachines(model, settings));
    QuerySettings loose = settings;
    loose.kovuFilter = loose.payloadExistFilter = false;
    loose.includePackageIds.clear();
    ASSERT_NO_FATAL_FAILURE(CheckMachines(model, loose));
  }

  // The machines of each package are those of the folder that the library offers it to.
  void CheckMachines(Cli::QueryModel& model, const QuerySettings& settings) {
    std::map<std::string, std::vector<std::string>> expected;  // by code
    for (const Cli::Machine& machine : model.Named().All().machines) {
      QuerySettings query = settings;
      query.machineType = machine.machineType;
      query.osValue = machine.osValue;
      query.arcValue = machine.arcValue;
      for (const QueryPackageResult& record : Cli::RunLibrary(query).records) {
        if (!Cli::IsMatchedByAll(record, query)) continue;
        expected[record.identificationCode].push_back(TextOf(machine));
        ++machines;
      }
    }
    for (const std::string& code : codes) {
      const Cli::OfferedMachines offered =
          Cli::FindOfferedMachines(model, model.Named(), settings, code);
      ASSERT_TRUE(offered.isComplete);
      std::vector<std::string> given;
      for (const Cli::Machine& machine : offered.machines) given.push_back(TextOf(machine));
      ASSERT_EQ(given, expected[code]) << code;
    }
  }

  static std::string TextOf(const Cli::Machine& machine) {
    return machine.machineType + ' ' + std::to_string(static_cast<std::uint32_t>(machine.osValue)) +
           ' ' + std::to_string(static_cast<std::uint32_t>(machine.arcValue));
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

  void CheckRemedies(const Cli::Remedies& remedies, const QueryPackageResult& record,
                     const QuerySettings& settings) {
    const std::string& code = record.identificationCode;
    const bool offered = Cli::IsMatchedByAll(record, settings);
    ASSERT_EQ(remedies.state == Cli::RemedyState::NotNeeded, offered);
    ASSERT_NE(remedies.state, Cli::RemedyState::Unknown);
    ASSERT_EQ(remedies.queries.empty(), remedies.state != Cli::RemedyState::Found);
    if (offered) return;
    std::size_t size = 3;
    for (const QuerySettings& query : remedies.queries) {
      size = Cli::ChangesBetween(settings, query).size();
      ASSERT_EQ(size, Cli::ChangesBetween(settings, remedies.queries.front()).size());
      ASSERT_TRUE(Passes(query, code)) << code;
    }
    ++(remedies.queries.empty() ? impossible : found);
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
    const std::size_t rounds = test.Rounds(120);
    for (std::size_t round = 0; round < rounds; ++round) {
      SCOPED_TRACE(round);
      WriteRepository(random);
      codes.clear();
      checksPairs = round % 30 == 0;
      ASSERT_NO_FATAL_FAILURE(Check(ValidSettings(random)));
    }
    if (!test.RunsAllRounds()) return;
    EXPECT_GT(packages, 300U);
    EXPECT_GT(found, 150U);
    EXPECT_GT(impossible, 100U);
    EXPECT_GT(machines, 60U);
    EXPECT_GE(reasons.size(), 36U) << testing::PrintToString(reasons);
  }

  static std::string TextOf(const QuerySettings& before, const QuerySettings& after) {
    std::string text;
    for (const auto& change : Cli::ChangesBetween(before, after)) text += change.text + "; ";
    return text;
  }

  std::set<std::string> codes;
  std::set<std::string> reasons;
  std::size_t packages = 0;
  std::size_t found = 0;
  std::size_t impossible = 0;
  std::size_t machines = 0;  // that are offered a package
  bool checksPairs = false;
};

// In two parts, so that they can run at the same time.
class ExplainPropertyParts : public ExplainPropertyTest, public testing::WithParamInterface<int> {};

TEST_P(ExplainPropertyParts, VerdictsAndChangesAreThoseOfTheLibrary) { CheckRounds(); }

INSTANTIATE_TEST_SUITE_P(Part, ExplainPropertyParts, testing::Range(0, 2));

}  // namespace
}  // namespace Vornik::Testing
