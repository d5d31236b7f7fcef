// The short answer of explain, several ids at once, and the exit status of each answer.
#include "explain/explain_fixture.h"
#include "explain/package_ids.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ExplainBriefTest : public ExplainTest {
 protected:
  // explain of the folder, with any arguments behind it.
  Outcome Run(const Arguments& more) {
    Arguments arguments = QueryArguments(more);
    arguments.front() = "explain";
    return RunCli(arguments);
  }

  std::vector<std::string> LinesOfBrief(const std::string& id, const Arguments& more = {}) {
    return LinesOf(Explain(id, more).out);
  }
};

TEST_F(ExplainBriefTest, FirstLineHasTheAnswerAndTheMainReason) {
  WritePackage("a");
  folder.Write("b.xml", Descriptor("b").Individual());
  folder.Write("c.XML", Package("c").Individual());
  EXPECT_EQ(LinesOfBrief("a", {"--no-kovu-filter"})[0],
            "a: OFFERED. Every filter that runs matches.");
  EXPECT_EQ(LinesOfBrief("a")[0],
            "a: REFUSED by kovu. It was found as an individual descriptor only, not in a pack that "
            "is in use.");
  EXPECT_EQ(
      LinesOfBrief("b", {"--no-kovu-filter", "--no-payload-exist-filter"})[0],
      "b: UNDECIDED: no verdict of platform. \"orderedMachineTypeList\" is missing or empty, so "
      "there is no verdict.");
  EXPECT_THAT(LinesOfBrief("c")[0], StartsWith("c: NO PACKAGE. " + PathOf("c.XML") + " is passed"));
  EXPECT_THAT(LinesOfBrief("none")[0], StartsWith("none: UNKNOWN. No descriptor of the folder"));
}

TEST_F(ExplainBriefTest, PackInUseOrWhyThereIsNone) {
  WritePackage("a");
  EXPECT_EQ(LinesOfBrief("a")[1], "  No pack is used: the folder has none.");
  folder.Write("p.xml", Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"})}));
  EXPECT_EQ(LinesOfBrief("a")[1],
            "  No pack is used: those of the folder name the machine types 5678.");
  folder.Write("q.xml", Pack({PackItself("q.xml"), Package("m").Set("xmlFilename", "m.xml")}));
  EXPECT_EQ(LinesOfBrief("a")[1], "  Pack in use: q.xml, version 1.");
}

TEST_F(ExplainBriefTest, OnlyWhatRefusesIsNamedWithTheLineThatDecided) {
  const std::string text =
      Package("a").For("1234", "11", "9").Set("xmlFilename", "a.xml").Individual();
  folder.Write("a.xml", text);
  const auto lines = LinesOfBrief("a");
  EXPECT_LE(lines.size(), 15U);
  EXPECT_THAT(lines, testing::Contains(StartsWith("  fail platform ")));
  EXPECT_THAT(
      lines, testing::Contains("        " + PathOf("a.xml") + ":" +
                               LineOf(text, "\"orderedMachineTypeList\"", 2) +
                               ": Position 1 has the machine type, but the operating system \"11\" "
                               "instead of 10."));
  for (const std::string& line : lines) {
    EXPECT_EQ(line.find("pass"), std::string::npos) << line;
    EXPECT_EQ(line.find("Rule:"), std::string::npos) << line;
  }
}

TEST_F(ExplainBriefTest, PlaceOfAReplacementIsTheListThatReplaces) {
  WritePackage("a");
  const std::string text = Package("b").Set("supersede", {"a"}).Individual();
  folder.Write("b.xml", text);
  const Json place = ExplainFilter("a", "supersede")["place"];
  EXPECT_EQ(place["file"], PathOf("b.xml"));
  EXPECT_EQ(std::to_string(place["line"].get<int>()), LineOf(text, "\"supersede\"", 1));
  EXPECT_EQ(ExplainFilter("b", "supersede")["place"], Json()) << "it matches";
}

TEST_F(ExplainBriefTest, PlaceOfAPropertyThatIsMissingIsThePackage) {
  const std::string text = Descriptor("b").Individual();
  folder.Write("b.xml", text);
  const Json place = ExplainFilter("b", "platform")["place"];
  EXPECT_EQ(std::to_string(place["line"].get<int>()), LineOf(text, "<INSTANCE", 1));
}

// Of "type" the last one that has a value counts, of a list the last one.
TEST_F(ExplainBriefTest, PlaceIsThatOfThePropertyThatDecided) {
  const std::vector<std::string> none;
  const std::string text = Package("a")
                               .Set("xmlFilename", "a.xml")
                               .Set("payload", "gone.exe")
                               .Set("type", "3")
                               .Set("TYPE", none)
                               .Set("orderedOSList", none)
                               .Individual();
  folder.Write("a.xml", text);
  const auto line = [this](const std::string& filter) {
    const Json place = ExplainFilter("a", filter, {"--update-type", "1"})["place"];
    return std::to_string(place["line"].get<int>());
  };
  EXPECT_EQ(line("payloadExist"), LineOf(text, "gone.exe", 1));
  EXPECT_EQ(line("updateType"), LineOf(text, "\"type\"", 2));
  EXPECT_EQ(line("platform"), LineOf(text, "\"orderedOSList\"", 2));
}

TEST_F(ExplainBriefTest, SeveralIdsAndPatternsAreExplainedOnceEach) {
  for (const char* code : {"drv_a", "drv_b", "utl_c"}) WritePackage(code);
  const Outcome outcome = Run({"utl_c", "drv_*", "drv_a"});
  EXPECT_EQ(outcome.status, 0);
  std::vector<std::string> codes;
  for (const std::string& line : LinesOf(outcome.out)) {
    if (line.find(": REFUSED") != std::string::npos) codes.push_back(line.substr(0, 5));
  }
  EXPECT_THAT(codes, testing::UnorderedElementsAre("utl_c", "drv_a", "drv_b"));
  EXPECT_EQ(codes.front(), "utl_c");

  const Json document = Json::parse(Run({"drv_?", "--format", "json"}).out);
  ASSERT_EQ(document["explanations"].size(), 2U);
  EXPECT_EQ(document["explanations"][0]["answer"], "refused");
}

TEST_F(ExplainBriefTest, OneIdHasTheDocumentOfPackage) {
  WritePackage("a");
  EXPECT_EQ(Run({"a", "--format", "json"}).out, Explain("a", {"--format", "json"}).out);
}

TEST_F(ExplainBriefTest, PatternThatMatchesNothingIsUnknown) {
  WritePackage("a");
  const Outcome outcome = Run({"b*"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, StartsWith("b*: UNKNOWN."));
}

TEST_F(ExplainBriefTest, CodeThatLooksLikeAPatternIsTakenAsItIs) {
  folder.Write("a.xml", Package("a*").Individual());
  WritePackage("ab");
  const Json document = Json::parse(Run({"a*", "--format", "json"}).out);
  ASSERT_EQ(document["explanations"].size(), 1U);
  EXPECT_EQ(document["explanations"][0]["packageId"], "a*");
}

TEST_F(ExplainBriefTest, NeitherIdNorPackageIsRefused) {
  WritePackage("a");
  const Outcome outcome = Run({});
  EXPECT_EQ(outcome.status, 64);
  EXPECT_EQ(outcome.err,
            "querypackage-cli: explain needs an ID, --package or --refused; see \"querypackage-cli "
            "explain "
            "--help\"\n");
}

TEST_F(ExplainBriefTest, AllRefusedPackagesAreExplained) {
  for (const char* code : {"offered", "x", "y", "z"}) WritePackage(code);
  folder.Write("undecided.xml", Descriptor("undecided").Individual());
  const Arguments more{"--no-kovu-filter", "--no-payload-exist-filter", "--refused"};
  const auto run = [&](Arguments arguments) {
    arguments.insert(arguments.begin(), more.begin(), more.end());
    return Run(arguments);
  };
  const Outcome outcome = run({"--exclude", "y", "--exclude", "z"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("y: REFUSED by excludeId."));
  EXPECT_THAT(outcome.out, HasSubstr("z: REFUSED by excludeId."));
  EXPECT_EQ(outcome.out.find("x: "), std::string::npos);
  EXPECT_EQ(outcome.out.find("undecided"), std::string::npos);

  EXPECT_EQ(run({}).out, "The query refuses no package.\n");
  const Json none = Json::parse(run({"--format", "json"}).out);
  EXPECT_EQ(none["explanations"], Json::array());
  EXPECT_EQ(run({"--exclude", "y", "--exit-code"}).status, 10);

  const Json both = Json::parse(run({"--exclude", "y", "--format", "json", "x", "y"}).out);
  ASSERT_EQ(both["explanations"].size(), 2U) << "each once, the ids that are given first";
  EXPECT_EQ(both["explanations"][0]["packageId"], "x");
  EXPECT_EQ(both["explanations"][1]["packageId"], "y");
  const Json one = Json::parse(run({"--exclude", "z", "--format", "json"}).out);
  Json same = Json::parse(Run({"--no-kovu-filter", "--no-payload-exist-filter", "--exclude", "z",
                               "--format", "json", "z"})
                              .out);
  EXPECT_EQ(one["explanations"][0], same);
}

TEST_F(ExplainBriefTest, RefusedQueryHasNoRefusedPackages) {
  const Outcome outcome = Run({"--refused", "--include", "a", "--exclude", "a"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(LinesOf(outcome.err).size(), 1U);
}

TEST_F(ExplainBriefTest, ExitCodeTellsTheAnswer) {
  WritePackage("refused");
  folder.Write("undecided.xml", Descriptor("undecided").Individual());
  folder.Write("absent.XML", Package("absent").Individual());
  const Arguments more{"--no-kovu-filter", "--exit-code"};
  const auto status = [&](Arguments ids) {
    ids.insert(ids.end(), more.begin(), more.end());
    return Run(ids).status;
  };
  EXPECT_EQ(status({"refused"}), 0);
  EXPECT_EQ(status({"refused", "--exclude", "refused"}), 10);
  EXPECT_EQ(status({"undecided", "--no-payload-exist-filter"}), 11);
  EXPECT_EQ(status({"absent"}), 12);
  EXPECT_EQ(status({"unknown"}), 13);
  EXPECT_EQ(status({"unknown", "refused"}), 13);
  EXPECT_EQ(status({"refused", "absent"}), 12);
  EXPECT_EQ(Run({"absent"}).status, 0) << "as ever without it";
}

TEST_F(ExplainBriefTest, RefusedQueryEndsAsEverWithExitCode) {
  EXPECT_EQ(RunCli({"explain", folder.Path(), "a", "--machine-type", "12a4", "--os", "10", "--arch",
                    "9", "--exit-code"})
                .status,
            2);
}

TEST_F(ExplainBriefTest, NoLogRecordIsWrittenUnlessAskedFor) {
  WritePackage("a");
  folder.Write("other.xml", "<a/>");
  EXPECT_EQ(Explain("a").err, "");
  EXPECT_THAT(Explain("a", {"--log-level", "1"}).err, HasSubstr("other.xml is not a valid"));
}

TEST(MatchesPattern, StandsForAnyTextOrOneCharacter) {
  const struct {
    const char* pattern;
    const char* text;
    bool matches;
  } cases[] = {
      {"*", "", true},          {"*", "a", true},       {"?", "", false},      {"?", "a", true},
      {"a*", "a", true},        {"a*", "ba", false},    {"*a", "bba", true},   {"*a", "ab", false},
      {"a*c", "abbc", true},    {"a*c", "abcb", false}, {"a?c", "abc", true},  {"a?c", "ac", false},
      {"**", "x", true},        {"*ab*", "aab", true},  {"*ab*", "ba", false}, {"A*", "a", false},
      {"a*b*c", "abbbc", true}, {"a", "a", true},       {"a", "ab", false},    {"", "", true},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(Cli::MatchesPattern(one.pattern, one.text), one.matches)
        << one.pattern << " and " << one.text;
  }
}

}  // namespace
}  // namespace Vornik::Testing
