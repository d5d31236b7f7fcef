// The supersede filter's chain: lists, rankings, and what overrides what. The packages are members
// of a pack, so that their order is the test's.
#include "explain/explain_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class ExplainSupersedeTest : public ExplainTest {
 protected:
  void WritePack(std::vector<Descriptor> members) {
    members.insert(members.begin(), PackItself("p.xml"));
    folder.Write("p.xml", Pack(members));
  }

  std::vector<std::string> Details(const Json& package) {
    return FilterOf(package, "supersede")["details"];
  }

  std::string Text(const Json& package) { return FilterOf(package, "supersede")["text"]; }
  std::string Reason(const Json& package) { return FilterOf(package, "supersede")["reason"]; }
};

Descriptor Member(const std::string& code, const std::string& version = "1") {
  return Package(code).Set("xmlFilename", code + ".xml").Set("Version", version);
}

std::vector<std::string> RankedCodes(const Json& group) {
  std::vector<std::string> codes;
  for (const Json& ranked : group["ranking"]) codes.push_back(ranked["code"]);
  return codes;
}

TEST_F(ExplainSupersedeTest, NothingReplacesAPackageAlone) {
  WritePack({Member("a"), Member("b")});
  const Json package = ExplainPackage("a");
  EXPECT_EQ(Reason(package), "notReplaced");
  EXPECT_EQ(package["supersede"]["listedBy"], Json::array());
  EXPECT_EQ(package["supersede"]["groups"], Json::array());
  EXPECT_EQ(package["supersede"]["listOverridden"], false);
}

TEST_F(ExplainSupersedeTest, ListOfAnotherPackageIsNamedWithItsFileAndSpelling) {
  WritePack({Member("a"), Member("b").Set("supersede", {"A", "gone"})});
  const Json replaced = ExplainPackage("a");
  EXPECT_EQ(Reason(replaced), "replacedByList");
  EXPECT_EQ(Text(replaced), "\"b\" replaces it by its \"supersede\" list.");
  const Json expected = {{{"code", "b"}, {"file", PathOf("p.xml")}, {"spelling", "A"}}};
  EXPECT_EQ(replaced["supersede"]["listedBy"], expected);

  const Json replacing = ExplainPackage("b");
  EXPECT_EQ(Reason(replacing), "keptByList");
  EXPECT_EQ(replacing["supersede"]["lists"], Json::array({"A"}));
  EXPECT_EQ(replacing["supersede"]["listsUnknown"], Json::array({"gone"}));
}

TEST_F(ExplainSupersedeTest, RuleHoldsForAChainOfLists) {
  WritePack(
      {Member("a").Set("supersede", {"b"}), Member("b").Set("supersede", {"c"}), Member("c")});
  EXPECT_EQ(Reason(ExplainPackage("b")), "keptByList");
  EXPECT_THAT(
      FilterOf(ExplainPackage("b"), "supersede")["rule"].get<std::string>(),
      testing::StartsWith("The \"supersede\" lists are applied in byte order of their "
                          "packages' codes: each marks what it names as replaced, then keeps "
                          "its own package."));
}

TEST_F(ExplainSupersedeTest, CodesThatDifferInCaseAreOnePackageOfARanking) {
  WritePack({Member("k", "2.0").Set("driverFiles", {"x-#1"}),
             Member("K", "1.0").Set("driverFiles", {"x-#1"})});
  const Json alone = ExplainPackage("k");
  EXPECT_EQ(Text(alone), "It is ranked with itself alone, under codes that differ only in case.");
  for (const std::string& detail : Details(alone))
    EXPECT_THAT(detail, Not(HasSubstr("this package")));

  WritePack({Member("k", "2.0").Set("driverFiles", {"x-#1"}),
             Member("K", "1.0").Set("driverFiles", {"x-#1"}),
             Member("z", "3.0").Set("driverFiles", {"x-#1"})});
  EXPECT_THAT(Details(ExplainPackage("k")),
              Contains("Ranked as text by the driver file \"x\", the last one is kept: \"2.0\" of "
                       "this package < \"3.0\" of \"z\"."));
  EXPECT_THAT(Text(ExplainPackage("z")), HasSubstr("of the 2 packages with"));
}

TEST_F(ExplainSupersedeTest, OwnListThatIsAppliedLaterKeepsThePackage) {
  WritePack(
      {Member("a").Set("supersede", {"b"}), Member("b").Set("supersede", {"c"}), Member("c")});
  const Json package = ExplainPackage("b");
  EXPECT_EQ(Reason(package), "keptByList");
  EXPECT_THAT(Text(package), HasSubstr("is applied after those that name it"));
  EXPECT_EQ(package["supersede"]["listedBy"][0]["code"], "a");
}

TEST_F(ExplainSupersedeTest, RankingShowsVersionsAsTheyWereCompared) {
  WritePack({Member("new", "10.1").Set("driverFiles", {"x.sys-#1"}),
             Member("old", "9.0").Set("driverFiles", {"X.SYS-#1", "y.sys-#2"}),
             Member("letter", "B1").Set("driverFiles", {"x.sys-#1"})});
  const Json package = ExplainPackage("new");
  EXPECT_EQ(Reason(package), "replacedInGroup");
  EXPECT_EQ(Text(package),
            "\"old\" replaces it: among the packages with the driver file \"x.sys\", its version "
            "\"10.1\" is, as text, smaller than \"9.0\".");
  const Json& groups = package["supersede"]["groups"];
  ASSERT_EQ(groups.size(), 1U);
  EXPECT_EQ(groups[0]["driverFiles"], Json::array({"x.sys"}));
  EXPECT_EQ(RankedCodes(groups[0]), (std::vector<std::string>{"new", "old", "letter"}));
  EXPECT_EQ(groups[0]["ranking"][0]["isThis"], true);
  EXPECT_EQ(groups[0]["ranking"][2]["comparedAs"], "b1");
  EXPECT_THAT(Details(package),
              Contains(HasSubstr("\"10.1\" of this package < \"9.0\" of \"old\" < \"B1\" (as "
                                 "\"b1\") of \"letter\"")));

  const Json kept = ExplainPackage("letter");
  EXPECT_EQ(Reason(kept), "highestOfGroup");
  EXPECT_THAT(Text(kept), HasSubstr("stands last, and so highest, of the 3 packages"));
}

TEST_F(ExplainSupersedeTest, EqualVersionsAreSaidToBeEqual) {
  WritePack({Member("a", "1A").Set("driverFiles", {"x-#1"}),
             Member("b", "1a").Set("driverFiles", {"x-#1"})});
  const Json package = ExplainPackage("a");
  EXPECT_EQ(Reason(package), "replacedInGroup");
  EXPECT_THAT(Text(package), HasSubstr("equal to, and stands before, \"1a\""));
  EXPECT_THAT(Details(package), Contains(HasSubstr("of this package = \"1a\"")));
}

TEST_F(ExplainSupersedeTest, RankingThatOverridesTheListsIsSaidToDoSo) {
  WritePack({Member("new", "10").Set("driverFiles", {"x-#1"}).Set("supersede", {"old"}),
             Member("old", "9").Set("driverFiles", {"x-#1"})});
  for (const char* code : {"new", "old"}) {
    const Json package = ExplainPackage(code);
    EXPECT_EQ(package["supersede"]["listOverridden"], true) << code;
    EXPECT_THAT(Details(package), Contains(HasSubstr("comes after them and overrides them")));
  }
  EXPECT_EQ(Reason(ExplainPackage("old")), "highestOfGroup");

  WritePack({Member("new", "9").Set("driverFiles", {"x-#1"}).Set("supersede", {"old"}),
             Member("old", "8").Set("driverFiles", {"x-#1"})});
  EXPECT_EQ(ExplainPackage("old")["supersede"]["listOverridden"], false) << "both say the same";
}

TEST_F(ExplainSupersedeTest, CategoryThatStandsInForADriverFileIsSaidToDoSo) {
  WritePack({Member("a", "1").Set("category", "Audio"), Member("b", "2").Set("category", "audio")});
  const Json package = ExplainPackage("a");
  EXPECT_EQ(Reason(package), "replacedInGroup");
  EXPECT_THAT(Details(package), Contains(HasSubstr("its category \"Audio\" stands in for one")));
}

TEST_F(ExplainSupersedeTest, PackagesThatAreNotRankedAreNamedWithTheReason) {
  WritePack({Member("a", "1").Set("driverFiles", {"x-#1"}),
             Member("out", "2").Set("driverFiles", {"x-#1"}),
             Member("far", "3").Set("driverFiles", {"x-#1"}).For("5678", "10", "9")});
  const Json package = ExplainPackage("a", {"--exclude", "OUT"});
  EXPECT_EQ(Reason(package), "notReplaced");
  EXPECT_EQ(package["supersede"]["leftOutByExcludeList"], Json::array({"out"}));
  EXPECT_EQ(package["supersede"]["leftOutByPlatform"], Json::array({"far"}));

  const Json far = ExplainPackage("far");
  EXPECT_THAT(Details(far), Contains(HasSubstr("because the platform filter refused it")));
  EXPECT_THAT(Details(ExplainPackage("out", {"--exclude", "out"})),
              Contains("It is not ranked, because it is in the exclude list."));
}

TEST_F(ExplainSupersedeTest, FirstOfTwoCasesTakesWhatIsMeantForTheOther) {
  WritePack({Member("x"), Member("X").Set("supersede", {"y"}), Member("y"),
             Member("z").Set("supersede", {"X"})});
  EXPECT_EQ(Reason(ExplainPackage("x")), "replacedByList");
  const Json second = ExplainPackage("X");
  EXPECT_EQ(Reason(second), "notReplaced");
  EXPECT_THAT(Details(second),
              Contains(HasSubstr("\"x\", which stands first, takes what is meant")));

  WritePack({Member("x"), Member("X").Set("supersede", {"y"}), Member("y")});
  const Json kept = ExplainPackage("x");
  EXPECT_EQ(Reason(kept), "keptByList");
  EXPECT_THAT(Text(kept), HasSubstr("list of \"X\" keeps it"));
}

}  // namespace
}  // namespace Vornik::Testing
