// Every finding of lint: in a folder with its mistake, at the place of the mistake; and not in the
// same folder without it.
#include "lint/lint_fixture.h"
#include "lint/rules.h"

namespace Vornik::Testing {
namespace {

class LintFindingTest : public LintTest, public testing::WithParamInterface<LintCase> {};

TEST_P(LintFindingTest, StandsWhereTheMistakeIs) {
  WriteFiles(GetParam().faulty);
  EXPECT_EQ(PlacesOf(GetParam().id, {"--target", GetParam().target}), GetParam().places);
}

TEST_P(LintFindingTest, IsAbsentWithoutTheMistake) {
  WriteFiles(GetParam().sound);
  EXPECT_EQ(PlacesOf(GetParam().id, {"--target", GetParam().target}), std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(Lint, LintFindingTest, testing::ValuesIn(AllLintCases()), NameOfLintCase);

class LintFolderTest : public LintTest {};

// Ids that no folder of this system can have beside others.
std::set<std::string> ImpossibleHere() {
#ifdef _WIN32
  return {"name-collision", "no-descriptors"};
#else
  return {"no-descriptors"};
#endif
}

TEST_F(LintFolderTest, FolderWithEveryMistakeHasEveryFinding) {
  std::set<std::string> known;
  for (const Cli::LintRule& rule : Cli::LintRules()) known.insert(rule.name);
  for (const std::string& id : ImpossibleHere()) known.erase(id);
  std::set<std::string> written;
  for (const LintCase& one : AllLintCases()) {
    if (one.id != "no-descriptors" && written.insert(one.id).second) WriteFiles(one.faulty);
  }
  EXPECT_EQ(written, known) << "every finding has a case, and no case is of another";
  std::set<std::string> found = IdsIn(LintJson());
  for (const std::string& id : IdsIn(LintJson({"--target", "posix"}))) found.insert(id);
  EXPECT_EQ(found, known);
}

TEST_F(LintFolderTest, SoundFolderHasNoFinding) {
  WriteFiles(SoundPackage("a") + SoundPackage("b") +
             LintFiles{{"pack.xml", PackText({OwnInstance("pack.xml"), SoundInstance("a"),
                                              SoundInstance("b")})}});
  for (const char* target : {"windows", "posix"}) {
    const Outcome outcome = Lint({"--target", target, "--fail-on", "warning"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "0 errors, 0 warnings, 0 infos in 3 descriptor files" + ReadAs(target) + ".\n");
  }
}

TEST_F(LintFolderTest, EmptyFolderFails) {
  EXPECT_EQ(PlacesOf("no-descriptors"), std::vector<std::string>{".:0:0"});
  const Outcome outcome = Lint();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, testing::StartsWith(folder.Path() + ": error: No file of the folder"));
}

}  // namespace
}  // namespace Vornik::Testing
