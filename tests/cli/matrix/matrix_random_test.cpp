// Random folders, settings and machines: each machine gets the records of a query of its own.
#include <LogSettings.h>

#include <algorithm>
#include <map>

#include "matrix/matrix.h"
#include "model/filter_table.h"
#include "model/library_run.h"
#include "output/query_json.h"
#include "random_folder.h"
#include "record_members.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

class MatrixRandomTest : public RandomFolderTest {
 protected:
  MatrixRandomTest() { SetMinLogLevel(0); }
  ~MatrixRandomTest() override { SetMinLogLevel(LogLevel::error); }

  static std::string NumberOf(OsValue value) {
    return std::to_string(static_cast<std::uint32_t>(value));
  }
  static std::string NumberOf(ArcValue value) {
    return std::to_string(static_cast<std::uint32_t>(value));
  }

  // As settings, each with the same filters.
  std::vector<Cli::QuerySettings> RandomMachines(RandomRepository& random, std::size_t count) {
    const Cli::QuerySettings first = ValidSettings(random);
    std::vector<Cli::QuerySettings> machines;
    RandomPick& pick = random.Pick();
    for (std::size_t i = 0; i < count; ++i) {
      machines.push_back(first);
      machines.back().machineType = pick.Of<std::string>({"1234", "5678", "0000"});
      machines.back().osValue = static_cast<OsValue>(pick.Of<unsigned int>({10, 11, 12}));
      machines.back().arcValue = static_cast<ArcValue>(pick.Of<unsigned int>({9, 5, 4}));
    }
    return machines;
  }

  static Arguments FilterArguments(const Cli::QuerySettings& settings) {
    Arguments arguments;
    for (const UpdateType type : settings.updateTypes) {
      arguments.push_back("--update-type=" + std::to_string(static_cast<std::int32_t>(type)));
    }
    for (const std::string& id : settings.includePackageIds) arguments.push_back("--include=" + id);
    for (const std::string& id : settings.excludePackageIds) arguments.push_back("--exclude=" + id);
    for (const Cli::Filter* filter : Cli::FiltersWithSetting()) {
      const Cli::FilterSetting& setting = filter->setting.value();
      const auto* isOn = std::get_if<bool Cli::QuerySettings::*>(&setting.member);
      if (isOn != nullptr && !(settings.*(*isOn))) arguments.emplace_back(setting.option);
    }
    return arguments;
  }

  void WriteMachines(const std::string& path, const std::vector<Cli::QuerySettings>& machines) {
    std::string text = "machine_type,os,arch\n";
    for (const Cli::QuerySettings& machine : machines) {
      text += machine.machineType + ',' + NumberOf(machine.osValue) + ',' +
              NumberOf(machine.arcValue) + '\n';
    }
    other_.Write(path, text);
  }

  TempFolder other_;
};

// The answer for each code, from the query's own records.
std::map<std::string, std::string> AnswersOf(const std::vector<QueryPackageResult>& records,
                                             const Cli::QuerySettings& settings) {
  std::map<std::string, std::string> answers;
  for (const QueryPackageResult& record : records) {
    answers[record.identificationCode] = NameOf(Cli::AnswerFor(record, settings).answer);
  }
  return answers;
}

TEST_F(MatrixRandomTest, GivesEachMachineWhatItsQueryGives) {
  const TestRandom test;
  RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
  std::size_t records = 0;
  std::size_t offered = 0;
  std::size_t absent = 0;
  for (std::size_t round = test.Rounds(300); round != 0; --round) {
    SCOPED_TRACE(round);
    WriteRepository(random);
    const std::vector<Cli::QuerySettings> machines = RandomMachines(random, 20);
    WriteMachines("machines.csv", machines);
    Arguments arguments{
        "matrix",   folder.Path(), "--machines",     other_.Path() + "/machines.csv",
        "--format", "jsonl",       "--debug-records"};
    for (const std::string& more : FilterArguments(machines.front())) arguments.push_back(more);
    const Outcome outcome = RunCli(arguments);
    ASSERT_EQ(outcome.status, 0) << outcome.err;

    std::map<std::string, Json> kinds;
    for (const std::string& line : LinesOf(outcome.out)) {
      const Json object = Json::parse(line);
      if (object["section"] == "kind") kinds.emplace(object["kind"], object);
    }
    for (const Cli::QuerySettings& machine : machines) {
      const Cli::LibraryRun run = Cli::RunLibrary(machine);
      const std::string kind =
          machine.machineType + '/' + NumberOf(machine.osValue) + '/' + NumberOf(machine.arcValue);
      SCOPED_TRACE(kind);
      ASSERT_EQ(kinds.count(kind), 1U);
      const Json& document = kinds[kind];
      ASSERT_EQ(document["returnCode"], run.code);
      const auto& queried =
          run.code == QueryCode::Completed ? run.records : std::vector<QueryPackageResult>();
      // As texts: what is not UTF-8 is replaced on both sides.
      ASSERT_EQ(document["records"].dump(),
                Json::parse(Cli::JsonText(Cli::ArrayOf(queried, Cli::RecordObject))).dump());
      std::map<std::string, std::string> answers = AnswersOf(queried, machine);
      for (const Json& package : document["packages"]) {
        const auto answer = answers.find(package["identificationCode"]);
        ASSERT_EQ(package["answer"], answer == answers.end() ? "absent" : answer->second);
        absent += answer == answers.end() ? 1 : 0;
        offered += package["answer"] == "offered" ? 1 : 0;
        if (answer != answers.end()) answers.erase(answer);
      }
      ASSERT_TRUE(answers.empty());
      records += queried.size();
    }
  }
  if (!test.RunsAllRounds()) return;
  EXPECT_GT(records, 10'000U);
  EXPECT_GT(offered, 20U);
  EXPECT_GT(absent, 1'000U);
}

TEST_F(MatrixRandomTest, NumberOfThreadsChangesNothing) {
  const TestRandom test;
  RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
  for (std::size_t round = test.Rounds(20); round != 0; --round) {
    SCOPED_TRACE(round);
    WriteRepository(random);
    const std::vector<Cli::QuerySettings> machines = RandomMachines(random, 20);
    Cli::MachineList list;
    for (const Cli::QuerySettings& machine : machines) {
      list.Add({machine.machineType, machine.osValue, machine.arcValue});
    }
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    std::vector<Cli::Matrix> matrices;
    for (const unsigned int threads : {1U, 2U, 5U, 100U}) {
      Cli::QueryModel model(reading, folder.Path());
      Cli::MatrixRequest request{machines.front(), list.Kinds()};
      request.keepsRecords = true;
      request.threads = threads;
      std::vector<std::size_t> done;
      request.progress = [&done](std::size_t kinds) { done.push_back(kinds); };
      matrices.push_back(EvaluateMatrix(model, request));
      ASSERT_EQ(done.size(), list.Kinds().size());
      ASSERT_TRUE(std::is_sorted(done.begin(), done.end()));
    }
    for (const Cli::Matrix& matrix : matrices) {
      ASSERT_EQ(matrix.packages, matrices.front().packages);
      ASSERT_EQ(matrix.kinds.size(), matrices.front().kinds.size());
      for (std::size_t kind = 0; kind < matrix.kinds.size(); ++kind) {
        ASSERT_EQ(FirstDifference(matrix.kinds[kind].records, matrices.front().kinds[kind].records),
                  "");
      }
    }
  }
}

TEST_F(MatrixRandomTest, FailureOfAThreadEndsTheEvaluation) {
  WritePackage("a");
  Cli::MachineList list;
  for (std::uint32_t os = 1; os <= 20; ++os) {
    list.Add({"1234", static_cast<OsValue>(os), static_cast<ArcValue>(9)});
  }
  const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
  Cli::QueryModel model(reading, folder.Path());
  Cli::QuerySettings settings;
  settings.folder = folder.Path();
  Cli::MatrixRequest request{settings, list.Kinds()};
  request.threads = 2;
  request.progress = [](std::size_t) { throw std::runtime_error("ended"); };
  EXPECT_THROW(EvaluateMatrix(model, request), std::runtime_error);
}

}  // namespace
}  // namespace Vornik::Testing
