// A folder that changes between the query and the look at its descriptors: no wrong reason is
// given.
#include <boost/filesystem/operations.hpp>

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

  // Runs the query, lets the folder be changed, and explains.
  template <typename Change>
  Cli::Explanation ExplainAfter(Change change) {
    Cli::LogOptions silent;
    silent.level = 0;
    Cli::LogCapture capture(silent);
    const Cli::LibraryRun run = Cli::RunLibrary(settings, Cli::Format::Json);
    const Cli::LogLines log = capture.End();
    change();
    return Cli::Explain(settings, "a", run, log, [this](const auto&, const auto&) {
      ++tries;
      return true;
    });
  }

  Cli::QuerySettings settings;
  int tries = 0;
};

TEST_F(FolderChangedTest, UnchangedFolderIsNotSaidToHaveChanged) {
  WritePackage("a");
  EXPECT_FALSE(ExplainAfter([] {}).folderChanged);
  EXPECT_GT(tries, 0);
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
  EXPECT_EQ(explanation.packages[0].wayOut.state, Cli::WayOutState::Unknown);
  EXPECT_EQ(tries, 0);
  EXPECT_THAT(Cli::ExplanationText(explanation, false),
              testing::StartsWith("The folder changed after the query."));
  EXPECT_EQ(Json::parse(Cli::ExplanationJson(explanation))["folderChanged"], true);
}

TEST_F(FolderChangedTest, DescriptorThatIsGoneLeavesTheVerdicts) {
  WritePackage("a");
  const Cli::Explanation explanation =
      ExplainAfter([this] { boost::filesystem::remove(folder.Path() + "/a.xml"); });
  EXPECT_TRUE(explanation.folderChanged);
  ASSERT_EQ(explanation.packages.size(), 1U);
  EXPECT_EQ(explanation.packages[0].refusedBy, std::vector<Cli::FilterId>{Cli::FilterId::Kovu});
  ASSERT_EQ(explanation.packages[0].filters.size(), Cli::filterCount);
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

TEST_F(FolderChangedTest, ChangeThatTheLibraryDoesNotAgreeToIsNotGiven) {
  WritePackage("a");
  Cli::LogOptions silent;
  silent.level = 0;
  Cli::LogCapture capture(silent);
  const Cli::LibraryRun run = Cli::RunLibrary(settings, Cli::Format::Json);
  const Cli::LogLines log = capture.End();
  const Cli::Explanation explanation =
      Cli::Explain(settings, "a", run, log, [](const auto&, const auto&) { return false; });
  ASSERT_EQ(explanation.packages.size(), 1U);
  const Cli::WayOut& wayOut = explanation.packages[0].wayOut;
  EXPECT_EQ(wayOut.state, Cli::WayOutState::Unknown);
  EXPECT_TRUE(wayOut.searchEnded);
  EXPECT_TRUE(wayOut.queries.empty());
}

}  // namespace
}  // namespace Vornik::Testing
