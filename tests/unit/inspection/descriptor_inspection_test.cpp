// What an inspection finds beside the reading.
#include "inspection/descriptor_inspection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reading_of.h"
#include "temp_folder.h"

namespace Vornik {
namespace {

const std::string individual = "<!-- SystemUpdateElement -->\n";
const std::string pack = "<!-- ORXQDL_SystemUpdateProduct -->\n";

DescriptorInspection Inspect(const std::string& bytes) {
  const Testing::TempFolder folder;
  return InspectDescriptor(folder.Write("d.xml", bytes));
}

std::vector<int> LinesOf(const std::vector<InstanceWithoutClassName>& instances) {
  std::vector<int> lines;
  for (const auto& instance : instances) lines.push_back(instance.place.line);
  return lines;
}

TEST(InspectDescriptor, FindsEveryInstanceWhoseFirstAttributeIsNotClassname) {
  const std::string document =
      "<INSTANCE NAME='x' CLASSNAME='y'>\n"
      "<INSTANCE CLASSNAME='y'/>\n"
      "<INSTANCE/>\n"
      "<a><INSTANCE classname='y'/></a>\n"
      "<instance NAME='x'/>\n"
      "</INSTANCE>";
  for (const std::string& marker : {individual, pack}) {
    const DescriptorInspection inspection = Inspect(marker + document);
    EXPECT_EQ(LinesOf(inspection.instancesWithoutClassName), (std::vector<int>{2, 5}));
    EXPECT_EQ(inspection.instancesWithoutClassName.at(0).firstAttribute, "NAME");
    EXPECT_EQ(inspection.instancesWithoutClassName.at(1).firstAttribute, "classname");
  }
  EXPECT_EQ(Inspect(pack + document).reading.fault, DescriptorFault::InstanceWithoutClassName);
  EXPECT_EQ(Inspect(individual + document).reading.fault, DescriptorFault::NoProperties);
}

TEST(InspectDescriptor, KnowsTheNearestInstanceAroundAnother) {
  const auto packages = Inspect(pack +
                                "<INSTANCE CLASSNAME='a'>\n"
                                "<INSTANCE CLASSNAME='b'>\n"
                                "<INSTANCE>\n"
                                "<INSTANCE CLASSNAME='c'><PROPERTY/></INSTANCE>"
                                "</INSTANCE></INSTANCE></INSTANCE>")
                            .packages;
  ASSERT_EQ(packages.size(), 3U);
  EXPECT_EQ(packages[0].outerLine, std::nullopt);
  EXPECT_EQ(packages[1].outerLine, 2);
  EXPECT_EQ(packages[2].outerLine, 3);
  EXPECT_EQ(packages[2].className, "c");
  EXPECT_EQ(packages[2].place.line, 5);
}

TEST(InspectDescriptor, KeepsInstancesWithoutPropertiesInOrder) {
  const auto packages = Inspect(pack +
                                "<r>\n<INSTANCE CLASSNAME='a'/>\n"
                                "<INSTANCE CLASSNAME='b'><PROPERTY NAME='x'/></INSTANCE>\n"
                                "<INSTANCE CLASSNAME='c'/></r>")
                            .packages;
  ASSERT_EQ(packages.size(), 3U);
  EXPECT_TRUE(packages[0].properties.empty());
  ASSERT_EQ(packages[1].properties.size(), 1U);
  EXPECT_EQ(packages[1].properties[0].name, "x");
  EXPECT_EQ(packages[1].places.at(0)->place.line, 4);
  EXPECT_TRUE(packages[2].properties.empty());
}

TEST(InspectDescriptor, AnIndividualDescriptorIsWhereItsFirstInstanceIs) {
  const std::string property = "<PROPERTY NAME='x'/>";
  EXPECT_EQ(Inspect(individual + "<r>\n<INSTANCE CLASSNAME='a'>" + property + "</INSTANCE></r>")
                .packages.at(0)
                .place.line,
            3);
  EXPECT_EQ(Inspect(individual + "<r>\n<INSTANCE NAME='a'>" + property + "</INSTANCE></r>")
                .packages.at(0)
                .place.line,
            2);
}

// "line:texts" of each VALUE.
std::vector<std::string> ValuesOf(const std::string& property) {
  std::vector<std::string> shown;
  const DescriptorInspection inspection = Inspect(individual + property);
  if (inspection.packages.empty()) return shown;
  for (const PlacedValue& value : inspection.packages.at(0).places.at(0)->values) {
    shown.push_back(std::to_string(value.place.line) + ":" + std::to_string(value.texts));
  }
  return shown;
}

TEST(PlacedValues, AreTheElementsThatCountWithTheNumberOfTheirTexts) {
  using Shown = std::vector<std::string>;
  EXPECT_EQ(ValuesOf("<PROPERTY>\n<VALUE>a</VALUE>\n<VALUE></VALUE>\n<VALUE>b<!-- -->c</VALUE>\n"
                     "<VALUE.ARRAY><VALUE>d</VALUE></VALUE.ARRAY></PROPERTY>"),
            (Shown{"3:1", "4:0", "5:2"}));
  EXPECT_EQ(ValuesOf("<PROPERTY.ARRAY>\n<VALUE>a</VALUE>\n<VALUE.ARRAY>\n<VALUE>b</VALUE>\n"
                     "</VALUE.ARRAY><VALUE.ARRAY><VALUE><![CDATA[]]></VALUE></VALUE.ARRAY>"
                     "</PROPERTY.ARRAY>"),
            (Shown{"5:1", "6:1"}));
  EXPECT_EQ(ValuesOf("<property><VALUE>a</VALUE></property>"), Shown());
}

TEST(PlacedValues, AgreeWithTheProperties) {
  const auto packages = Inspect(individual +
                                "<r><PROPERTY NAME='p'><VALUE>a<b/>c</VALUE><VALUE/><VALUE>d"
                                "</VALUE></PROPERTY><PROPERTY.ARRAY NAME='q'><VALUE.ARRAY><VALUE>e"
                                "</VALUE><VALUE><![CDATA[f]]>g</VALUE></VALUE.ARRAY>"
                                "</PROPERTY.ARRAY></r>")
                            .packages;
  ASSERT_EQ(packages.size(), 1U);
  ASSERT_EQ(packages[0].properties.size(), 2U);
  ASSERT_EQ(packages[0].places.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    std::size_t texts = 0;
    for (const PlacedValue& value : packages[0].places[i]->values) texts += value.texts;
    EXPECT_EQ(texts, packages[0].properties[i].values.size()) << packages[0].properties[i].name;
    EXPECT_EQ(texts, 3U) << packages[0].properties[i].name;
  }
}

TEST(InspectDescriptor, HasTheBytesAndTheTargetsKind) {
  const std::string hidden = "<a/>\x1A<!-- SystemUpdateElement -->";
  const Testing::TempFolder folder;
  const std::string path = folder.Write("d.xml", hidden);
  EXPECT_EQ(InspectDescriptor(path, TextMode::Posix).reading.kind, DescriptorKind::Individual);
  const DescriptorInspection onWindows = InspectDescriptor(path, TextMode::Windows);
  EXPECT_EQ(onWindows.reading.fault, DescriptorFault::NoMarker);
  EXPECT_EQ(onWindows.bytes, hidden);
}

TEST(ReadDescriptor, GivesWhatAnInspectionPlaces) {
  const Testing::TempFolder folder;
  const std::string path =
      folder.Write("d.xml", pack +
                                "<r><INSTANCE CLASSNAME='a'><PROPERTY NAME='x'/></INSTANCE>"
                                "<INSTANCE CLASSNAME='b'/></r>");
  const DescriptorReading reading = ReadDescriptor(path, boost::filesystem::regular_file);
  EXPECT_EQ(reading.kind, DescriptorKind::Pack);
  EXPECT_EQ(reading.fault, DescriptorFault::None);
  EXPECT_EQ(reading.properties.size(), 1U);
  EXPECT_THAT(reading.emptyInstances, testing::ElementsAre(1U));
}

}  // namespace
}  // namespace Vornik
