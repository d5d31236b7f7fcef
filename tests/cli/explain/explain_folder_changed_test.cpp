// A folder that changes between the query and the look at its descriptors: no wrong reason is
// given.
#include <boost/filesystem/operations.hpp>
#include <chrono>
#include <filesystem>
#include <functional>

#include "cli_fixture.h"
#include "explain/explain.h"
#include "explain/json.h"
#include "explain/text.h"

namespace Vornik::Testing {
namespace {

class FolderChangedTest : public CliTest {
 protected:
  FolderChangedTest() {
    settings.folder = folder.Path();
    settings.machineType = "1234";
    settings.osValue = static_cast<OsValue>(10);
    settings.arcValue = static_cast<ArcValue>(9);
  }

  // Lets the folder be changed after the query.
  Cli::Explanation ExplainAfter(const std::function<void()>& change) {
    return Explain([] {}, change);
  }

  // Lets it be changed between the reading and the query.
  Cli::Explanation ExplainWhereChangedBefore(const std::function<void()>& change) {
    return Explain(change, [] {});
  }

  Cli::QuerySettings settings;

 private:
  Cli::Explanation Explain(const std::function<void()>& beforeQuery,
                           const std::function<void()>& afterQuery) {
    const auto before = Cli::ListEntries(folder.Path());
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    beforeQuery();
    const Cli::LibraryRun run = Cli::RunLibrary(settings);
    afterQuery();
    Cli::QueryModel model(reading, folder.Path());
    const Cli::Evaluation evaluation = model.Evaluate(settings);
    const Cli::EvaluatedQuery query{settings, run, model, evaluation,
                                    Cli::ListEntries(folder.Path()) != before};
    EXPECT_EQ(Cli::FindDisagreement(query), std::nullopt);
    return Cli::Explain(query, "a");
  }
};

TEST_F(FolderChangedTest, UnchangedFolderIsNotSaidToHaveChanged) {
  WritePackage("a");
  const Cli::Explanation explanation = ExplainAfter([] {});
  EXPECT_FALSE(explanation.folderChanged);
  ASSERT_EQ(explanation.packages.size(), 1U);
  EXPECT_EQ(explanation.packages[0].remedies.state, Cli::RemedyState::Found);
}

TEST_F(FolderChangedTest, ReasonThatGivesAnotherVerdictIsLeftOut) {
  WritePackage("a");
  const Cli::Explanation explanation =
      ExplainAfter([this] { boost::filesystem::remove(folder.Path() + "/payload.exe"); });
  EXPECT_TRUE(explanation.folderChanged);
  ASSERT_EQ(explanation.packages.size(), 1U);
  for (const Cli::FilterExplanation& filter : explanation.packages[0].filters) {
    const bool isPayload = filter.filter == Cli::FilterId::PayloadExist;
    EXPECT_EQ(filter.reason == "folderChanged", isPayload) << filter.reason;
    if (!isPayload) continue;
    EXPECT_EQ(filter.status, FilterStatus::Matched) << "the verdict is that of the query";
    EXPECT_EQ(filter.log, std::vector<std::string>{"a PayloadExist Filter is matched!"});
    EXPECT_TRUE(filter.properties.empty());
    EXPECT_EQ(filter.file, "");
  }
  EXPECT_EQ(explanation.packages[0].remedies.state, Cli::RemedyState::Unknown);
  EXPECT_TRUE(explanation.packages[0].remedies.queries.empty());
  EXPECT_THAT(Cli::ExplanationText(explanation, Cli::TextDetail::Full, false),
              testing::StartsWith("The folder changed after the query."));
  EXPECT_EQ(Json::parse(Cli::ExplanationJson(explanation))["folderChanged"], true);
}

TEST_F(FolderChangedTest, DescriptorThatWasNotReadLeavesTheVerdicts) {
  WritePackage("b");
  const Cli::Explanation explanation = ExplainWhereChangedBefore([this] { WritePackage("a"); });
  EXPECT_TRUE(explanation.folderChanged);
  ASSERT_EQ(explanation.packages.size(), 1U);
  EXPECT_EQ(explanation.packages[0].refusedBy, std::vector<Cli::FilterId>{Cli::FilterId::Kovu});
  ASSERT_EQ(explanation.packages[0].filters.size(), Cli::filterCount);
  for (const Cli::FilterExplanation& filter : explanation.packages[0].filters) {
    EXPECT_EQ(filter.reason, filter.runs ? "folderChanged" : "off");
  }
}

TEST_F(FolderChangedTest, DescriptorThatWouldHaveAbortedTheQueryLeavesTheVerdicts) {
  WritePackage("a");
  folder.Write("b.xml", Package("b")
                            .Set("driverFiles", {"x-#1", "y-#1"})
                            .Set("driverFilesClassification", {"one"})
                            .Individual());
  const Cli::Explanation explanation = ExplainWhereChangedBefore([this] { WritePackage("b"); });
  EXPECT_TRUE(explanation.folderChanged);
  ASSERT_EQ(explanation.packages.size(), 1U);
  for (const Cli::FilterExplanation& filter : explanation.packages[0].filters) {
    EXPECT_EQ(filter.reason, filter.runs ? "folderChanged" : "off");
  }
}

TEST_F(FolderChangedTest, AnotherPackageThatAppearsIsSaidToBeAChange) {
  WritePackage("a");
  EXPECT_TRUE(ExplainAfter([this] { WritePackage("b"); }).folderChanged);
}

TEST_F(FolderChangedTest, BrokenFileThatIsMendedIsSaidToBeSo) {
  WritePackage("b");
  const std::string whole = Package("a").Individual();
  folder.Write("a.xml", whole.substr(0, whole.size() / 2));
  const Cli::Explanation explanation = ExplainAfter([&] { folder.Write("a.xml", whole); });
  EXPECT_TRUE(explanation.folderChanged);
  EXPECT_TRUE(explanation.packages.empty());
}

TEST_F(FolderChangedTest, DescriptorThatIsGoneAfterTheQueryIsSaidToBeAChange) {
  WritePackage("a");
  const Cli::Explanation explanation =
      ExplainAfter([this] { boost::filesystem::remove(folder.Path() + "/a.xml"); });
  EXPECT_TRUE(explanation.folderChanged);
  ASSERT_EQ(explanation.packages.size(), 1U);
  EXPECT_EQ(explanation.packages[0].refusedBy, (std::vector<Cli::FilterId>{Cli::FilterId::Kovu}));
}

TEST_F(FolderChangedTest, SizeOrTimeOfADescriptorIsEnough) {
  WritePackage("a");
  folder.Write("b.xml", "x");
  const std::string path = folder.Path() + "/b.xml";
  EXPECT_TRUE(ExplainAfter([this] { folder.Write("b.xml", "xy"); }).folderChanged);
  const auto later = std::filesystem::last_write_time(path) + std::chrono::seconds(2);
  EXPECT_TRUE(ExplainAfter([&] { std::filesystem::last_write_time(path, later); }).folderChanged);
  EXPECT_FALSE(ExplainAfter([] {}).folderChanged);
}

TEST_F(FolderChangedTest, NameOrKindOfAnotherFileIsEnough) {
  WritePackage("a");
  folder.Write("notes.txt", "x");
  const std::string path = folder.Path() + "/notes.txt";
  EXPECT_TRUE(ExplainAfter([&] { std::filesystem::rename(path, path + "2"); }).folderChanged);
  EXPECT_TRUE(ExplainAfter([&] {
                std::filesystem::remove(path + "2");
                std::filesystem::create_directory(path + "2");
              }).folderChanged);
}

TEST_F(FolderChangedTest, OtherFileThatGrowsIsNoChange) {
  WritePackage("a");
  folder.Write("notes.txt", "x");
  EXPECT_FALSE(ExplainAfter([this] { folder.Write("notes.txt", "xy"); }).folderChanged);
}

TEST_F(FolderChangedTest, LogInTheFolderIsRefused) {
  WritePackage("a");
  Arguments arguments = QueryArguments({"--package", "a", "--log-file", PathOf("log.txt")});
  arguments.front() = "explain";
  const Outcome outcome = RunCli(arguments);
  EXPECT_EQ(outcome.status, 64);
  EXPECT_THAT(outcome.err, testing::HasSubstr("(it is in the folder of the packages)"));
  EXPECT_FALSE(std::filesystem::exists(PathOf("log.txt")));
}

}  // namespace
}  // namespace Vornik::Testing
