#include "inspection/dropped_ampersands.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "reading/cimxml.h"

namespace Vornik {
namespace {

using namespace std::string_literals;

TEST(FindDroppedAmpersands, FindsThoseThatBeginNoReference) {
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
      {"<a>x</a> & after the root", {}},
  };
  for (const auto& one : cases) {
    const DroppedAmpersands dropped = FindDroppedAmpersands(one.text, 10);
    std::vector<std::pair<int, int>> places;
    for (const TextPosition& place : dropped.first) places.emplace_back(place.line, place.column);
    EXPECT_EQ(places, one.places) << one.text;
    EXPECT_EQ(dropped.count, one.places.size()) << one.text;
  }
}

// A character takes the walk over the zero byte, to line ends that were left as they are.
TEST(FindDroppedAmpersands, HavePlacesAfterAZeroByte) {
  const DroppedAmpersands dropped = FindDroppedAmpersands("\xEF\xBB\xBF<a>\xC3\0\r\n &</a>"s, 10);
  ASSERT_EQ(dropped.first.size(), 1U);
  EXPECT_EQ(dropped.first[0].line, 2);
  EXPECT_EQ(dropped.first[0].column, 2);
}

TEST(FindDroppedAmpersands, AreTheOnesThatAValueLacks) {
  for (const std::string inner : {"a&b", "a&amp;b", "&x;&", "&#38;", "&&"}) {
    const std::string text = "<PROPERTY><VALUE>z" + inner + "</VALUE></PROPERTY>";
    CimXmlDocument document;
    document.Parse(PrepareXml(text), DescriptorKind::Individual, Positions::Ignored);
    const SupXmlProperties properties = ReadProperties(document.Root());
    const std::string& value = properties.at(0).values.at(0);
    EXPECT_EQ(FindDroppedAmpersands(text, 10).count != 0, value.find('&') == std::string::npos)
        << inner;
  }
}

TEST(FindDroppedAmpersands, KeepsTheFirstPlacesAndCountsAll) {
  const DroppedAmpersands dropped = FindDroppedAmpersands("<a>& & &\n&</a>", 2);
  EXPECT_EQ(dropped.count, 4U);
  ASSERT_EQ(dropped.first.size(), 2U);
  EXPECT_EQ(dropped.first[1].column, 6);
}

}  // namespace
}  // namespace Vornik
