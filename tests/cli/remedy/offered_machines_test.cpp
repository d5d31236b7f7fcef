// Which machines of the folder get a package that the query's machine does not get.
#include "remedy/offered_machines.h"

#include "explain/explain_fixture.h"

namespace Vornik::Testing {
namespace {

using Cli::ListLength;
using testing::Contains;
using testing::HasSubstr;

class OfferedMachinesTest : public ExplainTest {
 protected:
  void Write(const std::string& name, Descriptor package) {
    folder.Write(name, package.Set("xmlFilename", name).Individual());
    folder.Write("payload.exe", "x");
  }

  // The last line of the answer.
  std::string Answer(const std::string& id, const Arguments& more = {"--no-kovu-filter"}) {
    return LinesOf(Explain(id, more).out).back();
  }
};

TEST_F(OfferedMachinesTest, AreThoseOfThePackageThatEveryFilterLetsPass) {
  Write("a.xml", Package("a")
                     .Set("orderedMachineTypeList", {"1234", "5678", "5678"})
                     .Set("orderedOSList", {"11", "10", "12"})
                     .Set("orderedOSArchitectureList", {"9", "9", "9"}));
  Write("b.xml", Package("b").For("5678", "12", "9").Set("supersede", {"a"}));
  EXPECT_EQ(Answer("a"),
            "With the other settings as they are, 2 machines of the folder get it: 1234/11/9, "
            "5678/10/9.");
  EXPECT_EQ(Answer("b"),
            "With the other settings as they are, 1 machine of the folder gets it: 5678/12/9.");
  EXPECT_EQ(Answer("a", {}),
            "With the other settings as they are, no machine of the folder gets it.")
      << "the Kovu filter refuses it everywhere";
}

TEST_F(OfferedMachinesTest, OtherIsWhatTheFolderDoesNotName) {
  Write("a.xml", Package("a").For("1234", "0", "9"));
  Write("b.xml", Package("b").For("1234", "10", "9").Set("supersede", {"a"}));
  EXPECT_EQ(Answer("a"),
            "With the other settings as they are, 1 machine of the folder gets it: 1234/other/9.");
  const Json wayOut = ExplainPackage("a", {"--no-kovu-filter"})["wayOut"];
  EXPECT_EQ(wayOut["machines"], Json::array({{{"machineType", "1234"},
                                              {"osValue", 1},
                                              {"osIsNamed", false},
                                              {"arcValue", 9},
                                              {"arcIsNamed", true}}}));
  EXPECT_EQ(wayOut["machinesComplete"], true);
}

TEST_F(OfferedMachinesTest, MemberOfAnotherPackHasThoseOfThatPack) {
  Write("alone.xml", Package("alone"));
  folder.Write("q.xml", Pack({PackItself("q.xml").Set("applicableMachineTypes", {"5678"}),
                              Package("m")
                                  .Set("orderedMachineTypeList", {"1234", "5678"})
                                  .Set("orderedOSList", {"10", "10"})
                                  .Set("orderedOSArchitectureList", {"9", "9"})
                                  .Set("xmlFilename", "alone.xml")}));
  EXPECT_EQ(Answer("m", {}),
            "With the other settings as they are, 1 machine of the folder gets it: 5678/10/9.");
}

TEST_F(OfferedMachinesTest, ManyAreShortenedButNotInTheLongAnswer) {
  std::vector<std::string> types;
  for (int type = 2000; type < 2012; ++type) types.push_back(std::to_string(type));
  Write("a.xml",
        Package("a")
            .Set("orderedMachineTypeList", types)
            .Set("orderedOSList", std::vector<std::string>(types.size(), "10"))
            .Set("orderedOSArchitectureList", std::vector<std::string>(types.size(), "9")));
  EXPECT_THAT(Answer("a"), HasSubstr("12 machines of the folder get it: 2000/10/9, "));
  EXPECT_THAT(Answer("a"), testing::EndsWith(" 2009/10/9 and 2 more."));
  EXPECT_THAT(Answer("a", {"--no-kovu-filter", "--verbose"}),
              testing::EndsWith(" 2010/10/9, 2011/10/9."));
  EXPECT_EQ(ExplainPackage("a", {"--no-kovu-filter"})["wayOut"]["machines"].size(), 12U);
}

TEST_F(OfferedMachinesTest, OfferedPackageHasNone) {
  Write("a.xml", Package("a"));
  EXPECT_THAT(Explain("a", {"--no-kovu-filter"}).out, testing::Not(HasSubstr("machines")));
  EXPECT_EQ(ExplainPackage("a", {"--no-kovu-filter"})["wayOut"]["machines"], Json::array());
}

TEST(OfferedMachinesTextTest, SaysWhatWasNotTried) {
  EXPECT_EQ(TextOf(Cli::OfferedMachines{{}, false}, ListLength::Short),
            "With the other settings as they are, no machine of the folder was found that gets it; "
            "not all were tried.");
  EXPECT_EQ(
      TextOf(Cli::OfferedMachines{{{"1234", OsValue{10}, ArcValue{9}}}, false}, ListLength::Short),
      "With the other settings as they are, at least 1 machine of the folder gets it: "
      "1234/10/9; not all were tried.");
}

}  // namespace
}  // namespace Vornik::Testing
