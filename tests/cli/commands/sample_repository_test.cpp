// The sample repository, queried as its description says, has the verdicts that it describes.
#include <algorithm>
#include <map>
#include <sstream>

#include "cli_fixture.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

const std::string examples = ProjectFile("examples");

using Row = std::vector<std::string>;

std::string Trimmed(const std::string& cell) {
  const auto begin = cell.find_first_not_of(" `");
  return begin == std::string::npos ? ""
                                    : cell.substr(begin, cell.find_last_not_of(" `") - begin + 1);
}

// The cells of a line of a Markdown table.
Row CellsOf(const std::string& line) {
  Row cells;
  std::istringstream stream(line.substr(1));
  for (std::string cell; std::getline(stream, cell, '|');) cells.push_back(Trimmed(cell));
  return cells;
}

// The described verdicts by code, each with what the package replaces and is replaced by.
std::map<std::string, Row> DescribedVerdicts() {
  std::map<std::string, Row> verdicts;
  bool inSection = false;
  for (const std::string& line : LinesOf(ReadFile(examples + "/README.md"))) {
    if (line.compare(0, 4, "### ") == 0) inSection = line == "### Verdicts";
    if (!inSection || (line.find("| `") != 0 && line.find("| (no code)") != 0)) continue;
    Row cells = CellsOf(line);
    const std::string code = cells.front() == "(no code)" ? "" : cells.front();
    cells.erase(cells.begin());
    verdicts[code] = cells;
  }
  return verdicts;
}

Row VerdictsOf(const Json& record) {
  Row verdicts;
  for (const char* slot :
       {"platformFilterStatus", "kovuFilterStatus", "sepFilterStatus", "payloadExistFilterStatus",
        "supersedeFilterStatus", "includeIdFilterStatus", "excludeIdFilterStatus",
        "updateTypeFilterStatus"}) {
    verdicts.push_back(record[slot].dump());
  }
  verdicts.push_back(record["supersedesId"]);
  verdicts.push_back(record["supersededById"]);
  return verdicts;
}

Arguments SampleQuery(const Arguments& more) {
  Arguments arguments{"query",          examples + "/repository",
                      "--machine-type", "1234",
                      "--os",           "10",
                      "--arch",         "9",
                      "--log-level",    "0"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

TEST(SampleRepositoryTest, VerdictsAreTheDescribedOnes) {
  const Outcome outcome =
      RunCli(SampleQuery({"--format", "json", "--include", "orx_utl_keymap_1", "--include",
                          "orx_drv_ethlan_1_3", "--exclude", "orx_drv_ethlan_1_4", "--exclude",
                          "orx_utl_notice_1", "--update-type", "1", "--update-type", "2"}));
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const Json document = Json::parse(outcome.out);
  std::map<std::string, Row> verdicts;
  for (const Json& record : document["records"]) {
    verdicts[record["identificationCode"]] = VerdictsOf(record);
  }
  EXPECT_GE(verdicts.size(), 15U);
  EXPECT_EQ(verdicts.size(), document["records"].size());
  EXPECT_EQ(verdicts, DescribedVerdicts());
}

TEST(SampleRepositoryTest, TableHasALineForEachRecord) {
  const Outcome outcome = RunCli(SampleQuery({}));
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  const std::size_t packages = DescribedVerdicts().size();
  const auto lines = LinesOf(outcome.out);
  ASSERT_EQ(lines.size(), packages + 3);
  EXPECT_EQ(lines[packages + 1], "Pack in use: pack_desktop_1234.xml, version 2.1.");
  EXPECT_THAT(lines.back(), testing::StartsWith(std::to_string(packages) + " packages: "));
}

}  // namespace
}  // namespace Vornik::Testing
