// The smallest change of a query that a package passes, of each kind; what cannot be changed.
#include "explain/explain_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using Texts = std::vector<std::string>;

class RemediesTest : public ExplainTest {
 protected:
  // Writes a pack for machine type 1234 under any system, and the members' descriptor files.
  void WritePack(std::vector<Descriptor> members) {
    members.insert(members.begin(), PackItself("p.xml"));
    folder.Write("p.xml", Pack(members));
    folder.Write("payload.exe", "x");
    folder.Write("member.txt", "x");
  }

  // The texts of all queries that are given, each of which has to be what it promises.
  std::vector<Texts> Found(const std::string& id, const Arguments& more = {}) {
    const Json wayOut = ExplainPackage(id, more)["wayOut"];
    EXPECT_EQ(wayOut["state"], "found") << wayOut.dump(2);
    EXPECT_EQ(wayOut["searchEnded"], false);
    std::vector<Texts> found;
    for (const Json& smallest : wayOut["smallest"]) {
      found.push_back(ChangesOf(smallest));
      EXPECT_EQ(found.back().size(), found.front().size());
      ExpectPasses(smallest, id);
    }
    return found;
  }
};

Descriptor Member(const std::string& code) {
  return Package(code).Set("xmlFilename", "member.txt");
}

TEST_F(RemediesTest, MachineTypeOfThePackage) {
  WritePack({Member("a").For("1235", "10", "9")});
  folder.Write("p.xml", Pack({PackItself("p.xml").Set("applicableMachineTypes", {"1234", "1235"}),
                              Member("a").For("1235", "10", "9")}));
  EXPECT_THAT(Found("a"), ElementsAre(Texts{"--machine-type 1235 instead of 1234"}));
}

TEST_F(RemediesTest, OperatingSystemAndArchitectureOfThePackage) {
  WritePack({Member("os").For("1234", "11", "9"), Member("arch").For("1234", "10", "5"),
             Member("both").For("1234", "11", "5")});
  EXPECT_THAT(Found("os"), ElementsAre(Texts{"--os 11 instead of 10"}));
  EXPECT_THAT(Found("arch"), ElementsAre(Texts{"--arch 5 instead of 9"}));
  EXPECT_THAT(Found("both"), ElementsAre(Texts{"--os 11 instead of 10", "--arch 5 instead of 9"}));
}

TEST_F(RemediesTest, NearestOfSeveralPlatforms) {
  WritePack({Member("a")
                 .Set("orderedMachineTypeList", {"5678", "1234", "1234"})
                 .Set("orderedOSList", {"11", "12", "13"})
                 .Set("orderedOSArchitectureList", {"5", "5", "9"})});
  EXPECT_THAT(Found("a"), ElementsAre(Texts{"--os 13 instead of 10"}));
}

TEST_F(RemediesTest, SystemThatTheFolderDoesNotNameIsTried) {
  WritePack({Member("a").For("1234", "0", "9"),
             Member("b").For("1234", "10", "9").Set("supersede", {"a"})});
  EXPECT_THAT(Found("a"),
              ElementsAre(Texts{"add --no-supersede-filter"}, Texts{"--os 1 instead of 10"}));
}

TEST_F(RemediesTest, UnnamedValueIsThatOfTheQuery) {
  folder.Write("member.txt", "x");
  folder.Write("payload.exe", "x");
  folder.Write("p.xml", Pack({PackItself("p.xml").Set("applicableMachineTypes", {"1234", "5678"}),
                              Member("a").For("5678", "0", "0")}));
  EXPECT_THAT(Found("a"), ElementsAre(Texts{"--machine-type 5678 instead of 1234"}));
}

TEST_F(RemediesTest, SwitchOfEachFilter) {
  WritePackage("alone");
  EXPECT_THAT(Found("alone"), ElementsAre(Texts{"add --no-kovu-filter"}));
  WritePack({Member("orx_utl_sep"), Member("lost").Set("payload", "gone.exe"), Member("old"),
             Member("new").Set("supersede", {"old"})});
  EXPECT_THAT(Found("orx_utl_sep"), ElementsAre(Texts{"add --no-sep-filter"}));
  EXPECT_THAT(Found("lost"), ElementsAre(Texts{"add --no-payload-exist-filter"}));
  EXPECT_THAT(Found("old"), ElementsAre(Texts{"add --no-supersede-filter"}));
}

TEST_F(RemediesTest, ListsOfIdsAndTypes) {
  WritePack({Member("a"), Member("b")});
  EXPECT_THAT(Found("a", {"--include", "b"}),
              ElementsAre(Texts{"add --include \"a\""}, Texts{"no --include at all"}));
  EXPECT_THAT(Found("a", {"--exclude", "A"}), ElementsAre(Texts{"no --exclude at all"}));
  EXPECT_THAT(Found("a", {"--exclude", "A", "--exclude", "b", "--exclude", "a"}),
              ElementsAre(Texts{"leave out --exclude \"A\" --exclude \"a\""}));
  EXPECT_THAT(Found("a", {"--update-type", "2"}),
              ElementsAre(Texts{"add --update-type 1"}, Texts{"no --update-type at all"}));
}

TEST_F(RemediesTest, MissingTypeLeavesNoRequestAtAll) {
  WritePack({Descriptor("a")
                 .For("1234", "10", "9")
                 .Set("xmlFilename", "member.txt")
                 .Set("payload", "payload.exe")});
  EXPECT_THAT(Found("a", {"--update-type", "2"}), ElementsAre(Texts{"no --update-type at all"}));
  const Json wayOut = ExplainPackage("a", {"--update-type", "2"})["wayOut"];
  EXPECT_THAT(wayOut["inTheRepository"][0].get<std::string>(),
              HasSubstr("has no \"type\", which the updateType filter needs."));
}

TEST_F(RemediesTest, ExcludingThePackagesAboveInTheRanking) {
  WritePack({Member("a").Set("driverFiles", {"x-#1"}).Set("Version", "1"),
             Member("b").Set("driverFiles", {"x-#1"}).Set("Version", "3"),
             Member("c").Set("driverFiles", {"x-#1"}).Set("Version", "2"),
             Member("d").Set("driverFiles", {"x-#1"}).Set("Version", "0")});
  const auto found = Found("a");
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found.front(), Texts{"add --exclude \"c\" --exclude \"b\""});
  EXPECT_THAT(found, testing::Contains(Texts{"add --no-supersede-filter"}));
}

TEST_F(RemediesTest, MachineThatChoosesAnotherPack) {
  WritePackage("alone");
  folder.Write("member.txt", "x");
  folder.Write("q.xml", Pack({PackItself("q.xml").Set("applicableMachineTypes", {"5678"}),
                              Member("a")
                                  .Set("orderedMachineTypeList", {"1234", "5678"})
                                  .Set("orderedOSList", {"10", "10"})
                                  .Set("orderedOSArchitectureList", {"9", "9"})}));
  const Json document = ExplainJson("a");
  const Json& wayOut = document["absenceWayOut"];
  EXPECT_EQ(wayOut["state"], "found");
  EXPECT_EQ(wayOut["code"], "a");
  ASSERT_THAT(wayOut["smallest"], SizeIs(1));
  EXPECT_EQ(ChangesOf(wayOut["smallest"][0]), Texts{"--machine-type 5678 instead of 1234"});
  ExpectPasses(wayOut["smallest"][0], "a");
}

TEST_F(RemediesTest, SystemThatOnlyThePackNamesIsTried) {
  folder.Write("member.txt", "x");
  folder.Write("payload.exe", "x");
  folder.Write("p.xml", Pack({PackItself("p.xml").Set("applicableOperatingSystems", {"77"}),
                              Member("a").For("1234", "0", "0")}));
  const Json wayOut = ExplainJson("a")["absenceWayOut"];
  ASSERT_EQ(wayOut["state"], "found");
  EXPECT_EQ(ChangesOf(wayOut["smallest"][0]), Texts{"--os 77 instead of 10"});
  ExpectPasses(wayOut["smallest"][0], "a");
}

TEST_F(RemediesTest, SeveralChangesAtOnce) {
  folder.Write("orx_utl_sep.xml", Package("orx_utl_sep")
                                      .For("5678", "11", "5")
                                      .Set("payload", "gone.exe")
                                      .Set("type", "4")
                                      .Set("xmlFilename", "orx_utl_sep.xml")
                                      .Individual());
  const auto found =
      Found("orx_utl_sep", {"--update-type", "1", "--include", "x", "--exclude", "orx_utl_sep"});
  EXPECT_THAT(found, SizeIs(3)) << "of four, as type and include list may be added to or left out";
  EXPECT_THAT(found.front(), ElementsAre("--machine-type 5678 instead of 1234",
                                         "--os 11 instead of 10", "--arch 5 instead of 9",
                                         "add --update-type 4", "add --include \"orx_utl_sep\"",
                                         "no --exclude at all", "add --no-kovu-filter",
                                         "add --no-sep-filter", "add --no-payload-exist-filter"));
}

TEST_F(RemediesTest, ChangeIsGivenAsDataToo) {
  WritePack({Member("a").For("1234", "11", "9").Set("type", "3")});
  const Json wayOut = ExplainPackage("a", {"--update-type", "1"})["wayOut"];
  const Json expected = {
      {{"setting", "osValue"}, {"from", 10}, {"to", 11}, {"text", "--os 11 instead of 10"}},
      {{"setting", "updateTypes"},
       {"from", Json::array({1})},
       {"to", {1, 3}},
       {"text", "add --update-type 3"}}};
  EXPECT_EQ(wayOut["smallest"][0]["changes"], expected);
  EXPECT_EQ(wayOut["smallest"][0]["arguments"],
            Json({"query", "--machine-type", "1234", "--os", "11", "--arch", "9", "--update-type",
                  "1", "--update-type", "3", "--", folder.Path()}));
}

TEST_F(RemediesTest, NothingHelpsWhereTheDescriptorLacksAList) {
  WritePack({Member("a").Set("orderedOSList", std::vector<std::string>())});
  const Json wayOut = ExplainPackage("a")["wayOut"];
  EXPECT_EQ(wayOut["state"], "none");
  EXPECT_EQ(wayOut["smallest"], Json::array());
  EXPECT_EQ(wayOut["inTheRepository"],
            Json::array(
                {PathOf("p.xml") + " has no \"orderedOSList\", which the platform filter needs."}));
}

TEST_F(RemediesTest, NothingHelpsWhereNoMachineTypeCanBeAskedFor) {
  WritePack({Member("a").For("Desk 1234", "10", "9")});
  const Json wayOut = ExplainPackage("a")["wayOut"];
  EXPECT_EQ(wayOut["state"], "none");
  EXPECT_EQ(wayOut["inTheRepository"],
            Json::array({"The ordered lists of " + PathOf("p.xml") +
                         " name no machine type of four digits, but \"Desk 1234\"."}));
}

TEST_F(RemediesTest, NothingHelpsAPackageWithoutACode) {
  folder.Write("a.xml", Descriptor().For("1234", "10", "9").Individual());
  const Json wayOut = ExplainPackage("")["wayOut"];
  EXPECT_EQ(wayOut["state"], "none");
  EXPECT_THAT(wayOut["inTheRepository"], SizeIs(1));
}

TEST_F(RemediesTest, NothingHelpsAMemberOfAPackThatNoMachineOfItsOwnChooses) {
  WritePackage("other");
  folder.Write("p.xml",
               Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"}), Member("a")}));
  const Json wayOut = ExplainJson("a")["absenceWayOut"];
  EXPECT_EQ(wayOut["state"], "none");
  EXPECT_THAT(wayOut["inTheRepository"].dump(), HasSubstr("is the one in use"));
}

TEST_F(RemediesTest, MissingPayloadIsNamedBesideTheSwitch) {
  WritePack({Member("a").Set("payload", "gone.exe")});
  EXPECT_EQ(ExplainPackage("a")["wayOut"]["inTheRepository"],
            Json::array({PathOf("gone.exe") + " is no regular file, but \"payload\" in " +
                         PathOf("p.xml") + " names it."}));
}

TEST_F(RemediesTest, QueryThatWouldEndTheProcessIsNotTried) {
  WritePackage("other");
  folder.Write("member.txt", "x");
  folder.Write("q.xml", Pack({PackItself("q.xml").Set("applicableMachineTypes", {"5678"}),
                              Member("a").For("5678", "10", "9"),
                              Member("bad")
                                  .Set("driverFiles", {"x-#1", "y-#1"})
                                  .Set("driverFilesClassification", {"one"})}));
  for (const Arguments& more : {Arguments{}, {"--trust"}}) {
    const Json document = ExplainJson("a", more);
    EXPECT_EQ(document["absenceWayOut"]["state"], "none");
  }
}

TEST_F(RemediesTest, ListsWithOneIdInBothAreNotGiven) {
  WritePack({Member("a").Set("driverFiles", {"x-#1"}).Set("Version", "1"),
             Member("b").Set("driverFiles", {"x-#1"}).Set("Version", "2")});
  for (const Texts& changes : Found("a", {"--include", "a", "--include", "b"})) {
    EXPECT_NE(changes, Texts{"add --exclude \"b\""});
  }
}

TEST_F(RemediesTest, SearchThatEndsEarlySaysSo) {
  std::vector<std::string> types;
  for (int type = 2000; type < 2400; ++type) types.push_back(std::to_string(type));
  const std::vector<std::string> any(types.size(), "0");
  const auto member = [&](const std::string& code, const std::string& version) {
    return Member(code)
        .Set("orderedMachineTypeList", types)
        .Set("orderedOSList", any)
        .Set("orderedOSArchitectureList", any)
        .Set("driverFiles", {"x-#1"})
        .Set("Version", version);
  };
  folder.Write("member.txt", "x");
  folder.Write("payload.exe", "x");
  folder.Write("a.xml", member("a", "1").Individual());
  folder.Write("b.xml", member("b", "2").Individual());
  const Json wayOut = ExplainPackage("a", {"--no-kovu-filter"})["wayOut"];
  EXPECT_EQ(wayOut["state"], "found");
  EXPECT_EQ(wayOut["searchEnded"], true) << "each machine type alone fails, and there are many";
  for (const Json& smallest : wayOut["smallest"]) {
    EXPECT_THAT(ChangesOf(smallest), SizeIs(2));
    ExpectPasses(smallest, "a");
  }
}

TEST_F(RemediesTest, TriedQueriesAreNotLogged) {
  WritePackage("a");
  const Outcome outcome = Explain("a", {"--log-level", "3"});
  ASSERT_EQ(outcome.status, 0);
  std::size_t starts = 0;
  for (const std::string& line : LinesOf(outcome.err)) {
    if (line.find("Check parameter validity - Start") != std::string::npos) ++starts;
  }
  EXPECT_EQ(starts, 1U);
}

}  // namespace
}  // namespace Vornik::Testing
