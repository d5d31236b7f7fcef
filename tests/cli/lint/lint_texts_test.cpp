// The texts of findings whose wording matters.
#include "lint/lint_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class LintTextTest : public LintTest {
 protected:
  // Packs of these versions, all for machine type 1234 under system 10.
  std::string ChoiceOf(const std::vector<std::string>& versions) {
    for (std::size_t i = 0; i < versions.size(); ++i) {
      const std::string name = "p" + std::to_string(i) + ".xml";
      folder.Write(
          name,
          PackText({PutValue(PutValues(OwnInstance(name), "applicableOperatingSystems", {"10"}),
                             "Version", versions[i])}));
    }
    return TextOf("packs-compete");
  }
};

TEST_F(LintTextTest, OfTwoPacksTheOneListedLastIsUsed) {
  EXPECT_EQ(ChoiceOf({"2.0", "1.0"}),
            "2 packs apply to machine type \"1234\" under operating system 10: p0.xml (\"2.0\"), "
            "p1.xml (\"1.0\"). Of these, p0.xml is used, or p1.xml if the folder's listing has "
            "p0.xml first.");
}

TEST_F(LintTextTest, OfThreePacksTheGreatestTextIsUsedUnlessItIsListedFirst) {
  EXPECT_THAT(ChoiceOf({"10.0", "9.0", "8.0"}),
              EndsWith("Of these, p1.xml is used, or p2.xml if the folder's listing has p1.xml "
                       "first."));
}

TEST_F(LintTextTest, NumbersSayWhatTheyMean) {
  WriteFiles(PackageFiles("a", PutValues(SoundText("a"), "orderedOSList", {"x64"})));
  EXPECT_EQ(
      TextOf("platform-not-number"),
      "This is no number: entry 1 of \"orderedOSList\", \"x64\", means any operating system.");
  WriteFiles(
      PackageFiles("a", PutValues(SoundText("a"), "orderedOSArchitectureList", {"4294967296"})));
  EXPECT_EQ(TextOf("number-out-of-range"),
            "This is out of range: entry 1 of \"orderedOSArchitectureList\", \"4294967296\", means "
            "any architecture.");
  WriteFiles(PackageFiles("a", PutValues(SoundText("a"), "orderedOSList", {"4294967306"})));
  EXPECT_THAT(TextOf("number-out-of-range"), EndsWith("\"4294967306\", reads as 10."));
}

TEST_F(LintTextTest, OneThatDecidesAmongRepeatedPropertiesIsNamed) {
  WriteFiles(PackageFiles("a", Append(SoundText("a"), "type", "")));
  EXPECT_EQ(TextOf("property-repeated"),
            "\"type\" is given 2 times; the last one that has a value decides.");
  WriteFiles(PackageFiles("a", Append(SoundText("a"), "orderedOSList", "")));
  EXPECT_EQ(TextOf("property-repeated"),
            "\"orderedOSList\" is given 2 times; the last one decides.");
}

TEST_F(LintTextTest, LostMemberIsNamed) {
  const std::string own = PutValue(OwnInstance("p.xml"), "xmlFilename", "q.xml");
  folder.Write("p.xml", PackText({own, SoundInstance("m")}));
  EXPECT_THAT(TextOf("pack-own-missing"), HasSubstr("\"code-of-p.xml\", is taken for the pack"));
}

TEST_F(LintTextTest, ShadowNamesTheOtherPlaceAndWhatDiffers) {
  const std::string pack = PackText({OwnInstance("p.xml"), SoundInstance("m")});
  folder.Write("p.xml", pack);
  WriteFiles(PackageFiles("m", PutValue(SoundText("m"), "Version", "2")));
  const std::string place = ValueOf(pack, "identificationCode", 0, 2);
  EXPECT_EQ(TextOf("code-shadowed"), "p.xml, line " + place.substr(0, place.find(':')) +
                                         " describes \"m\" otherwise and decides; they differ in "
                                         "\"Version\".");
}

TEST_F(LintTextTest, ReasonOfTinyXmlIsGiven) {
  folder.Write("a.xml", Replace(SoundText("a"), "</CIM>", ""));
  EXPECT_EQ(TextOf("not-well-formed"), "The document does not load: Error reading end tag.");
}

TEST_F(LintTextTest, LongValuesAreCut) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "type", std::string(100'000, 'x'))));
  EXPECT_LT(TextOf("type-not-number").size(), 200U);
}

}  // namespace
}  // namespace Vornik::Testing
