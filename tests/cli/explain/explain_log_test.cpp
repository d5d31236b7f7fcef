// The log lines of an explanation are those that the library logs.
#include <LogSettings.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <tuple>

#include "explain/explain.h"
#include "explain/log_lines.h"
#include "log_texts.h"
#include "random_folder.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

using Texts = std::vector<std::string>;

struct Line {
  unsigned int level;
  std::string text;
};

// In the order of Cli::FilterId.
const std::array<StageText, Cli::filterCount> filterStages{
    LogText::duplicate,  LogText::platform,     LogText::kovu,
    LogText::sep,        LogText::payloadExist, LogText::supersede,
    LogText::includeIds, LogText::excludeIds,   LogText::updateType};

class ExplainLogTest : public RandomFolderTest {
 protected:
  ExplainLogTest() {
    SetMinLogLevel(LogLevel::progress);
    LogToFunction([lines = lines_](const LogRecord& record) {
      lines->push_back({record.level, std::string(record.text)});
    });
  }
  ~ExplainLogTest() override {
    LogToStandardError();
    SetMinLogLevel(LogLevel::error);
  }
  ExplainLogTest(const ExplainLogTest&) = delete;
  ExplainLogTest& operator=(const ExplainLogTest&) = delete;

  Cli::LibraryRun Run(const Cli::QuerySettings& settings) {
    lines_->clear();
    return Cli::RunLibrary(settings);
  }

  // The lines of a stage, up to a level; none if it did not run.
  Texts LinesOf(const StageText& stage, unsigned int level = LogLevel::progress) const {
    const auto is = [](const char* text) {
      return [text](const Line& line) { return line.text == text; };
    };
    const auto start = std::find_if(lines_->begin(), lines_->end(), is(stage.start));
    if (start == lines_->end()) return {};
    Texts texts;
    for (auto line = std::next(start); line->text != stage.end; ++line) {
      if (line->level <= level) texts.push_back(line->text);
    }
    return texts;
  }

  // Each filter's lines about all packages, one package after the other, are those of its stage.
  void CheckFilters(const Cli::QuerySettings& settings) {
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    const Cli::LibraryRun run = Run(settings);
    Cli::QueryModel model(reading, folder.Path());
    const Cli::Evaluation evaluation = model.Evaluate(settings);
    const Cli::EvaluatedQuery query{settings, run, model, evaluation};
    std::array<Texts, Cli::filterCount> explained;
    for (const QueryPackageResult& record : run.records) {
      const auto explanation = Cli::Explain(query, record.identificationCode);
      ASSERT_EQ(explanation.packages.size(), 1U);
      for (const Cli::FilterExplanation& filter : explanation.packages[0].filters) {
        Texts& lines = explained[static_cast<std::size_t>(filter.filter)];
        lines.insert(lines.end(), filter.log.begin(), filter.log.end());
        kinds.emplace(filter.filter, filter.runs, filter.status, filter.log.size());
      }
    }
    for (std::size_t i = 0; i < Cli::filterCount; ++i) {
      Texts logged = LinesOf(filterStages[i]);
      if (i == static_cast<std::size_t>(Cli::FilterId::Duplicate)) {
        // The duplicates are logged in their own order.
        std::sort(logged.begin(), logged.end());
        std::sort(explained[i].begin(), explained[i].end());
      }
      ASSERT_EQ(explained[i], logged);
    }
  }

  // Filter, whether it runs, status, number of lines.
  std::set<std::tuple<Cli::FilterId, bool, std::uint32_t, std::size_t>> kinds;

 private:
  const std::shared_ptr<std::vector<Line>> lines_ = std::make_shared<std::vector<Line>>();
};

TEST_F(ExplainLogTest, LinesOfPackagesAreThoseOfTheLibrary) {
  const TestRandom test;
  RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
  for (std::size_t round = test.Rounds(100); round != 0; --round) {
    SCOPED_TRACE(round);
    WriteRepository(random);
    ASSERT_NO_FATAL_FAILURE(CheckFilters(ValidSettings(random)));
  }
  if (!test.RunsAllRounds()) return;
  for (const Cli::Filter& filter : Cli::Filters()) {
    for (const std::uint32_t status : {FilterStatus::Matched, FilterStatus::NotMatched}) {
      if (filter.slot == nullptr && status == FilterStatus::NotMatched) continue;
      const bool isSeen = std::any_of(kinds.begin(), kinds.end(), [&](const auto& kind) {
        return std::get<0>(kind) == filter.id && std::get<1>(kind) && std::get<2>(kind) == status;
      });
      EXPECT_TRUE(isSeen) << filter.name << ' ' << status;
    }
  }
}

TEST_F(ExplainLogTest, EachMissingPropertyHasItsLine) {
  folder.Write("payload.exe", "x");
  const std::vector<std::pair<std::string, std::string>> properties{
      {"identificationCode", "code"},
      {"orderedMachineTypeList", "1234"},
      {"orderedOSList", "10"},
      {"orderedOSArchitectureList", "9"},
      {"xmlFilename", "identificationCode.xml"},
      {"payload", "payload.exe"},
      {"type", "1"}};
  for (const auto& [missing, ignored] : properties) {
    Descriptor descriptor;
    for (const auto& [property, value] : properties) {
      const bool isCode = property == "identificationCode";
      if (property != missing) descriptor.Set(property, isCode ? "without " + missing : value);
    }
    folder.Write(missing + ".xml", descriptor.Individual());
  }
  Cli::QuerySettings settings = Settings();
  settings.updateTypes = {static_cast<UpdateType>(1)};
  ASSERT_NO_FATAL_FAILURE(CheckFilters(settings));
  EXPECT_THAT(LinesOf(LogText::platform),
              testing::IsSupersetOf({LogText::codeIsEmpty, LogText::noProperties,
                                     LogText::noMachineTypeList, LogText::noOsList,
                                     LogText::noArchitectureList}));
  EXPECT_THAT(LinesOf(LogText::payloadExist),
              testing::IsSupersetOf({LogText::noXmlFilename, LogText::noPayload}));
  EXPECT_THAT(LinesOf(LogText::updateType), testing::Contains(LogText::noUpdateType));
}

TEST_F(ExplainLogTest, LinesOfFilesAreThoseOfTheLibrary) {
  const std::string individual = Package("a").Individual();
  const std::string pack = Pack({PackItself("p.xml"), Package("m")});
  const std::string individualMark = "<!-- SystemUpdateElement -->";
  const std::string packMark = "<!-- ORXQDL_SystemUpdateProduct -->";
  folder.Write("sound.xml", individual);
  folder.Write("sound pack.xml", pack);
  folder.Write("empty.xml", "");
  folder.Write("no marker.xml", "<a/>");
  folder.Write("cut.xml", individual.substr(0, individual.size() / 2));
  folder.Write("no root.xml", individualMark);
  folder.Write("no properties.xml", individualMark + "<a/>");
  folder.Write("cut pack.xml", pack.substr(0, pack.size() - 8));
  folder.Write("no pack root.xml", packMark);
  folder.Write("no instances.xml", packMark + "<a/>");
  boost::filesystem::create_directory(boost::filesystem::path(folder.Path()) / "folder.xml");

  const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
  ASSERT_EQ(Run(Settings()).code, QueryCode::Completed);
  Texts composed;
  std::size_t faults = 0;
  for (const Cli::RepositoryFile& file : reading.files) {
    if (file.reading.fault == DescriptorFault::None) continue;
    const Texts lines = Cli::LogLinesOf(file);
    composed.insert(composed.end(), lines.begin(), lines.end());
    ++faults;
  }
  EXPECT_EQ(faults, 9U);
  EXPECT_EQ(composed, LinesOf(LogText::parseFolder, LogLevel::error));
}

}  // namespace
}  // namespace Vornik::Testing
