// How long an answer gets where the folder has much to list.
#include "explain/explain_fixture.h"
#include "remedy/settings_change.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;
using testing::Not;

class ExplainLengthTest : public ExplainTest {
 protected:
  // A pack whose members share a driver file, with ascending versions.
  void WriteDriverGroup(int members) {
    std::vector<Descriptor> instances{PackItself("p.xml")};
    for (int i = 1; i <= members; ++i) {
      instances.push_back(Package("member_" + std::to_string(i))
                              .Set("xmlFilename", "payload.exe")
                              .Set("Version", std::to_string(100'000 + i))
                              .Set("driverFiles", {"x.sys-#1"}));
    }
    folder.Write("p.xml", Pack(instances));
    folder.Write("payload.exe", "x");
  }
};

TEST_F(ExplainLengthTest, LargeDriverGroupHasAShortAnswer) {
  WriteDriverGroup(4000);
  const Outcome outcome = Explain("member_1");
  EXPECT_LE(outcome.out.size(), 1'500U) << outcome.out;
  EXPECT_LE(LinesOf(outcome.out).size(), 15U) << outcome.out;
  EXPECT_THAT(outcome.out, HasSubstr("the last one is kept: after 3990 others, \"103991\" of "
                                     "\"member_3991\" < \"103992\""));
  EXPECT_THAT(outcome.out, HasSubstr("\n  add --exclude for 3999 packages that it is ranked "
                                     "with (--format json has them)\n"));
}

TEST_F(ExplainLengthTest, LongAnswerAndDocumentHaveAll) {
  WriteDriverGroup(12);
  EXPECT_THAT(Explain("member_1").out, Not(HasSubstr("\"member_2\" <")));
  EXPECT_THAT(Explain("member_1", {"--verbose"}).out,
              HasSubstr("kept: \"100001\" of this package < \"100002\" of \"member_2\" <"));
  const Json package = ExplainPackage("member_1");
  EXPECT_THAT(FilterOf(package, "supersede")["details"].dump(), HasSubstr("member_2\\\" <"));
  for (const Json& query : package["wayOut"]["smallest"]) {
    for (const Json& change : query["changes"]) {
      const bool excludes = change["setting"] == "excludePackageIds";
      EXPECT_TRUE(!excludes || change["to"].size() == 11U) << change.dump();
    }
  }
}

TEST_F(ExplainLengthTest, ListsOfTenAreWholeAndLongerOnesAreCut) {
  WritePackage("a");
  Arguments ids;
  for (char id = 'b'; id <= 'k'; ++id) ids.insert(ids.end(), {"--include", std::string(1, id)});
  EXPECT_THAT(Explain("a", ids).out, HasSubstr("\"j\", \"k\"."));
  ids.insert(ids.end(), {"--include", "l"});
  EXPECT_THAT(Explain("a", ids).out, HasSubstr("\"j\", \"k\" and 1 more."));
  ids.emplace_back("--verbose");
  EXPECT_THAT(Explain("a", ids).out, HasSubstr("\"k\", \"l\"."));
}

TEST(SettingsChangeTest, MoreThanFiveIdsAreDescribed) {
  Cli::QuerySettings before;
  Cli::QuerySettings after;
  after.excludePackageIds = {"a", "b", "c", "d", "e"};
  const auto text = [&] { return Cli::ChangesBetween(before, after).front().text; };
  EXPECT_EQ(text(),
            "add --exclude \"a\" --exclude \"b\" --exclude \"c\" --exclude \"d\" --exclude \"e\"");
  after.excludePackageIds.emplace_back("f");
  EXPECT_EQ(text(), "add --exclude for 6 packages that it is ranked with (--format json has them)");
  std::swap(before, after);
  after.excludePackageIds = {"x"};
  EXPECT_EQ(text(),
            "add --exclude \"x\", and leave out --exclude for 6 of its values (--format json has "
            "them)");
}

}  // namespace
}  // namespace Vornik::Testing
