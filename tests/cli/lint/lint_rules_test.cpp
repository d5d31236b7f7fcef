// The table of findings, and its description.
#include <algorithm>
#include <sstream>

#include "lint/lint_fixture.h"
#include "lint/rules.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

using Cli::LintRule;

bool IsIdCharacter(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-'; }

TEST(LintRulesTest, IdsAreWordsJoinedByDashesAndStandOnce) {
  std::set<std::string> names;
  for (std::size_t i = 0; i < Cli::LintRules().size(); ++i) {
    const LintRule& rule = Cli::LintRules()[i];
    const std::string name = rule.name;
    EXPECT_EQ(static_cast<std::size_t>(rule.id), i) << name << " stands where its number says";
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_TRUE(std::all_of(name.begin(), name.end(), IsIdCharacter)) << name;
    EXPECT_NE(name.find('-'), std::string::npos) << name;
    EXPECT_EQ(Cli::FindLintRule(name), &rule);
  }
}

// A sentence begins with a letter or a quoted word, ends with a full stop and has no other.
void ExpectSentence(const std::string& text) {
  ASSERT_FALSE(text.empty());
  EXPECT_EQ(text.back(), '.') << text;
  EXPECT_EQ(text.find(". "), std::string::npos) << text;
}

TEST(LintRulesTest, EachSaysInASentenceWhatIsWrongAndInOneWhatToDo) {
  for (const LintRule& rule : Cli::LintRules()) {
    ExpectSentence(rule.what);
    ExpectSentence(rule.remedy);
  }
}

// The rows of the description's table of findings.
std::vector<std::string> DescribedRows() {
  std::vector<std::string> rows;
  for (const std::string& line : LinesOf(ReadFile(ProjectFile("docs/lint.md")))) {
    if (line.compare(0, 3, "| `") == 0) rows.push_back(line);
  }
  return rows;
}

// The row that says what --explain says.
std::string RowOf(const LintRule& rule) {
  const Outcome outcome = RunCli({"lint", "--explain", rule.name});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  const auto lines = LinesOf(outcome.out);
  if (lines.size() != 3) return outcome.out;
  const std::size_t colon = lines[0].find(": ");
  return "| `" + lines[0].substr(0, colon) + "` | " + lines[0].substr(colon + 2) + " | " +
         lines[1] + " | " + lines[2] + " |";
}

TEST(LintRulesTest, AreDescribedInTheirOrderAsExplainSays) {
  std::vector<std::string> rows;
  for (const LintRule& rule : Cli::LintRules()) rows.push_back(RowOf(rule));
  EXPECT_EQ(DescribedRows(), rows);
}

}  // namespace
}  // namespace Vornik::Testing
