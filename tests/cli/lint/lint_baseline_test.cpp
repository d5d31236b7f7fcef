// Known findings: written to a file, counted, and removed from it.
#include "lint/baseline.h"

#include "lint/lint_fixture.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;
using testing::Not;

class LintBaselineTest : public LintTest {
 protected:
  std::string Baseline() const {
    return (boost::filesystem::path(work_.Path()) / "baseline.json").make_preferred().string();
  }

  std::string WriteText(const std::string& text) { return work_.Write("baseline.json", text); }

  // One error of each package.
  void WriteErrors(const std::vector<std::string>& codes) {
    for (const std::string& code : codes) folder.Write(code + ".xml", SoundText(code));
  }

  Json Known() { return LintJson({"--baseline", Baseline()}); }

 private:
  TempFolder work_;
};

TEST_F(LintBaselineTest, WrittenFindingsAreKnown) {
  WriteErrors({"a", "b"});
  const Outcome written = Lint({"--write-baseline", Baseline()});
  EXPECT_EQ(written.status, 0);
  EXPECT_EQ(written.err, "");
  EXPECT_EQ(ReadFile(Baseline()), R"({
  "schemaVersion": 1,
  "findings": [
    {
      "id": "payload-missing",
      "file": "a.xml",
      "code": "a",
      "count": 1
    },
    {
      "id": "payload-missing",
      "file": "b.xml",
      "code": "b",
      "count": 1
    }
  ]
}
)");
  const Outcome outcome = Lint({"--baseline", Baseline(), "--fail-on", "info"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Known from the baseline: 2 findings.\n"
            "0 errors, 0 warnings, 0 infos in 2 descriptor files" +
                ReadAs("windows") + ".\n");
  const Json document = Known();
  EXPECT_EQ(document["errors"], 0);
  EXPECT_EQ(document["findings"], Json::array());
  EXPECT_EQ(PlacesIn({{"findings", document["known"]}}, "payload-missing").size(), 2U);
}

TEST_F(LintBaselineTest, NewFindingFails) {
  WriteErrors({"a"});
  Lint({"--write-baseline", Baseline()});
  WriteErrors({"b"});
  EXPECT_EQ(Lint({"--baseline", Baseline()}).status, 1);
  const Json document = Known();
  EXPECT_EQ(document["errors"], 1);
  EXPECT_EQ(document["findings"][0]["file"], "b.xml");
  EXPECT_EQ(document["known"][0]["file"], "a.xml");
}

// The lines may move, and of several that are alike only as many as there were are known.
TEST_F(LintBaselineTest, FindingIsKnownByIdFileAndCodeAndNumber) {
  const std::string one = PutValues(SoundText("a"), "orderedOSList", {"x"});
  WriteFiles(PackageFiles("a", one));
  Lint({"--write-baseline", Baseline()});
  WriteFiles(PackageFiles("a", Replace(one, "<CIM>", "\n\n<CIM>")));
  EXPECT_EQ(Lint({"--baseline", Baseline()}).status, 0);
  std::string two = PutValues(SoundText("a"), "orderedOSList", {"x", "y"});
  for (const char* list : {"orderedMachineTypeList", "orderedOSArchitectureList"}) {
    two = PutValues(two, list, {"1234", "1235"});
  }
  WriteFiles(PackageFiles("a", two));
  const Json document = Known();
  EXPECT_EQ(PlacesIn(document, "platform-not-number").size(), 1U);
  EXPECT_THAT(document["findings"][0]["text"].get<std::string>(), HasSubstr("\"y\""));
}

TEST_F(LintBaselineTest, FixedFindingsAreReportedSoThatTheFileShrinks) {
  WriteErrors({"a", "b"});
  Lint({"--write-baseline", Baseline()});
  folder.Write("a.exe", "x");
  const Outcome outcome = Lint({"--baseline", Baseline()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("No longer there, remove from the baseline: 1 finding of "
                                     "payload-missing in a.xml for \"a\".\n"));
  EXPECT_EQ(Known()["fixed"], Json::parse(R"([{"id": "payload-missing", "file": "a.xml",
                                               "code": "a", "count": 1}])"));
  Lint({"--baseline", Baseline(), "--write-baseline", Baseline()});
  EXPECT_THAT(ReadFile(Baseline()), Not(HasSubstr("a.xml")));
  EXPECT_THAT(ReadFile(Baseline()), HasSubstr("b.xml"));
}

// What a run does not look for is not fixed.
TEST_F(LintBaselineTest, OnlyWhatIsLookedForCanBeFixed) {
  WriteErrors({"a", "b"});
  Lint({"--write-baseline", Baseline()});
  for (const Arguments& arguments :
       {Arguments{"--ignore", "payload-missing"}, Arguments{"--only", "type-not-number"}}) {
    Arguments all{"--baseline", Baseline()};
    all.insert(all.end(), arguments.begin(), arguments.end());
    EXPECT_EQ(LintJson(all)["fixed"], Json::array());
  }
  folder.Write("a.exe", "x");
  EXPECT_EQ(LintJson({"--baseline", Baseline(), "b.xml"})["fixed"], Json::array());
  EXPECT_EQ(LintJson({"--baseline", Baseline(), "a.xml"})["fixed"].size(), 1U);
}

TEST_F(LintBaselineTest, IdThatLintNoLongerKnowsIsFixed) {
  WriteFiles(SoundPackage("a"));
  WriteText(R"({"schemaVersion": 1, "findings": [
                 {"id": "no-such-id", "file": "a.xml", "code": "", "count": 2}]})");
  EXPECT_EQ(Known()["fixed"].size(), 1U);
}

TEST_F(LintBaselineTest, WhatIsNoBaselineIsRefused) {
  WriteErrors({"a"});
  const struct {
    const char* text;
    const char* says;
  } cases[] = {
      {"", "it is no JSON object"},
      {"[]", "it is no JSON object"},
      {"{}", "its \"schemaVersion\" is not 1"},
      {R"({"schemaVersion": 2, "findings": []})", "its \"schemaVersion\" is not 1"},
      {R"({"schemaVersion": 1})", "it has no array \"findings\""},
      {R"({"schemaVersion": 1, "findings": [{}]})", "a finding in it is not an object"},
      {R"({"schemaVersion": 1, "findings": [{"id": "a", "file": "b", "code": "", "count": -1}]})",
       "a finding in it is not an object"},
      {R"({"schemaVersion": 1, "findings": [{"id": 1, "file": "b", "code": "", "count": 1}]})",
       "a finding in it is not an object"},
  };
  for (const auto& one : cases) {
    WriteText(one.text);
    const Outcome outcome = Lint({"--baseline", Baseline()});
    EXPECT_EQ(outcome.status, 64) << one.text;
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr(one.says)) << one.text;
    EXPECT_EQ(LinesOf(outcome.err).size(), 1U);
  }
  EXPECT_EQ(Lint({"--baseline", Baseline() + ".gone"}).status, 64);
}

TEST_F(LintBaselineTest, BaselineThatCannotBeWrittenEndsWith74) {
  WriteErrors({"a"});
  const Outcome outcome = Lint({"--write-baseline", folder.Path()});
  EXPECT_EQ(outcome.status, 74);
  EXPECT_THAT(outcome.err, HasSubstr("could not be written"));
}

TEST_F(LintBaselineTest, SarifSuppressesWhatIsKnown) {
  WriteErrors({"a"});
  Lint({"--write-baseline", Baseline()});
  WriteErrors({"b"});
  const Json log = Json::parse(Lint({"--baseline", Baseline(), "--format", "sarif"}).out);
  const Json& results = log["runs"][0]["results"];
  ASSERT_EQ(results.size(), 2U);
  EXPECT_EQ(results[0]["suppressions"], Json::parse(R"([{"kind": "external"}])"));
  EXPECT_FALSE(results[1].contains("suppressions"));
}

TEST_F(LintBaselineTest, FingerprintsStayWhereLinesMove) {
  const std::string text =
      PutValues(PutValues(SoundText("a"), "preReq", {"x", "y"}), "coReq", {"z"});
  const auto fingerprints = [this] {
    std::vector<std::string> found;
    const Json log = Json::parse(Lint({"--format", "sarif"}).out);
    for (const Json& result : log["runs"][0]["results"]) {
      found.push_back(result["partialFingerprints"]["idFileCode/v1"]);
    }
    return found;
  };
  WriteFiles(PackageFiles("a", text));
  const auto before = fingerprints();
  ASSERT_EQ(before.size(), 3U);
  EXPECT_EQ(std::set<std::string>(before.begin(), before.end()).size(), 3U);
  WriteFiles(PackageFiles("a", Replace(text, "<CIM>", "\n<CIM>")));
  EXPECT_EQ(fingerprints(), before);
}

TEST(LintBaselineText, IsReadAsItIsWritten) {
  const Cli::LintBaseline baseline{{{"utf-16", "a \"b\".xml", ""}, 1},
                                   {{"version-order", "\xC3\xA9.xml", "c"}, 3}};
  std::string reason;
  EXPECT_EQ(Cli::ParseBaseline(Cli::BaselineText(baseline), reason), baseline);
}

}  // namespace
}  // namespace Vornik::Testing
