// Loading packs.
#include "query_fixture.h"
#include "reading_of.h"
#include "text/paths.h"

namespace Vornik::Testing {
namespace {

Descriptor Member(const std::string& xmlFilename) {
  return Descriptor().Set("xmlFilename", xmlFilename);
}

class PackLoadingTest : public QueryTest {
 protected:
  void ExpectFailure(const std::string& bytes, const Lines& errors) {
    EXPECT_FALSE(imp.LoadKovuXml(ReadingOf(folder.Write("P.xml", bytes))));
    EXPECT_EQ(Errors(), errors);
    EXPECT_TRUE(imp.repository.kovuPackEntries().empty());
  }

  Lines MemberFiles(const std::vector<Descriptor>& instances) {
    imp.repository = {};
    EXPECT_TRUE(imp.LoadKovuXml(ReadingOf(folder.Write("P.xml", Pack(instances)))));
    Lines files;
    for (const auto& member : imp.repository.kovuPackEntries().at(0).members)
      files.push_back(member.xmlFile);
    return files;
  }
};

TEST_F(PackLoadingTest, PathsThatNameNoDescriptorFailWithoutALine) {
  EXPECT_FALSE(imp.LoadKovuXml(ReadingOf("")));
  EXPECT_FALSE(imp.LoadKovuXml(ReadingOf(folder.Write("P.XML", Pack({Descriptor("p")})))));
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(PackLoadingTest, OwnInstanceGoesToTheFront) {
  EXPECT_EQ(MemberFiles({Member("m1.xml"), Member("P.xml"), Member("m2.xml")}),
            (Lines{PathOf("P.xml"), PathOf("m1.xml"), PathOf("m2.xml")}));
  const std::string each = "3 Get Kovu's UpdateElement XML's property value";
  EXPECT_EQ(Log(), (Lines{"3 Load Kovu XML file: " + PathOf("P.xml"), "3 Load Kovu XML's root node",
                          each, each, each}));
  EXPECT_EQ(imp.repository.kovuPackEntries()[0].kovuXmlFile, PathOf("P.xml"));
}

TEST_F(PackLoadingTest, LaterOwnInstancesGoInFrontOfEarlierOnes) {
  const Descriptor first = Descriptor().Set("x", "1");
  const Descriptor second = Member("P.xml").Set("x", "2");
  EXPECT_EQ(MemberFiles({Member("m1.xml"), first, second, Member("m2.xml")}),
            (Lines{PathOf("P.xml"), PathOf(""), PathOf("m1.xml"), PathOf("m2.xml")}));
}

TEST_F(PackLoadingTest, SubPathStandsBesideThePack) {
  EXPECT_EQ(MemberFiles({Member("sub/m3.xml")}), Lines{PathInFolder(folder.Path(), "sub/m3.xml")});
}

TEST_F(PackLoadingTest, InstanceWithoutXmlFilenameCountsAsTheOwnOne) {
  EXPECT_EQ(MemberFiles({Member("m1.xml"), Descriptor("x")}),
            (Lines{PathOf(""), PathOf("m1.xml")}));
}

TEST_F(PackLoadingTest, NameInAnotherCaseIsAnOrdinaryMember) {
  EXPECT_EQ(MemberFiles({Member("m1.xml"), Member("p.xml")}),
            (Lines{PathOf("m1.xml"), PathOf("p.xml")}));
}

TEST_F(PackLoadingTest, EveryInstanceEmptyStillGivesAPack) {
  EXPECT_TRUE(
      imp.LoadKovuXml(ReadingOf(folder.Write("P.xml", Pack({Descriptor(), Descriptor()})))));
  ASSERT_EQ(imp.repository.kovuPackEntries().size(), 1U);
  EXPECT_TRUE(imp.repository.kovuPackEntries()[0].members.empty());
  const std::string failed = "Faile to load Kovu's UpdateElement XML's property value";
  EXPECT_EQ(Errors(), (Lines{failed, failed}));
}

TEST_F(PackLoadingTest, InstanceWithAnOverlongCodeIsPassedOver) {
  const auto with = [](const std::string& file, std::size_t length) {
    return Member(file).Set("identificationCode", std::string(length, 'c'));
  };
  EXPECT_EQ(MemberFiles(
                {with("P.xml", 9), with("m1.xml", 4'096), with("m2.xml", 4'097), Member("m3.xml")}),
            (Lines{PathOf("P.xml"), PathOf("m1.xml"), PathOf("m3.xml")}));
  EXPECT_EQ(Errors(), Lines{"Faile to load Kovu's UpdateElement XML's property value"});
}

// It never becomes a record. Of several own instances all but the last one do.
TEST_F(PackLoadingTest, PacksOwnInstanceMayHaveACodeOfAnyLength) {
  const Descriptor own = Member("P.xml").Set("identificationCode", std::string(5'000, 'c'));
  EXPECT_EQ(MemberFiles({own, Member("m1.xml")}), (Lines{PathOf("P.xml"), PathOf("m1.xml")}));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(MemberFiles({own, Member("m1.xml"), own, Descriptor()}),
            (Lines{PathOf("P.xml"), PathOf("m1.xml")}));
  const std::string failed = "Faile to load Kovu's UpdateElement XML's property value";
  EXPECT_EQ(Errors(), (Lines{failed, failed}));
  EXPECT_EQ(MemberFiles({own, Member("P.xml")}), Lines{PathOf("P.xml")});
}

TEST_F(PackLoadingTest, EmptyInstanceIsSkippedAndTheOthersAreLoaded) {
  EXPECT_EQ(MemberFiles({Member("m1.xml"), Descriptor(), Member("m2.xml")}),
            (Lines{PathOf("m1.xml"), PathOf("m2.xml")}));
  EXPECT_EQ(Errors(), Lines{"Faile to load Kovu's UpdateElement XML's property value"});
}

TEST_F(PackLoadingTest, NestedInstanceIsReadIntoBoth) {
  EXPECT_TRUE(imp.LoadKovuXml(ReadingOf(folder.Write(
      "P.xml",
      "<INSTANCE CLASSNAME='a'><PROPERTY NAME='x'><VALUE>1</VALUE></PROPERTY>"
      "<INSTANCE CLASSNAME='b'><PROPERTY NAME='xmlFilename'><VALUE>m.xml</VALUE></PROPERTY>"
      "</INSTANCE></INSTANCE>"))));
  ASSERT_EQ(imp.repository.kovuPackEntries().size(), 1U);
  const auto& members = imp.repository.kovuPackEntries()[0].members;
  ASSERT_EQ(members.size(), 2U);
  EXPECT_EQ(members[0].properties.size(), 2U);
  EXPECT_EQ(members[0].xmlFile, PathOf("m.xml"));
  EXPECT_EQ(members[1].properties.size(), 1U);
}

TEST_F(PackLoadingTest, MissingFile) {
  const std::string path = PathOf("missing.xml");
  EXPECT_FALSE(imp.LoadKovuXml(ReadingOf(path)));
  EXPECT_EQ(Log(), (Lines{"3 Load Kovu XML file: " + path, "1 Faile to load Kovu XML: " + path}));
}

TEST_F(PackLoadingTest, NotWellFormed) {
  ExpectFailure("<a", {"Faile to load Kovu XML: " + PathOf("P.xml")});
}

TEST_F(PackLoadingTest, NoRootElement) {
  ExpectFailure("<!-- nothing -->", {"Faile to load Kovu XML's root node"});
}

TEST_F(PackLoadingTest, NoInstance) {
  ExpectFailure("<CIM><PROPERTY NAME='x'/></CIM>", {"UpdateElements in Kovu is empty"});
}

TEST_F(PackLoadingTest, InstancesWithoutAttributesAreNone) {
  ExpectFailure("<CIM><INSTANCE><PROPERTY NAME='x'/></INSTANCE><INSTANCE/></CIM>",
                {"UpdateElements in Kovu is empty"});
}

TEST_F(PackLoadingTest, TooManyRecordsThroughNestedInstances) {
  std::string text;
  for (int i = 0; i < 900; ++i) text += "<INSTANCE CLASSNAME='c'>";
  for (int i = 0; i < 2300; ++i) text += "<PROPERTY NAME='x'/>";
  for (int i = 0; i < 900; ++i) text += "</INSTANCE>";
  ExpectFailure(text, {"Faile to load Kovu XML: " + PathOf("P.xml")});
}

}  // namespace
}  // namespace Vornik::Testing
