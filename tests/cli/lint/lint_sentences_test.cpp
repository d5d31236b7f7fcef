// The sentence of each finding is true of its folder, and untrue of the folder without the mistake.
#include "lint/lint_sentences.h"

#include <algorithm>

#include "lint/lint_fixture.h"
#include "lint/rules.h"

namespace Vornik::Testing {
namespace {

LintClaims AllClaims() {
  LintClaims all;
  for (const auto group : {FileClaims, DocumentClaims, PropertyClaims, CodeClaims, PlatformClaims,
                           DriverClaims, PackClaims, PackageFileClaims}) {
    all.merge(group());
  }
  return all;
}

// Findings whose sentence claims nothing that a query on this system can show, and why.
std::map<std::string, std::string> FindingsWithoutClaim() {
  return {
      {"name-encoding", "what the target's encoding can hold"},
      {"name-invalid", "what the target's file system can hold"},
      {"name-collision", "what the target's file system can hold"},
      {"xml-filename-other", "what a text names, whatever becomes of it"},
      {"payload-shared", "what two texts name, whatever becomes of it"},
#ifdef _WIN32
      {"separator-foreign", "a separator of this system, which is foreign on others only"},
#endif
  };
}

// Whether a query on this system reads the files otherwise than on the case's target.
bool IsOfAnotherSystem(const LintCase& one) {
#ifdef _WIN32
  return one.target == "posix";
#else
  const auto holds = [](const LintFiles& files, char byte) {
    return std::any_of(files.begin(), files.end(), [byte](const auto& file) {
      return file.second.find(byte) != std::string::npos;
    });
  };
  const bool namesByBackslash = holds(one.faulty, '\\') || holds(one.sound, '\\');
  return one.target == "windows" && (namesByBackslash || holds(one.faulty, '\x1A'));
#endif
}

std::vector<LintCase> CasesWithClaim() {
  std::vector<LintCase> cases;
  for (LintCase& one : AllLintCases()) {
    if (FindingsWithoutClaim().count(one.id) == 0 && !IsOfAnotherSystem(one)) {
      cases.push_back(std::move(one));
    }
  }
  return cases;
}

TEST(LintSentencesTest, EachFindingHasAClaimOrAReasonForNone) {
  const LintClaims claims = AllClaims();
  const auto without = FindingsWithoutClaim();
  std::set<std::string> shown;
  for (const LintCase& one : CasesWithClaim()) shown.insert(one.id);
  std::set<std::string> known;
  for (const Cli::LintRule& rule : Cli::LintRules()) {
    known.insert(rule.name);
    EXPECT_EQ(claims.count(rule.name) + without.count(rule.name), 1U) << rule.name;
    EXPECT_EQ(shown.count(rule.name), claims.count(rule.name)) << rule.name;
  }
  for (const auto& [id, claim] : claims) EXPECT_EQ(known.count(id), 1U) << id;
  for (const auto& [id, reason] : without) EXPECT_EQ(known.count(id), 1U) << id;
}

class LintSentenceTest : public testing::TestWithParam<LintCase> {};

TEST_P(LintSentenceTest, IsTrueOfTheMistakeAlone) {
  const LintCase& one = GetParam();
  const LintClaims claims = AllClaims();
  const auto claim = claims.find(one.id);
  ASSERT_NE(claim, claims.end());
  EXPECT_TRUE(claim->second(one.faulty, one));
  EXPECT_FALSE(claim->second(one.sound, one));
}

INSTANTIATE_TEST_SUITE_P(Lint, LintSentenceTest, testing::ValuesIn(CasesWithClaim()),
                         NameOfLintCase);

}  // namespace
}  // namespace Vornik::Testing
