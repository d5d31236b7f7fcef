#include "reading/xml_limits.h"

#include <gtest/gtest.h>
#include <tinyxml.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "plain_cimxml.h"
#include "random_xml.h"
#include "reading/xml_walk.h"
#include "repeat.h"
#include "test_random.h"

namespace Vornik {

static void PrintTo(XmlLimitFault fault, std::ostream* out) {
  *out << (fault == XmlLimitFault::None            ? "None"
           : fault == XmlLimitFault::NestedTooDeep ? "NestedTooDeep"
           : fault == XmlLimitFault::TooManyDepths ? "TooManyDepths"
                                                   : "TooManyAttributes");
}

namespace {

using namespace std::string_view_literals;
using Testing::RandomPick;

constexpr auto None = XmlLimitFault::None;
constexpr auto NestedTooDeep = XmlLimitFault::NestedTooDeep;
constexpr auto TooManyAttributes = XmlLimitFault::TooManyAttributes;
constexpr auto TooManyDepths = XmlLimitFault::TooManyDepths;

XmlScan Scan(std::string_view text, const XmlLimits& limits = {}) {
  std::string padded(text);
  padded.append(xmlTextPadding, '\0');
  XmlLimits ofText = limits;
  ofText.depths = std::max(limits.depths, limits.depthsPerByte * padded.size());
  const XmlScan walked = XmlWalk(padded.data(), ofText).Run();
  // The scan without the walk has to find the same, for every text of these tests.
  const XmlScan scan = ScanXml(padded, limits);
  EXPECT_EQ(scan.fault, walked.fault) << testing::PrintToString(text.substr(0, 200));
  EXPECT_EQ(scan.unfinishedDeclaration, walked.unfinishedDeclaration)
      << testing::PrintToString(text.substr(0, 200));
  return scan;
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
      {WithAttributes(256), None},
      {WithAttributes(257), TooManyAttributes},
      {"<r>" + WithAttributes(256) + WithAttributes(256) + "</r>", None},
      {"<r>" + WithAttributes(256) + WithAttributes(257) + "</r>", TooManyAttributes},
  };
  for (const auto& [text, fault] : cases) {
    EXPECT_EQ(Scan(text).fault, fault) << text.size() << " bytes: " << text.substr(0, 40);
  }
}

// Elements, texts and comments count with their depth, end tags do not.
TEST(XmlLimits, DepthsOfAllElements) {
  const std::string chain = Testing::Repeat("<a>", 999);  // 499,500
  const std::string end = Testing::Repeat("</a>", 999);
  const auto inside = [&](const std::string& piece, std::size_t count) {
    return Scan(chain + Testing::Repeat(piece, count) + end).fault;
  };
  EXPECT_EQ(inside("<b/>", 4'500), None);
  EXPECT_EQ(inside("<b/>", 4'501), TooManyDepths);
  EXPECT_EQ(inside("<!---->", 4'501), TooManyDepths);
  EXPECT_EQ(inside("<b>c</b>", 2'250), TooManyDepths);
  EXPECT_EQ(inside("<b>" + std::string(1'000, 'c') + "</b>", 2'250), None) << "a longer text";
  EXPECT_EQ(Scan("<r>" + Testing::Repeat("<b/>", 1'000'000) + "</r>").fault, None);
  EXPECT_EQ(XmlWalk("<a><b/></a>\0\0\0\0\0\0\0", {9, 9, 2, 0}).Run().fault, TooManyDepths);
  EXPECT_EQ(XmlWalk("<a><b/></a>\0\0\0\0\0\0\0", {9, 9, 3, 0}).Run().fault, None);
}

// Of these names an element has each once at most, so a text is not walked for them.
TEST(XmlLimits, UsualAttributesOfManyElements) {
  const std::string usual = "<a NAME='x' TYPE='y'/>";
  const std::string text = "<r>" + Testing::Repeat(usual, 300) + WithAttributes(254);
  EXPECT_EQ(Scan(text + "</r>").fault, None);
  EXPECT_EQ(Scan("<a NAME='' TYPE='' XNAME='' x:TYPE=''" + WithAttributes(253).substr(2)).fault,
            TooManyAttributes);
  EXPECT_EQ(Scan("<a NAME='' TYPE=''" + WithAttributes(255).substr(2)).fault, TooManyAttributes);
  EXPECT_EQ(Scan("<a NAME='' TYPE=''" + WithAttributes(254).substr(2)).fault, None);
  EXPECT_EQ(Scan("<r>" + Testing::Repeat(usual, 300) + WithAttributes(257)).fault,
            TooManyAttributes);
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
      // After the place where TinyXML stops.
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
    EXPECT_EQ(Scan(text, {2, 2}).fault, None) << testing::PrintToString(text);
  }
}

TEST(XmlLimits, OverALimit) {
  struct Case {
    std::string_view text;
    XmlLimitFault fault;
  };
  const Case cases[] = {
      {"<a><b><c/></b></a>"sv, NestedTooDeep},
      {"<a><b><c"sv, NestedTooDeep},
      {"<a x='1' y='2' z='3'/>"sv, TooManyAttributes},
      {"<a><b x=1 y=2 z=3></b></a>"sv, TooManyAttributes},
      {"<a x='1' y='2' z='3'"sv, None},
      {"<a x='1' y='2' z='3' "sv, TooManyAttributes},
      {"<a/><a/><a><b><c>"sv, NestedTooDeep},
      {"<a>&lt;b<b>&<c>"sv, NestedTooDeep},
      {"<a><b>&#65;<c>"sv, NestedTooDeep},
      {"<a><b>&#<c>"sv, None},
      {"<a><b>text &unknown; <c>"sv, NestedTooDeep},
      {"<a ><b\n>\t<c>"sv, NestedTooDeep},
      {"<A><B></B ><C><_>"sv, NestedTooDeep},
      {"<a><b>\xE2<c><d>"sv, NestedTooDeep},
      {"<?xml encoding='latin1'?><a><b>\xE2<c>"sv, NestedTooDeep},
      {"<?xml encoding='utf'?><a><b>\xE2<c>"sv, NestedTooDeep},
      {"<?xml encoding='l'?><?xml encoding='utf8'?><a><b>\xE2<c>"sv, NestedTooDeep},
      {"<a><?xml encoding='utf8'?><b>\xE2<c>"sv, NestedTooDeep},
      {"\xEF\xBB\xBF<a><b>\xF5<c>"sv, NestedTooDeep},
      {"\xEF\xBB\xBF<a><b>\xC1<c>"sv, NestedTooDeep},
      {"\xEF\xBB\xBF \xEF\xBF\xBE\xEF\xBF\xBF<a><b><c>"sv, NestedTooDeep},
      {"\xEF\xBB\xBF<a><b>\xC3\0<c>"sv, NestedTooDeep},
      {"<![CDATA[ ]]><a><![CDATA[]]]]><b><c>"sv, NestedTooDeep},
      {"<a><b><?xml version='<>' ?><c>"sv, NestedTooDeep},
      {"<a><b><\xC3\xA9>"sv, NestedTooDeep},
  };
  for (const Case& c : cases) {
    const XmlScan scan = Scan(c.text, {2, 2});
    EXPECT_EQ(scan.fault, c.fault) << testing::PrintToString(c.text);
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
      {"<?xml?>"sv, XmlScan::npos},
      {"<?xml version='1.0' ?>"sv, XmlScan::npos},
      {"<? xml "sv, XmlScan::npos},
      {"<!--<?xml "sv, XmlScan::npos},
      {"<a></b><?xml "sv, XmlScan::npos},
  };
  for (const auto& [text, offset] : cases) {
    EXPECT_EQ(Scan(text).unfinishedDeclaration, offset) << testing::PrintToString(text);
  }
}

// The test instruction_budget counts what a byte costs; here a large text has to be right.
TEST(XmlLimits, LongTextHasTheSameAnswer) {
  constexpr std::size_t many = 1'000'000;
  std::string opened;
  std::string references = "<a>";
  std::string attributes = "<a";
  for (std::size_t i = 0; i < many; ++i) {
    opened += "<a>";
    references += "&#65;&";
    attributes += " n" + std::to_string(i) + "='&#x41;'";
  }
  const XmlLimits unlimited{XmlScan::npos, XmlScan::npos, XmlScan::npos, 1};
  EXPECT_EQ(Scan(opened, unlimited).fault, None);
  EXPECT_EQ(Scan(references, unlimited).fault, None);
  EXPECT_EQ(Scan(attributes, unlimited).fault, None);
  EXPECT_EQ(Scan(attributes + ">", {1, many - 1}).fault, TooManyAttributes);
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
  constexpr XmlLimits limits{3, 2};
  Testing::TestRandom pick;
  const std::size_t documents = pick.Rounds(200'000);
  std::size_t deep = 0;
  std::size_t wide = 0;
  for (std::size_t i = 0; i < documents; ++i) {
    const std::string text = pick.OneIn(4) ? Testing::RandomXml(pick) : RandomTags(pick);
    const XmlLimitFault fault = FaultOfTree(text, limits);
    const XmlScan scan = Scan(text, limits);
    ASSERT_EQ(scan.fault, fault) << "document " << i << ": " << testing::PrintToString(text);
    if (fault == NestedTooDeep) ++deep;
    if (fault == TooManyAttributes) ++wide;
  }
  if (!pick.RunsAllRounds()) return;
  EXPECT_GT(deep, documents / 20);
  EXPECT_GT(wide, documents / 20);
  EXPECT_GT(documents - deep - wide, documents / 5);
}

}  // namespace
}  // namespace Vornik
