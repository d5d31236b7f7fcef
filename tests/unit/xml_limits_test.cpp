#include "xml_limits.h"

#include <gtest/gtest.h>
#include <tinyxml.h>

#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "plain_cimxml.h"
#include "random_pick.h"
#include "random_xml.h"

namespace Vornik {

static void PrintTo(XmlLimitFault fault, std::ostream* out) {
  *out << (fault == XmlLimitFault::None            ? "None"
           : fault == XmlLimitFault::NestedTooDeep ? "NestedTooDeep"
                                                   : "TooManyAttributes");
}

namespace {

using namespace std::string_view_literals;
using Testing::RandomPick;

constexpr auto None = XmlLimitFault::None;
constexpr auto NestedTooDeep = XmlLimitFault::NestedTooDeep;
constexpr auto TooManyAttributes = XmlLimitFault::TooManyAttributes;

XmlOutline Outline(std::string_view text, const XmlLimits& limits = {}) {
  std::string padded(text);
  padded.append(xmlTextPadding, '\0');
  const XmlOutline walked = OutlineXml(padded.data(), limits);
  // The way around the walk has to give the same, for every text of these tests.
  const XmlOutline outline = OutlineXml(padded.data(), padded.size(), limits);
  EXPECT_EQ(outline.fault, walked.fault) << testing::PrintToString(text.substr(0, 200));
  EXPECT_EQ(outline.offset, walked.offset) << testing::PrintToString(text.substr(0, 200));
  EXPECT_EQ(outline.unfinishedDeclaration, walked.unfinishedDeclaration)
      << testing::PrintToString(text.substr(0, 200));
  return outline;
}

std::string Nested(std::size_t depth) {
  std::string text;
  for (std::size_t i = 0; i < depth; ++i) text += "<a>";
  for (std::size_t i = 0; i < depth; ++i) text += "</a>";
  return text;
}

std::string WithAttributes(std::size_t count) {
  std::string text = "<a";
  for (std::size_t i = 0; i < count; ++i) text += " n" + std::to_string(i) + "=''";
  return text + "/>";
}

TEST(XmlLimits, StandWhereTheyAreSet) {
  const std::pair<std::string, XmlLimitFault> cases[] = {
      {Nested(1'000), None},
      {Nested(1'001), NestedTooDeep},
      {std::string("<!-- -->") + Nested(1'001), NestedTooDeep},
      {WithAttributes(10'000), None},
      {WithAttributes(10'001), TooManyAttributes},
      {"<r>" + WithAttributes(10'000) + WithAttributes(10'000) + "</r>", None},
      {"<r>" + WithAttributes(10'000) + WithAttributes(10'001) + "</r>", TooManyAttributes},
  };
  for (const auto& [text, fault] : cases) {
    EXPECT_EQ(Outline(text).fault, fault) << text.size() << " bytes: " << text.substr(0, 40);
  }
}

TEST(XmlLimits, WithinLimits) {
  const std::string_view cases[] = {
      ""sv,
      "text"sv,
      "<a/>"sv,
      "<a><b/></a>"sv,
      "<a x='1' y='2'/>"sv,
      "<a><b/><b/></a><a><b/></a>"sv,
      "<a><b x=1 y=2></b></a>"sv,
      "<a><!-- <b><c> --></a>"sv,
      "<a><![CDATA[<b><c>]]></a>"sv,
      "<a><b z='<c><d>'/></a>"sv,
      "<a><b z=\"'<c>'\"/></a>"sv,
      "<?xml a b c d='<e>'?><a><b/></a>"sv,
      "<!DOCTYPE a b c><a><b/></a>"sv,
      "<a><!b c='' d='' e=''></a>"sv,
      // Behind the place where TinyXML stops.
      "<a></b><c><d><e>"sv,
      "<a><b></a></b><c><d><e>"sv,
      "text<a><b><c>"sv,
      "<a/>text<a><b><c>"sv,
      "<a><b x='1' x='1' y='1' z='1'/></a>"sv,
      "<a x='1' y z='1' u='1'>"sv,
      "<a><b>&#q;<c><d></b></a>"sv,
      "<?xml version?><a><b><c>"sv,
      "<a>\0<b><c>"sv,
      // What a character or a reference swallows.
      "\xEF\xBB\xBF<a><b>\xC3<c></b></a>"sv,
      "\xEF\xBB\xBF<a><b>\xE2<c></b></a>"sv,
      "\xEF\xBB\xBF<a><b>\xF4<c></b></a>"sv,
      "<a><b>&#x<c><d>x41;</b></a>"sv,
      "<a><b>&#<c><d>#65;</b></a>"sv,
      "<?xml?><a><b>\xE2<c></b></a>"sv,
      "<?xml encoding='utf-8'?><a><b>\xE2<c></b></a>"sv,
      "<?xml encoding='Utf8-like'?><a><b>\xE2<c></b></a>"sv,
      "<?xml encoding='&#x55;TF-8'?><a><b>\xE2<c></b></a>"sv,
      "<?xml encoding='&#0;latin1'?><a><b>\xE2<c></b></a>"sv,
      "<?xml encoding=utf8 ?><a><b>\xE2<c></b></a>"sv,
      "<?xml encoding='l' encoding='utf8'?><a><b>\xE2<c></b></a>"sv,
      "\xEF\xBB\xBF<?xml encoding='latin1'?><a><b>\xE2<c></b></a>"sv,
  };
  for (const std::string_view text : cases) {
    EXPECT_EQ(Outline(text, {2, 2}).fault, None) << testing::PrintToString(text);
  }
}

TEST(XmlLimits, OverALimit) {
  struct Case {
    std::string_view text;
    XmlLimitFault fault;
    std::size_t offset;
  };
  const Case cases[] = {
      {"<a><b><c/></b></a>"sv, NestedTooDeep, 6},
      {"<a><b><c"sv, NestedTooDeep, 6},
      {"<a x='1' y='2' z='3'/>"sv, TooManyAttributes, 0},
      {"<a><b x=1 y=2 z=3></b></a>"sv, TooManyAttributes, 3},
      {"<a x='1' y='2' z='3'"sv, None, 0},
      {"<a x='1' y='2' z='3' "sv, TooManyAttributes, 0},
      {"<a/><a/><a><b><c>"sv, NestedTooDeep, 14},
      {"<a>&lt;b<b>&<c>"sv, NestedTooDeep, 12},
      {"<a><b>&#65;<c>"sv, NestedTooDeep, 11},
      {"<a><b>&#<c>"sv, None, 0},
      {"<a><b>text &unknown; <c>"sv, NestedTooDeep, 21},
      {"<a ><b\n>\t<c>"sv, NestedTooDeep, 9},
      {"<A><B></B ><C><_>"sv, NestedTooDeep, 14},
      {"<a><b>\xE2<c><d>"sv, NestedTooDeep, 7},
      {"<?xml encoding='latin1'?><a><b>\xE2<c>"sv, NestedTooDeep, 32},
      {"<?xml encoding='utf'?><a><b>\xE2<c>"sv, NestedTooDeep, 29},
      {"<?xml encoding='l'?><?xml encoding='utf8'?><a><b>\xE2<c>"sv, NestedTooDeep, 50},
      {"<a><?xml encoding='utf8'?><b>\xE2<c>"sv, NestedTooDeep, 30},
      {"\xEF\xBB\xBF<a><b>\xF5<c>"sv, NestedTooDeep, 10},
      {"\xEF\xBB\xBF<a><b>\xC1<c>"sv, NestedTooDeep, 10},
      {"\xEF\xBB\xBF \xEF\xBF\xBE\xEF\xBF\xBF<a><b><c>"sv, NestedTooDeep, 16},
      {"\xEF\xBB\xBF<a><b>\xC3\0<c>"sv, NestedTooDeep, 11},
      {"<![CDATA[ ]]><a><![CDATA[]]]]><b><c>"sv, NestedTooDeep, 33},
      {"<a><b><?xml version='<>' ?><c>"sv, NestedTooDeep, 27},
      {"<a><b><\xC3\xA9>"sv, NestedTooDeep, 6},
  };
  for (const Case& c : cases) {
    const XmlOutline outline = Outline(c.text, {2, 2});
    EXPECT_EQ(outline.fault, c.fault) << testing::PrintToString(c.text);
    EXPECT_EQ(outline.offset, c.offset) << testing::PrintToString(c.text);
  }
}

TEST(XmlLimits, FindsTheDeclarationThatHasNoEnd) {
  const std::pair<std::string_view, std::size_t> cases[] = {
      {"<?xml"sv, 0},
      {"<?xml "sv, 0},
      {" \n<?XML version='1.0' \n"sv, 2},
      {"<?xml version?><a/>"sv, 0},
      {"<?xml encoding='utf8"sv, 0},
      {"<?xml?><?xml "sv, 7},
      {"<a/><?xml "sv, 4},
      {"<a><b/>text<?xml standalone=yes "sv, 11},
      {"<?xml \0?>"sv, 0},
      {"\xEF\xBB\xBF<?xml \xEF\xBB\xBF"sv, 3},
      {"<?xml?>"sv, XmlOutline::npos},
      {"<?xml version='1.0' ?>"sv, XmlOutline::npos},
      {"<? xml "sv, XmlOutline::npos},
      {"<!--<?xml "sv, XmlOutline::npos},
      {"<a></b><?xml "sv, XmlOutline::npos},
  };
  for (const auto& [text, offset] : cases) {
    EXPECT_EQ(Outline(text).unfinishedDeclaration, offset) << testing::PrintToString(text);
  }
}

TEST(XmlLimits, EndsInsideCharacterByTheLeadBytesWord) {
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
    EXPECT_EQ(EndsInsideCharacter(text.data(), text.size()), inside)
        << testing::PrintToString(text);
  }
}

TEST(XmlLimits, OutlineStopIsWhatHasNoEndOrBehindTheLastThing) {
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
    EXPECT_EQ(OutlineStop(padded.data()), stop) << text;
  }
}

TEST(XmlLimits, NestingIsThatOfTheDeepestElement) {
  const std::pair<std::string_view, std::size_t> cases[] = {
      {"", 0},
      {"<a/>", 1},
      {"<a></a><b></b>", 1},
      {"<a><b/></a>", 2},
      {"<a><b><c>d</c></b><e/></a>", 3},
      {"<a><!--<b><c>--><d/></a>", 2},
      {"<a></b><c><d/></c></a>", 1},
  };
  for (const auto& [text, nesting] : cases) {
    const std::string padded = std::string(text) + std::string(xmlTextPadding, '\0');
    EXPECT_EQ(OutlineXml(padded.data()).nesting, nesting) << text;
  }
  EXPECT_EQ(Outline("<a><b/></a>").nesting, XmlOutline::npos) << "not walked";
}

// A walk that recursed, or that went back in the text, would not end here.
TEST(XmlLimits, TakesTimeInProportionToTheText) {
  constexpr std::size_t many = 1'000'000;
  std::string opened;
  std::string references = "<a>";
  std::string attributes = "<a";
  for (std::size_t i = 0; i < many; ++i) {
    opened += "<a>";
    references += "&#65;&";
    attributes += " n" + std::to_string(i) + "='&#x41;'";
  }
  const XmlLimits unlimited{XmlOutline::npos, XmlOutline::npos};
  EXPECT_EQ(Outline(opened, unlimited).fault, None);
  EXPECT_EQ(Outline(references, unlimited).fault, None);
  EXPECT_EQ(Outline(attributes, unlimited).fault, None);
  EXPECT_EQ(Outline(attributes + ">", {1, many - 1}).fault, TooManyAttributes);
}

XmlLimitFault FaultOfTree(std::string text, const XmlLimits& limits) {
  text.append(xmlTextPadding, '\0');
  TiXmlDocument document;
  document.SetTabSize(0);
  document.Parse(text.data(), nullptr, TIXML_ENCODING_UNKNOWN);
  return Testing::PlainLimitFault(document, limits);
}

// Tags that open, close and fail much more often than in a descriptor.
std::string RandomTags(RandomPick& pick) {
  static const std::vector<std::string_view> tags{"<a>"sv,
                                                  "<a>"sv,
                                                  "<b>"sv,
                                                  "</a>"sv,
                                                  "</b>"sv,
                                                  "<c/>"sv,
                                                  "<a x='1'>"sv,
                                                  "<b x=1 y=2>"sv,
                                                  "<b x='1' x='2' y='3'>"sv,
                                                  "<a x='1' y='2' z='3'>"sv,
                                                  "<c x=\"\" y='>' z=1 />"sv,
                                                  "text"sv,
                                                  "\xC3"sv,
                                                  "\xF0"sv,
                                                  "&#<a>#65;"sv,
                                                  "&#x<b>x42;"sv,
                                                  "&amp;"sv,
                                                  "<!-- <a> -->"sv,
                                                  "<![CDATA[<b>]]>"sv,
                                                  "<? <a>"sv,
                                                  "<a "sv,
                                                  "x='"sv,
                                                  "'"sv,
                                                  " "sv};
  std::string text = pick.OneIn(2) ? "\xEF\xBB\xBF" : "";
  for (std::size_t left = pick.Below(14) + 1; left != 0; --left) text += pick.Of(tags);
  return text;
}

TEST(XmlLimits, FindsAFaultExactlyWhereTinyXmlsTreeHasIt) {
  constexpr std::size_t documents = 200'000;
  constexpr XmlLimits limits{3, 2};
  RandomPick pick(7'040'977);
  std::size_t deep = 0;
  std::size_t wide = 0;
  for (std::size_t i = 0; i < documents; ++i) {
    const std::string text = pick.OneIn(4) ? Testing::RandomXml(pick) : RandomTags(pick);
    const XmlLimitFault fault = FaultOfTree(text, limits);
    const XmlOutline outline = Outline(text, limits);
    ASSERT_EQ(outline.fault, fault) << "document " << i << ": " << testing::PrintToString(text);
    if (fault != None) {
      ASSERT_EQ(text.at(outline.offset), '<');
    }
    if (fault == NestedTooDeep) ++deep;
    if (fault == TooManyAttributes) ++wide;
  }
  EXPECT_GT(deep, documents / 20);
  EXPECT_GT(wide, documents / 20);
  EXPECT_GT(documents - deep - wide, documents / 5);
}

}  // namespace
}  // namespace Vornik
