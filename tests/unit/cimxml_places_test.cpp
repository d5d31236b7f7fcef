// What cimxml tells about places, for tools that name them.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "cimxml.h"

namespace Vornik {
namespace {

using namespace std::string_literals;

CimXmlDocument Loaded(const std::string& text) {
  CimXmlDocument document;
  const LoadOutcome outcome =
      document.LoadBytes(text, DescriptorKind::Individual, Positions::Tracked);
  EXPECT_EQ(outcome.fault, LoadFault::None) << text << ": " << outcome.reason;
  return document;
}

std::vector<int> LinesOf(const std::vector<const TiXmlNode*>& nodes) {
  std::vector<int> lines;
  for (const TiXmlNode* node : nodes) lines.push_back(LineOf(*node));
  return lines;
}

TEST(CollectMisfits, GivesEveryInstanceWhoseFirstAttributeIsNotClassname) {
  const CimXmlDocument document = Loaded(
      "<INSTANCE NAME='x' CLASSNAME='y'>\n"
      "<INSTANCE CLASSNAME='y'/>\n"
      "<INSTANCE/>\n"
      "<a><INSTANCE classname='y'/></a>\n"
      "<instance NAME='x'/>\n"
      "</INSTANCE>");
  std::vector<const TiXmlNode*> misfits;
  CollectMisfits(document.Root(), misfits);
  EXPECT_EQ(LinesOf(misfits), (std::vector<int>{1, 4}));
  CollectMisfits(nullptr, misfits);
  EXPECT_EQ(misfits.size(), 2U);
}

TEST(EnclosingInstance, IsTheNearestCollectedOne) {
  const CimXmlDocument document = Loaded(
      "<INSTANCE CLASSNAME='a'>\n"
      "<INSTANCE CLASSNAME='b'>\n"
      "<INSTANCE>\n"
      "<PROPERTY/></INSTANCE></INSTANCE></INSTANCE>");
  std::vector<const TiXmlNode*> elements;
  CollectProperties(document.Root(), elements);
  ASSERT_EQ(elements.size(), 1U);
  const TiXmlNode* inner = EnclosingInstance(*elements.front());
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(LineOf(*inner), 2);
  const TiXmlNode* outer = EnclosingInstance(*inner);
  ASSERT_NE(outer, nullptr);
  EXPECT_EQ(LineOf(*outer), 1);
  EXPECT_EQ(EnclosingInstance(*outer), nullptr);
}

TEST(FirstAttributeOf, IsTheFirstInTheDocument) {
  const CimXmlDocument document = Loaded("<a B='1' A='2'/>");
  EXPECT_EQ(FirstAttributeOf(*document.Root()).name, "B");
  EXPECT_EQ(FirstAttributeOf(*document.Root()).value, "1");
  const CimXmlDocument bare = Loaded("<a/>");
  EXPECT_EQ(FirstAttributeOf(*bare.Root()).name, "");
}

// "line:texts" of each VALUE.
std::vector<std::string> ValuesOf(const std::string& property) {
  const CimXmlDocument document = Loaded(property);
  std::vector<ValueElement> values;
  CollectValues(*document.Root(), values);
  std::vector<std::string> shown;
  for (const ValueElement& value : values) {
    shown.push_back(std::to_string(LineOf(*value.node)) + ":" + std::to_string(value.texts));
  }
  return shown;
}

TEST(CollectValues, GivesTheElementsThatCountWithTheNumberOfTheirTexts) {
  using Shown = std::vector<std::string>;
  EXPECT_EQ(ValuesOf("<PROPERTY>\n<VALUE>a</VALUE>\n<VALUE></VALUE>\n<VALUE>b<!-- -->c</VALUE>\n"
                     "<VALUE.ARRAY><VALUE>d</VALUE></VALUE.ARRAY></PROPERTY>"),
            (Shown{"2:1", "3:0", "4:2"}));
  EXPECT_EQ(ValuesOf("<PROPERTY.ARRAY>\n<VALUE>a</VALUE>\n<VALUE.ARRAY>\n<VALUE>b</VALUE>\n"
                     "</VALUE.ARRAY><VALUE.ARRAY><VALUE><![CDATA[]]></VALUE></VALUE.ARRAY>"
                     "</PROPERTY.ARRAY>"),
            (Shown{"4:1", "5:1"}));
  EXPECT_EQ(ValuesOf("<property><VALUE>a</VALUE></property>"), Shown());
}

TEST(CollectValues, AgreesWithReadProperties) {
  const CimXmlDocument document = Loaded(
      "<r><PROPERTY NAME='p'><VALUE>a<b/>c</VALUE><VALUE/><VALUE>d</VALUE></PROPERTY>"
      "<PROPERTY.ARRAY NAME='q'><VALUE.ARRAY><VALUE>e</VALUE><VALUE><![CDATA[f]]>g</VALUE>"
      "</VALUE.ARRAY></PROPERTY.ARRAY></r>");
  SupXmlProperties properties;
  ReadProperties(document.Root(), properties);
  std::vector<const TiXmlNode*> elements;
  CollectProperties(document.Root(), elements);
  ASSERT_EQ(elements.size(), properties.size());
  for (std::size_t i = 0; i < elements.size(); ++i) {
    std::vector<ValueElement> values;
    CollectValues(*elements[i], values);
    std::size_t texts = 0;
    for (const ValueElement& value : values) texts += value.texts;
    EXPECT_EQ(texts, properties[i].values.size()) << properties[i].name;
    EXPECT_EQ(texts, 3U) << properties[i].name;
  }
}

TEST(FindLostAmpersands, FindsThoseThatBeginNoReference) {
  const struct {
    const char* text;
    std::vector<std::pair<int, int>> places;
  } cases[] = {
      {"<a>R&D</a>", {{1, 5}}},
      {"<a>R&amp;D &lt;&gt;&quot;&apos; &#65; &#x41;</a>", {}},
      {"<a>\r\n &nbsp; &\r\n&&amp;</a>", {{2, 2}, {2, 9}, {3, 1}}},
      {"<a b='x&y'/>", {{1, 8}}},
      {"<a><!-- x & y --><![CDATA[x & y]]></a>", {}},
      {"<a>\xC3\xA9&x</a>", {{1, 5}}},
      {"<a>x</a> & behind the root", {}},
  };
  for (const auto& one : cases) {
    const LostAmpersands lost = FindLostAmpersands(one.text, 10);
    std::vector<std::pair<int, int>> places;
    for (const TextPosition& place : lost.first) places.emplace_back(place.line, place.column);
    EXPECT_EQ(places, one.places) << one.text;
    EXPECT_EQ(lost.count, one.places.size()) << one.text;
  }
}

// A character takes the walk over the zero byte, to line ends that were left as they are.
TEST(FindLostAmpersands, HavePlacesBehindAZeroByte) {
  const LostAmpersands lost = FindLostAmpersands("\xEF\xBB\xBF<a>\xC3\0\r\n &</a>"s, 10);
  ASSERT_EQ(lost.first.size(), 1U);
  EXPECT_EQ(lost.first[0].line, 2);
  EXPECT_EQ(lost.first[0].column, 2);
}

TEST(FindLostAmpersands, AreTheOnesThatAValueLacks) {
  for (const std::string inner : {"a&b", "a&amp;b", "&x;&", "&#38;", "&&"}) {
    const std::string text = "<PROPERTY><VALUE>z" + inner + "</VALUE></PROPERTY>";
    SupXmlProperties properties;
    const CimXmlDocument document = Loaded(text);
    ReadProperties(document.Root(), properties);
    const std::string& value = properties.at(0).values.at(0);
    EXPECT_EQ(FindLostAmpersands(text, 10).count != 0, value.find('&') == std::string::npos)
        << inner;
  }
}

TEST(FindLostAmpersands, KeepsTheFirstPlacesAndCountsAll) {
  const LostAmpersands lost = FindLostAmpersands("<a>& & &\n&</a>", 2);
  EXPECT_EQ(lost.count, 4U);
  ASSERT_EQ(lost.first.size(), 2U);
  EXPECT_EQ(lost.first[1].column, 6);
}

}  // namespace
}  // namespace Vornik
