// Loading individual descriptors.
#include "query_fixture.h"
#include "reading_of.h"

namespace Vornik::Testing {
namespace {

class PackageLoadingTest : public QueryTest {
 protected:
  void ExpectFailure(const std::string& bytes, const Lines& errors) {
    const std::string path = folder.Write("a.xml", bytes);
    EXPECT_FALSE(imp.LoadPackageXml(ReadingOf(path)));
    EXPECT_EQ(Errors(), errors);
    EXPECT_TRUE(imp.repository.packageXmlEntries().empty());
  }
};

TEST_F(PackageLoadingTest, PathsThatNameNoDescriptorFailWithoutALine) {
  EXPECT_FALSE(imp.LoadPackageXml(ReadingOf("")));
  EXPECT_FALSE(imp.LoadPackageXml(ReadingOf(folder.Write("a.XML", Descriptor("a").Individual()))));
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(PackageLoadingTest, PropertiesAreKeptInDocumentOrder) {
  const std::string path = folder.Write(
      "a.xml", Descriptor("a").Set("preReq", {"x", "y"}).Set("PREREQ", "z").Individual());
  EXPECT_TRUE(imp.LoadPackageXml(ReadingOf(path)));
  EXPECT_EQ(Log(), (Lines{"3 Load Package XML file: " + path, "3 Load Package XML's root node",
                          "3 Get Package XML's property value"}));
  ASSERT_EQ(imp.repository.packageXmlEntries().size(), 1U);
  EXPECT_EQ(imp.repository.packageXmlEntries()[0].xmlFile, path);
  const SupXmlProperties& properties = imp.repository.packageXmlEntries()[0].properties;
  ASSERT_EQ(properties.size(), 3U);
  EXPECT_EQ(properties[1].name, "preReq");
  EXPECT_EQ(properties[1].type, "string");
  EXPECT_EQ(properties[1].values, (Lines{"x", "y"}));
  EXPECT_EQ(properties[2].name, "PREREQ");
}

TEST_F(PackageLoadingTest, MissingFile) {
  const std::string path = PathOf("missing.xml");
  EXPECT_FALSE(imp.LoadPackageXml(ReadingOf(path)));
  EXPECT_EQ(Log(),
            (Lines{"3 Load Package XML file: " + path, "1 Faile to load Package XML: " + path}));
}

// The last code with a value counts, in any case of the property's name.
TEST_F(PackageLoadingTest, OverlongCode) {
  const std::string longest(4'096, 'c');
  const std::string path = folder.Write("b.xml", Descriptor(longest).Individual());
  EXPECT_TRUE(imp.LoadPackageXml(ReadingOf(path)));
  folder.Write("b.xml", Descriptor(longest + "c").Set("identificationcode", "short").Individual());
  EXPECT_TRUE(imp.LoadPackageXml(ReadingOf(path)));
  imp.repository = {};
  ExpectFailure(Descriptor("short").Set("identificationcode", longest + "c").Individual(),
                {"Faile to load Package XML: " + PathOf("a.xml")});
}

TEST_F(PackageLoadingTest, NotWellFormed) {
  ExpectFailure("<a><b></a>", {"Faile to load Package XML: " + PathOf("a.xml")});
}

TEST_F(PackageLoadingTest, EmptyFile) {
  ExpectFailure("", {"Faile to load Package XML: " + PathOf("a.xml")});
}

TEST_F(PackageLoadingTest, OverTheNestingLimit) {
  std::string text;
  for (int i = 0; i < 1001; ++i) text += "<a>";
  for (int i = 0; i < 1001; ++i) text += "</a>";
  ExpectFailure(text, {"Faile to load Package XML: " + PathOf("a.xml")});
}

TEST_F(PackageLoadingTest, NoRootElement) {
  ExpectFailure("<?xml version=\"1.0\"?><!-- nothing -->",
                {"Faile to load Package XML's root node"});
}

TEST_F(PackageLoadingTest, NoProperties) {
  ExpectFailure("<CIM><property NAME='a'/></CIM>", {"Faile to load Package XML's property value"});
}

TEST_F(PackageLoadingTest, PropertyWithoutAValueIsEnough) {
  EXPECT_TRUE(
      imp.LoadPackageXml(ReadingOf(folder.Write("a.xml", "<CIM><PROPERTY NAME='x'/></CIM>"))));
  ASSERT_EQ(imp.repository.packageXmlEntries().size(), 1U);
  ASSERT_EQ(imp.repository.packageXmlEntries()[0].properties.size(), 1U);
  EXPECT_EQ(imp.repository.packageXmlEntries()[0].properties[0].name, "x");
  EXPECT_TRUE(imp.repository.packageXmlEntries()[0].properties[0].values.empty());
}

TEST_F(PackageLoadingTest, PropertiesOutsideAnyInstanceAreRead) {
  EXPECT_TRUE(imp.LoadPackageXml(
      ReadingOf(folder.Write("a.xml", "<PROPERTY NAME='x'><VALUE>1</VALUE></PROPERTY>"))));
  EXPECT_EQ(imp.repository.packageXmlEntries().size(), 1U);
}

TEST_F(PackageLoadingTest, InstanceWithAnotherFirstAttributeDoesNotMatterHere) {
  EXPECT_TRUE(imp.LoadPackageXml(ReadingOf(
      folder.Write("a.xml", "<INSTANCE ID='1' CLASSNAME='c'><PROPERTY NAME='x'/></INSTANCE>"))));
  EXPECT_EQ(imp.repository.packageXmlEntries().size(), 1U);
}

TEST_F(PackageLoadingTest, SameFileTwiceGivesTwoEqualEntries) {
  const std::string path = folder.Write("a.xml", Descriptor("a").Individual());
  EXPECT_TRUE(imp.LoadPackageXml(ReadingOf(path)));
  EXPECT_TRUE(imp.LoadPackageXml(ReadingOf(path)));
  ASSERT_EQ(imp.repository.packageXmlEntries().size(), 2U);
  for (const auto& entry : imp.repository.packageXmlEntries()) {
    EXPECT_EQ(entry.xmlFile, path);
    EXPECT_EQ(GetPropertyValue("identificationCode", entry.properties), "a");
  }
}

}  // namespace
}  // namespace Vornik::Testing
