#include "inspection/xml_places.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "inspection/descriptor_inspection.h"

namespace Vornik {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

std::string Repeat(const std::string& text, std::size_t times) {
  std::string repeated;
  repeated.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

CimXmlDocument Placed(const std::string& text) {
  CimXmlDocument document;
  PreparedXml xml = PrepareXml(text);
  const Positions positions = PositionsIn(xml);
  document.Parse(std::move(xml), DescriptorKind::Individual, positions);
  return document;
}

DescriptorReading FaultOf(const std::string& text, DescriptorKind kind) {
  const PreparedXml xml = PrepareXml(text);
  CimXmlDocument document;
  const ParseOutcome outcome = document.Parse(xml, kind, PositionsIn(xml));
  EXPECT_NE(outcome.fault, DescriptorFault::None) << text.substr(0, 200);
  DescriptorReading reading;
  reading.fault = outcome.fault;
  reading.parserText = outcome.parserText;
  reading.line = outcome.line;
  reading.column = outcome.column;
  PlaceFault(xml, reading);
  return reading;
}

TEST(EndsInsideCharacter, GoesByTheLeadByte) {
  const std::pair<std::string_view, bool> cases[] = {
      {""sv, false},
      {"a"sv, false},
      {"\xC3\xA9"sv, false},
      {"\xC3"sv, true},
      {"\xC3\xA9>"sv, false},
      {"\xE2\x82\xAC"sv, false},
      {"\xE2\x82"sv, true},
      {"\xEF>"sv, true},
      {"\xF0\x9F\x98\x80"sv, false},
      {"\xF0\x9F\x98"sv, true},
      {"\xF4>>"sv, true},
      {"\xF5>>"sv, false},
      {"\xC1"sv, false},
      {"\xC2"sv, true},
      {"\x80"sv, false},
      {"\xF0>>>"sv, false},
  };
  for (const auto& [text, inside] : cases) {
    EXPECT_EQ(EndsInsideCharacter(std::string(text), text.size()), inside)
        << testing::PrintToString(text);
  }
}

TEST(FailureOffset, IsWhatHasNoEndOrTheEndOfTheLastThing) {
  const std::pair<std::string_view, std::size_t> cases[] = {
      {"", 0},
      {" ", 0},
      {"text", 0},
      {" <a/> ", 5},
      {"<a> b </a>\n", 10},
      {"<a> b", 4},
      {"<a> b &#xZ; c</a>", 6},
      {"<a> b &#x; c</a>", 16},
      {"<a> b &#65 c</a>", 6},
      {"<a>&bogus; &#65; &#q;</a>", 17},
      {"<a><!-- b", 3},
      {"<a><![CDATA[b]></a>", 3},
      {"<a><b x='1></a>", 3},
      {"<a></b></a>", 3},
      {"<a/><!DOCTYPE b", 4},
  };
  for (const auto& [text, stop] : cases) {
    const std::string padded = std::string(text) + std::string(xmlTextPadding, '\0');
    EXPECT_EQ(FailureOffset(padded), stop) << text;
  }
}

TEST(FailureOffset, IsTheElementThatExceedsALimit) {
  struct Case {
    std::string_view text;
    std::size_t offset;
  };
  const Case cases[] = {
      {"<a><b><c/></b></a>"sv, 6},
      {"<a><b><c"sv, 6},
      {"<a x='1' y='2' z='3'/>"sv, 0},
      {"<a><b x=1 y=2 z=3></b></a>"sv, 3},
      {"<a x='1' y='2' z='3' "sv, 0},
      {"<a/><a/><a><b><c>"sv, 14},
      {"<a>&lt;b<b>&<c>"sv, 12},
      {"<a><b>&#65;<c>"sv, 11},
      {"<a><b>text &unknown; <c>"sv, 21},
      {"<a ><b\n>\t<c>"sv, 9},
      {"<A><B></B ><C><_>"sv, 14},
      {"<a><b>\xE2<c><d>"sv, 7},
      {"<?xml encoding='latin1'?><a><b>\xE2<c>"sv, 32},
      {"<?xml encoding='utf'?><a><b>\xE2<c>"sv, 29},
      {"<?xml encoding='l'?><?xml encoding='utf8'?><a><b>\xE2<c>"sv, 50},
      {"<a><?xml encoding='utf8'?><b>\xE2<c>"sv, 30},
      {"\xEF\xBB\xBF<a><b>\xF5<c>"sv, 10},
      {"\xEF\xBB\xBF<a><b>\xC1<c>"sv, 10},
      {"\xEF\xBB\xBF \xEF\xBF\xBE\xEF\xBF\xBF<a><b><c>"sv, 16},
      {"\xEF\xBB\xBF<a><b>\xC3\0<c>"sv, 11},
      {"<![CDATA[ ]]><a><![CDATA[]]]]><b><c>"sv, 33},
      {"<a><b><?xml version='<>' ?><c>"sv, 27},
      {"<a><b><\xC3\xA9>"sv, 6},
  };
  for (const Case& c : cases) {
    const std::string padded = std::string(c.text) + std::string(xmlTextPadding, '\0');
    EXPECT_EQ(FailureOffset(padded, {2, 2}), c.offset) << testing::PrintToString(c.text);
  }
}

TEST(Faults, SayWhatAndWhere) {
  struct Case {
    std::string text;
    const char* reason;
    int line;
    int column;
  };
  std::string attributes = "<a>\r\n\xC3\xA9<b";
  for (int i = 0; i <= 256; ++i) attributes += " n" + std::to_string(i) + "=''";
  const Case cases[] = {
      {Repeat("<a>", 1'001), "elements are nested more than 1,000 deep", 1, 3'001},
      {Repeat("<a>\r\n", 1'000) + "\t<b/>", "elements are nested more than 1,000 deep", 1'001, 2},
      {attributes + "/></a>", "an element has more than 256 attributes", 2, 2},
      {"<r>" + Repeat("<INSTANCE CLASSNAME=''>", 998) + Repeat("<PROPERTY/>", 2'005) +
           Repeat("</INSTANCE>", 998) + "</r>",
       "the document gives more than 2,000,000 property records", 0, 0},
  };
  for (const Case& c : cases) {
    const DescriptorReading reading = FaultOf(c.text, DescriptorKind::Pack);
    EXPECT_EQ(FaultText(reading), c.reason);
    EXPECT_EQ(reading.line, c.line) << c.reason;
    EXPECT_EQ(reading.column, c.column) << c.reason;
  }
}

TEST(Positions, AreKnownWhereTheyAreTracked) {
  struct Case {
    std::string text;
    int line;
    int column;
  };
  const Case cases[] = {
      {"<a/>", 1, 1},
      {"\r\n  <a/>", 2, 3},
      {"\r\t<a/>", 2, 2},
      {"<!--\xC3\xA9--><a/>", 1, 10},
      {"\xEF\xBB\xBF<!--\xC3\xA9--><a/>", 1, 9},
      {"<a/>\xC3", 0, 0},
      {"<a/>\xEF", 0, 0},
      {"<a/>\xEF\x80", 0, 0},
      {"\xEF\xBB\xBF<a/>\xEF", 0, 0},
      {"\xEF\xBB\xBF<a/>\xEF\xBB\0 "s, 0, 0},
  };
  for (const Case& c : cases) {
    const CimXmlDocument tracked = Placed(c.text);
    ASSERT_NE(tracked.Root(), nullptr);
    EXPECT_EQ(PlaceOf(*tracked.Root()).line, c.line) << testing::PrintToString(c.text);
    EXPECT_EQ(PlaceOf(*tracked.Root()).column, c.column) << testing::PrintToString(c.text);
    CimXmlDocument ignored;
    ignored.Parse(PrepareXml(c.text), DescriptorKind::Individual, Positions::Ignored);
    EXPECT_EQ(PlaceOf(*ignored.Root()).line, 0);
    EXPECT_EQ(PlaceOf(*ignored.Root()).column, 0);
  }
}

TEST(Faults, HaveAPlace) {
  struct Case {
    std::string text;
    int line;
    int column;
  };
  const Case cases[] = {
      {"<a>\n  <b></c>\n</a>", 2, 6},
      {"<a x/>", 1, 5},
      {"<a>\r\n<?xml version='1.0' ", 2, 1},
      // TinyXML names no place for these.
      {"text", 1, 1},
      {"<a>\n<b>\xEF", 2, 4},
      {"<a>\n<!-- b ->", 2, 1},
      {"<a>\r\n\t<![CDATA[ b ]>", 2, 2},
      {"<a>b\n c &#xZ; d</a>", 2, 4},
      {"<a>&amp; &#65;&#65 d</a>", 1, 15},
      {"<a>\n<b/>", 2, 5},
  };
  for (const Case& c : cases) {
    const DescriptorReading reading = FaultOf(c.text, DescriptorKind::Individual);
    EXPECT_EQ(reading.line, c.line) << testing::PrintToString(c.text);
    EXPECT_EQ(reading.column, c.column) << testing::PrintToString(c.text);
  }
}

}  // namespace
}  // namespace Vornik
