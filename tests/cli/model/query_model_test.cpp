// Random folders and settings: the evaluation of a query gives the records that the library gives.
#include "model/query_model.h"

#include "model/library_run.h"
#include "random_folder.h"
#include "record_members.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

class QueryModelTest : public RandomFolderTest {};

TEST_F(QueryModelTest, GivesTheRecordsOfTheLibrary) {
  const TestRandom test;
  RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
  std::size_t records = 0;
  std::size_t duplicates = 0;
  std::size_t superseded = 0;
  for (std::size_t round = test.Rounds(150); round != 0; --round) {
    SCOPED_TRACE(round);
    WriteRepository(random);
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    Cli::QueryModel model(reading, folder.Path());
    // Several queries with one model, which remembers some answers.
    for (int query = 0; query < 4; ++query) {
      const Cli::QuerySettings settings = ValidSettings(random);
      const Cli::LibraryRun run = Cli::RunLibrary(settings);
      const Cli::Evaluation evaluation = model.Evaluate(settings);
      ASSERT_TRUE(evaluation.canRun);
      ASSERT_EQ(FirstDifference(evaluation.records, run.records), "");
      ASSERT_EQ(evaluation.origins.size(), run.records.size());
      for (std::size_t i = 0; i < run.records.size(); ++i) {
        ASSERT_EQ(evaluation.origins[i].entry->xmlFile, run.records[i].packageXmlFile);
        superseded += run.records[i].supersededById.empty() ? 0 : 1;
      }
      records += run.records.size();
      duplicates += evaluation.duplicates.size();
    }
  }
  if (!test.RunsAllRounds()) return;
  EXPECT_GT(records, 1'500U);
  EXPECT_GT(duplicates, 150U);
  EXPECT_GT(superseded, 100U);
}

TEST_F(QueryModelTest, RefusedQueryHasNoRecords) {
  WritePackage("a");
  const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
  Cli::QueryModel model(reading, folder.Path());
  Cli::QuerySettings settings = Settings();
  EXPECT_TRUE(model.Evaluate(settings).canRun);
  settings.machineType = "12";
  EXPECT_FALSE(model.Evaluate(settings).canRun);
}

TEST_F(QueryModelTest, QueryThatWouldAbortCannotRun) {
  WritePackage("a");
  folder.Write("bad.xml", Package("bad")
                              .Set("driverFiles", {"x-#1", "y-#1"})
                              .Set("driverFilesClassification", {"one"})
                              .Individual());
  const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
  Cli::QueryModel model(reading, folder.Path());
  const Cli::Evaluation evaluation = model.Evaluate(Settings());
  EXPECT_FALSE(evaluation.canRun);
  EXPECT_TRUE(evaluation.records.empty());
}

}  // namespace
}  // namespace Vornik::Testing
