// A folder that changes between the query and its evaluation: no wrong reason is given.
#include <boost/filesystem/operations.hpp>
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
  // Lets the folder be changed between the query and its evaluation.
  Cli::Explanation ExplainAfter(const std::function<void()>& change) {
    const FolderContents contents = Cli::ReadContents(folder.Path());
    const Cli::LibraryRun run = Cli::RunLibrary(settings, contents);
    change();
    const Cli::FolderReading reading = Cli::Load(contents);
    Cli::QueryModel model(reading, folder.Path());
    const Cli::Evaluation evaluation = model.Evaluate(settings);
    const Cli::EvaluatedQuery query{settings, run, model, evaluation};
    EXPECT_EQ(Cli::FindDisagreement(query), std::nullopt);
    return Cli::Explain(query, "a");
  }

  Cli::QuerySettings settings = Settings();
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
              testing::StartsWith("Payload files changed after the query."));
  EXPECT_EQ(Json::parse(Cli::ExplanationJson(explanation))["folderChanged"], true);
}

TEST_F(FolderChangedTest, PayloadOfAnotherPackageIsAChangeToo) {
  WritePackage("a");
  folder.Write("b.xml",
               Package("b").Set("xmlFilename", "b.xml").Set("payload", "late.exe").Individual());
  const Cli::Explanation explanation = ExplainAfter([this] { folder.Write("late.exe", "x"); });
  EXPECT_TRUE(explanation.folderChanged) << "the remedies are evaluated with all packages";
  EXPECT_EQ(explanation.packages[0].remedies.state, Cli::RemedyState::Unknown);
}

TEST_F(FolderChangedTest, DescriptorsAreThoseThatTheQueryRead) {
  WritePackage("a");
  const Cli::Explanation same = ExplainAfter([] {});
  const Cli::Explanation explanation = ExplainAfter([this] {
    boost::filesystem::remove(folder.Path() + "/a.xml");
    folder.Write("a.xml", "broken");
    folder.Write("b.xml", Package("b").Set("supersede", {"a"}).Individual());
    folder.Write("notes.txt", "x");
  });
  EXPECT_FALSE(explanation.folderChanged);
  EXPECT_EQ(Cli::ExplanationJson(explanation), Cli::ExplanationJson(same));
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
