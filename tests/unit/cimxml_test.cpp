#include "cimxml.h"

#include <gtest/gtest.h>
#include <tinyxml.h>

#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "temp_folder.h"

namespace Vornik {

static void PrintTo(LoadFault fault, std::ostream* out) {
  static constexpr const char* names[] = {
      "None",          "Unreadable",        "Empty",
      "NestedTooDeep", "TooManyAttributes", "TooManyProperties",
      "NotWellFormed",
  };
  *out << names[static_cast<std::size_t>(fault)];
}

namespace {

using namespace std::string_literals;
using Testing::TempFolder;

constexpr auto Individual = DescriptorKind::Individual;
constexpr auto Pack = DescriptorKind::Pack;

CimXmlDocument Loaded(const std::string& text, Positions positions = Positions::Ignored) {
  CimXmlDocument document;
  const LoadOutcome outcome = document.LoadBytes(text, Individual, positions);
  EXPECT_EQ(outcome.fault, LoadFault::None) << text << ": " << outcome.reason;
  return document;
}

SupXmlProperties PropertiesOf(const std::string& text) {
  const CimXmlDocument document = Loaded(text);
  SupXmlProperties properties;
  ReadProperties(document.Root(), properties);
  return properties;
}

// "name:type[value|value]", one after the other.
std::string Show(const SupXmlProperties& properties) {
  std::string shown;
  for (const SupXmlProperty& property : properties) {
    shown += property.name + ":" + property.type + "[";
    for (std::size_t i = 0; i < property.values.size(); ++i) {
      shown += (i == 0 ? "" : "|") + property.values[i];
    }
    shown += "]";
  }
  return shown;
}

std::string Read(const std::string& text) { return Show(PropertiesOf(text)); }

std::string Repeat(const std::string& text, std::size_t times) {
  std::string repeated;
  repeated.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

TEST(ReadProperties, PropertyWithOneValueGivesNameTypeAndValue) {
  EXPECT_EQ(Read("<r><PROPERTY NAME='Version' TYPE='string'><VALUE>1.2</VALUE></PROPERTY></r>"),
            "Version:string[1.2]");
}

TEST(ReadProperties, EmptyValueGivesNoValueAndIsLookedUpAsEmpty) {
  const SupXmlProperties properties =
      PropertiesOf("<r><PROPERTY NAME='x'><VALUE></VALUE></PROPERTY></r>");
  EXPECT_EQ(Show(properties), "x:[]");
  EXPECT_EQ(GetPropertyValue("x", properties), "");
}

TEST(ReadProperties, ArrayGivesItsValuesInOrderAndIsLookedUpInAnyCase) {
  const SupXmlProperties properties = PropertiesOf(
      "<r><PROPERTY.ARRAY NAME='preReq'><VALUE.ARRAY><VALUE>a</VALUE>"
      "<VALUE>b</VALUE></VALUE.ARRAY></PROPERTY.ARRAY></r>");
  EXPECT_EQ(Show(properties), "preReq:[a|b]");
  EXPECT_EQ(GetPropertyValue("PREREQ", properties), "a");
}

TEST(ReadProperties, OfTwoPropertiesOfOneNameBothAreKeptAndTheLastValueIsLookedUp) {
  const SupXmlProperties both = PropertiesOf(
      "<r><PROPERTY NAME='type'><VALUE>1</VALUE></PROPERTY>"
      "<PROPERTY NAME='type'><VALUE>2</VALUE></PROPERTY></r>");
  EXPECT_EQ(Show(both), "type:[1]type:[2]");
  EXPECT_EQ(GetPropertyValue("type", both), "2");

  const SupXmlProperties secondWithout = PropertiesOf(
      "<r><PROPERTY NAME='type'><VALUE>1</VALUE></PROPERTY>"
      "<PROPERTY NAME='type'></PROPERTY></r>");
  EXPECT_EQ(Show(secondWithout), "type:[1]type:[]");
  EXPECT_EQ(GetPropertyValue("type", secondWithout), "1");
}

TEST(ReadProperties, PropertyWithoutNameIsKeptAndFoundByTheEmptyName) {
  const SupXmlProperties properties =
      PropertiesOf("<r><PROPERTY TYPE='t'><VALUE>v</VALUE></PROPERTY></r>");
  EXPECT_EQ(Show(properties), ":t[v]");
  EXPECT_EQ(GetPropertyValue("", properties), "v");
}

TEST(ReadProperties, LowerCaseElementsAreNotRead) {
  EXPECT_EQ(Read("<r><property NAME='a'><VALUE>1</VALUE></property>"
                 "<PROPERTY NAME='b'><value>2</value></PROPERTY></r>"),
            "b:[]");
}

TEST(ReadProperties, Cases) {
  const std::pair<std::string, const char*> cases[] = {
      {"<PROPERTY NAME='root'><VALUE>v</VALUE></PROPERTY>", "root:[v]"},
      {"<r><a><b><PROPERTY NAME='deep'/></b></a><PROPERTY NAME='later'/></r>", "deep:[]later:[]"},
      {"<r><INSTANCE CLASSNAME='c'><PROPERTY NAME='in'/></INSTANCE></r>", "in:[]"},
      {"<r><PROPERTY NAME='o'><PROPERTY NAME='i'><VALUE>v</VALUE></PROPERTY></PROPERTY></r>",
       "o:[]i:[v]"},
      {"<r><PROPERTY NAME='a' name='b' TYPE='t' other='c'/></r>", "a:t[]"},
      {"<r><PROPERTY TYPE='t' NAME='a'/></r>", "a:t[]"},
      {"<r><PROPERTY NAME='a'><VALUE>1</VALUE><VALUE>2</VALUE></PROPERTY></r>", "a:[1|2]"},
      {"<r><PROPERTY NAME='a'><VALUE>1<x/>2</VALUE></PROPERTY></r>", "a:[1|2]"},
      {"<r><PROPERTY NAME='a'><VALUE><x>1</x></VALUE></PROPERTY></r>", "a:[]"},
      {"<r><PROPERTY NAME='a'><x><VALUE>1</VALUE></x></PROPERTY></r>", "a:[]"},
      {"<r><PROPERTY NAME='a'>text</PROPERTY></r>", "a:[]"},
      {"<r><PROPERTY NAME='a'><VALUE><!-- 1 --></VALUE></PROPERTY></r>", "a:[]"},
      {"<r><PROPERTY NAME='a'><VALUE>1<!-- 2 -->3</VALUE></PROPERTY></r>", "a:[1|3]"},
      {"<r><PROPERTY NAME='a'><VALUE><![CDATA[ <1> ]]></VALUE></PROPERTY></r>", "a:[ <1> ]"},
      {"<r><PROPERTY NAME='a'><VALUE><![CDATA[]]></VALUE></PROPERTY></r>", "a:[]"},
      {"<r><PROPERTY NAME='a'><VALUE>1<![CDATA[2]]></VALUE></PROPERTY></r>", "a:[1|2]"},
      {"<r><PROPERTY NAME='a'><VALUE>  1 \r\n\t 2  </VALUE></PROPERTY></r>", "a:[1 2]"},
      {"<r><PROPERTY NAME='a'><VALUE> \r\n\t </VALUE></PROPERTY></r>", "a:[]"},
      {"<r><PROPERTY NAME=' a\r\nb '><VALUE>v</VALUE></PROPERTY></r>", " a\nb :[v]"},
      {"<r><PROPERTY NAME='&lt;&#65;'><VALUE>&amp;&#x42;</VALUE></PROPERTY></r>", "<A:[&B]"},
      {"<r><PROPERTY NAME='a&#0;b'><VALUE>c&#0;d</VALUE></PROPERTY></r>", "a:[c]"},
      {"<r><PROPERTY NAME='a'><VALUE.ARRAY><VALUE>1</VALUE></VALUE.ARRAY></PROPERTY></r>", "a:[]"},
      {"<r><PROPERTY.ARRAY NAME='a'><VALUE>1</VALUE></PROPERTY.ARRAY></r>", "a:[]"},
      {"<r><PROPERTY.ARRAY NAME='a' TYPE='t'><VALUE.ARRAY><VALUE>1</VALUE></VALUE.ARRAY>"
       "<VALUE.ARRAY><VALUE>2</VALUE></VALUE.ARRAY></PROPERTY.ARRAY></r>",
       "a:t[1|2]"},
      {"<r><PROPERTY.ARRAY NAME='a'><VALUE.ARRAY><VALUE.ARRAY><VALUE>1</VALUE></VALUE.ARRAY>"
       "</VALUE.ARRAY></PROPERTY.ARRAY></r>",
       "a:[]"},
      {"<r><PROPERTY.REFERENCE NAME='a'/><PROPERTYX NAME='b'/></r>", ""},
      {"<r/><PROPERTY NAME='behind the root'/>", ""},
      {"<!-- no root yet --><?xml?><r><PROPERTY NAME='a'/></r> trailing", "a:[]"},
      {"\xEF\xBB\xBF<r><PROPERTY NAME='a'><VALUE>\xC3\xA9</VALUE></PROPERTY></r>", "a:[\xC3\xA9]"},
      {"<?xml encoding='latin1'?><r><PROPERTY NAME='a'><VALUE>\xE9</VALUE></PROPERTY></r>",
       "a:[\xE9]"},
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(Read(text), shown) << text;
}

TEST(ReadProperties, EmptyCdataIsAnEmptyValue) {
  const SupXmlProperties properties =
      PropertiesOf("<r><PROPERTY NAME='a'><VALUE><![CDATA[]]></VALUE></PROPERTY></r>");
  ASSERT_EQ(properties.size(), 1U);
  EXPECT_EQ(properties[0].values, std::vector<std::string>{""});
}

TEST(ReadProperties, StaysAtAndBelowTheNode) {
  const CimXmlDocument document = Loaded(
      "<r><INSTANCE CLASSNAME='a'><PROPERTY NAME='1'/><INSTANCE CLASSNAME='b'>"
      "<PROPERTY NAME='2'/></INSTANCE></INSTANCE><PROPERTY NAME='3'/></r>");
  std::vector<const TiXmlNode*> instances;
  EXPECT_EQ(CollectInstances(document.Root(), instances), nullptr);
  ASSERT_EQ(instances.size(), 2U);
  SupXmlProperties outer;
  ReadProperties(instances[0], outer);
  EXPECT_EQ(Show(outer), "1:[]2:[]");
  SupXmlProperties inner;
  ReadProperties(instances[1], inner);
  EXPECT_EQ(Show(inner), "2:[]");
}

TEST(ReadProperties, AppendsBehindWhatIsThere) {
  const CimXmlDocument document = Loaded("<PROPERTY NAME='new'/>");
  SupXmlProperties properties{{"old", "", {}}};
  ReadProperties(document.Root(), properties);
  EXPECT_EQ(Show(properties), "old:[]new:[]");
}

TEST(ReadProperties, TakesAWholeDocumentOrNothing) {
  TiXmlDocument document;
  document.Parse("<PROPERTY NAME='a'/><PROPERTY NAME='b'/>", nullptr, TIXML_ENCODING_UNKNOWN);
  SupXmlProperties properties;
  ReadProperties(&document, properties);
  ReadProperties(nullptr, properties);
  EXPECT_EQ(Show(properties), "a:[]b:[]");
}

// The values of CLASSNAME, in order, and then '!' where a misfit ends the walk.
std::string Collect(const std::string& text) {
  const CimXmlDocument document = Loaded(text);
  std::vector<const TiXmlNode*> instances;
  const TiXmlNode* misfit = CollectInstances(document.Root(), instances);
  std::string classes;
  for (const TiXmlNode* instance : instances) {
    classes += instance->ToElement()->Attribute("CLASSNAME");
  }
  return misfit == nullptr ? classes : classes + "!" + misfit->Value();
}

TEST(CollectInstances, ClassNameFollowedByAnotherAttributeIsCollectedAndNoAttributeIsNot) {
  EXPECT_EQ(Collect("<r><INSTANCE CLASSNAME='a' NAME='x'/><INSTANCE/></r>"), "a");
}

TEST(CollectInstances, Cases) {
  const std::pair<const char*, const char*> cases[] = {
      {"<INSTANCE CLASSNAME='a'/>", "a"},
      {"<r/>", ""},
      {"<r><INSTANCE CLASSNAME='a'/><b><INSTANCE CLASSNAME='b'/></b></r>", "ab"},
      {"<r><INSTANCE CLASSNAME='a'><INSTANCE CLASSNAME='b'/></INSTANCE>"
       "<INSTANCE CLASSNAME='c'/></r>",
       "abc"},
      {"<r><INSTANCE><INSTANCE CLASSNAME='a'/></INSTANCE></r>", "a"},
      {"<r><instance CLASSNAME='a'/><INSTANCENAME CLASSNAME='b'/></r>", ""},
      {"<r><INSTANCE CLASSNAME='a'/><INSTANCE NAME='x' CLASSNAME='b'/></r>", "a!INSTANCE"},
      {"<r><INSTANCE classname='a'/><INSTANCE CLASSNAME='b'/></r>", "!INSTANCE"},
      {"<INSTANCE N=''/>", "!INSTANCE"},
  };
  for (const auto& [text, classes] : cases) EXPECT_EQ(Collect(text), classes) << text;
}

TEST(CollectInstances, AppendsAndTakesNothing) {
  const CimXmlDocument document = Loaded("<INSTANCE CLASSNAME='a'/>");
  std::vector<const TiXmlNode*> instances{nullptr};
  EXPECT_EQ(CollectInstances(document.Root(), instances), nullptr);
  EXPECT_EQ(CollectInstances(nullptr, instances), nullptr);
  EXPECT_EQ(instances, (std::vector<const TiXmlNode*>{nullptr, document.Root()}));
}

TEST(LoadBytes, LoadsWithoutARoot) {
  const std::string cases[] = {
      "<!-- comment -->",
      "<!-- comment",
      "<?xml version='1.0'?>",
      "<?other",
      "<![CDATA[x]]>",
      // Declarations without an end.
      "<?xml",
      "<?xml ",
      "\n<?xml version='1.0' \n",
      "<?xml version?><PROPERTY NAME='lost'/>",
      "<?xml\t\0<PROPERTY/>"s,
      "\xEF\xBB\xBF<?xml \xEF\xBB\xBF",
      "<!-- comment --><?xml encoding='utf-8' ",
  };
  for (const std::string& text : cases) {
    CimXmlDocument document;
    const LoadOutcome outcome = document.LoadBytes(text, Individual);
    EXPECT_EQ(outcome.fault, LoadFault::None) << text;
    EXPECT_EQ(outcome.reason, "") << text;
    EXPECT_EQ(document.Root(), nullptr) << text;
  }
}

TEST(LoadBytes, KeepsWhatStoodBeforeAnUnfinishedDeclaration) {
  EXPECT_EQ(Read("<PROPERTY NAME='a'/><?xml version='1.0' "), "a:[]");
  EXPECT_EQ(Read("<PROPERTY NAME='a'/>\r\n<?xml ="), "a:[]");
}

TEST(LoadBytes, Rejects) {
  struct Case {
    std::string text;
    LoadFault fault;
    const char* reason;
  };
  const Case cases[] = {
      {"", LoadFault::Empty, "the document is empty"},
      {" \r\n", LoadFault::NotWellFormed, "Error document empty."},
      {"\0<a/>"s, LoadFault::NotWellFormed, "Error document empty."},
      {"text", LoadFault::NotWellFormed, "Error document empty."},
      {"<a>", LoadFault::NotWellFormed, "Error reading Element value."},
      {"<a></b>", LoadFault::NotWellFormed, "Error reading end tag."},
      {"<a></a ", LoadFault::NotWellFormed, "Error reading end tag."},
      {"<a x></a>", LoadFault::NotWellFormed, "Error reading Attributes."},
      {"<a x='1' x='2'/>", LoadFault::NotWellFormed, "Error parsing Element."},
      {"<a/ >", LoadFault::NotWellFormed, "Error: empty tag."},
      {"<a", LoadFault::NotWellFormed, "Failed to read Element name"},
      {"<a>&#x;&#q;</a>", LoadFault::NotWellFormed, "Error reading Element value."},
      {"<a><?xml version='1.0' ", LoadFault::NotWellFormed, "Error reading Element value."},
      {"<a>text <?xml </a>", LoadFault::NotWellFormed, "Error reading Element value."},
      {"<a>text <?xml ", LoadFault::NotWellFormed, "Error reading Element value."},
  };
  for (const Case& c : cases) {
    CimXmlDocument document;
    const LoadOutcome outcome = document.LoadBytes(c.text, Individual);
    EXPECT_EQ(outcome.fault, c.fault) << testing::PrintToString(c.text);
    EXPECT_EQ(outcome.reason, c.reason) << testing::PrintToString(c.text);
    EXPECT_EQ(outcome.line, 0) << testing::PrintToString(c.text);
    EXPECT_EQ(document.Root(), nullptr) << testing::PrintToString(c.text);
  }
}

TEST(LoadBytes, FaultLeavesNothingOfTheDocumentBefore) {
  CimXmlDocument document;
  EXPECT_EQ(document.LoadBytes("<a/>", Individual).fault, LoadFault::None);
  ASSERT_NE(document.Root(), nullptr);
  EXPECT_EQ(document.LoadBytes("<a>", Individual).fault, LoadFault::NotWellFormed);
  EXPECT_EQ(document.Root(), nullptr);
  EXPECT_EQ(document.LoadBytes("<b/>", Individual).fault, LoadFault::None);
  ASSERT_NE(document.Root(), nullptr);
  EXPECT_EQ(document.LoadFile("no such file.xml", Individual).fault, LoadFault::Unreadable);
  EXPECT_EQ(document.Root(), nullptr);
}

TEST(LoadBytes, MovedDocumentKeepsItsNodes) {
  CimXmlDocument first = Loaded("<a/>");
  const TiXmlNode* root = first.Root();
  CimXmlDocument second = std::move(first);
  EXPECT_EQ(second.Root(), root);
  EXPECT_EQ(CimXmlDocument().Root(), nullptr);
}

// A character that reaches over the zero byte, or over the end that normalised line ends leave,
// goes on with the bytes behind it.
TEST(LoadBytes, GoesOnBehindAnEndInsideACharacter) {
  EXPECT_EQ(Read("\xEF\xBB\xBF<a><PROPERTY NAME='\xC3\0'/></a>"s), "\xC3:[]");
  // Five line ends leave the last four bytes behind the new end a second time.
  EXPECT_EQ(Read("\xEF\xBB\xBF" + Repeat("\r\n", 5) + "<PROPERTY NAME='/>\xC3"), "/>\xC3:[]");
}

TEST(LoadLimits, StandWhereTheyAreSet) {
  const std::string attributes = [] {
    std::string text;
    for (int i = 0; i < 10'000; ++i) text += " n" + std::to_string(i) + "=''";
    return text;
  }();
  const std::string instance = "<INSTANCE CLASSNAME='c'>";
  const auto nested = [](const std::string& open, const std::string& close, std::size_t depth,
                         const std::string& inside) {
    return Repeat(open, depth) + inside + Repeat(close, depth);
  };
  const auto properties = [&](std::size_t instances, std::size_t count, const std::string& more) {
    return "<r>" + nested(instance, "</INSTANCE>", instances, Repeat("<PROPERTY.ARRAY/>", count)) +
           more + "</r>";
  };
  struct Case {
    const char* what;
    std::string text;
    DescriptorKind kind;
    LoadFault fault;
  };
  const Case cases[] = {
      {"1,000 deep", nested("<a>", "</a>", 1'000, ""), Individual, LoadFault::None},
      {"1,001 deep", nested("<a>", "</a>", 1'001, ""), Individual, LoadFault::NestedTooDeep},
      {"1,001 deep, empty", nested("<a>", "</a>", 1'000, "<b/>"), Pack, LoadFault::NestedTooDeep},
      {"10,000 attributes", "<a" + attributes + "/>", Individual, LoadFault::None},
      {"10,001 attributes", "<a" + attributes + " x=''/>", Pack, LoadFault::TooManyAttributes},
      {"500 x 4,000", properties(500, 4'000, ""), Pack, LoadFault::None},
      {"500 x 4,000, outside", properties(500, 4'000, "<PROPERTY/>"), Pack, LoadFault::None},
      {"500 x 4,000 + 1", properties(500, 4'000, instance + "<PROPERTY/></INSTANCE>"), Pack,
       LoadFault::TooManyProperties},
      {"500 x 4,000 + 1, one of them without attributes",
       properties(500, 4'000, "<INSTANCE><PROPERTY/></INSTANCE>"), Pack, LoadFault::None},
      {"500 x 4,000 + 1, read once", properties(500, 4'000, instance + "<PROPERTY/></INSTANCE>"),
       Individual, LoadFault::None},
      {"500 x 4,000 + 1, none collected",
       properties(500, 4'000, instance + "<PROPERTY/></INSTANCE><INSTANCE NAME='x'/>"), Pack,
       LoadFault::None},
  };
  for (const Case& c : cases) {
    CimXmlDocument document;
    EXPECT_EQ(document.LoadBytes(c.text, c.kind).fault, c.fault) << c.what;
    EXPECT_EQ(document.Root() != nullptr, c.fault == LoadFault::None) << c.what;
  }
}

TEST(LoadLimits, OfPropertiesReadOnce) {
  const std::string most = "<r>" + Repeat("<PROPERTY/><PROPERTY.ARRAY/>", 1'000'000);
  {
    CimXmlDocument document;
    EXPECT_EQ(document.LoadBytes(most + "</r>", Individual).fault, LoadFault::None);
    EXPECT_NE(document.Root(), nullptr);
  }
  CimXmlDocument document;
  EXPECT_EQ(document.LoadBytes(most + "<PROPERTY/></r>", Individual).fault,
            LoadFault::TooManyProperties);
  EXPECT_EQ(document.Root(), nullptr);
}

TEST(LoadLimits, SayWhatAndWhere) {
  struct Case {
    std::string text;
    const char* reason;
    int line;
    int column;
  };
  std::string attributes = "<a>\r\n\xC3\xA9<b";
  for (int i = 0; i <= 10'000; ++i) attributes += " n" + std::to_string(i) + "=''";
  const Case cases[] = {
      {Repeat("<a>", 1'001), "elements are nested more than 1,000 deep", 1, 3'001},
      {Repeat("<a>\r\n", 1'000) + "\t<b/>", "elements are nested more than 1,000 deep", 1'001, 2},
      {attributes + "/></a>", "an element has more than 10,000 attributes", 2, 2},
      {"<r>" + Repeat("<INSTANCE CLASSNAME=''>", 998) + Repeat("<PROPERTY/>", 2'005) +
           Repeat("</INSTANCE>", 998) + "</r>",
       "the document gives more than 2,000,000 property records", 0, 0},
  };
  for (const Case& c : cases) {
    CimXmlDocument document;
    const LoadOutcome outcome = document.LoadBytes(c.text, Pack);
    EXPECT_EQ(outcome.reason, c.reason);
    EXPECT_EQ(outcome.line, c.line) << c.reason;
    EXPECT_EQ(outcome.column, c.column) << c.reason;
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
    const CimXmlDocument tracked = Loaded(c.text, Positions::Tracked);
    ASSERT_NE(tracked.Root(), nullptr);
    EXPECT_EQ(LineOf(*tracked.Root()), c.line) << testing::PrintToString(c.text);
    EXPECT_EQ(ColumnOf(*tracked.Root()), c.column) << testing::PrintToString(c.text);
    const CimXmlDocument ignored = Loaded(c.text);
    EXPECT_EQ(LineOf(*ignored.Root()), 0);
    EXPECT_EQ(ColumnOf(*ignored.Root()), 0);
  }
}

TEST(Positions, OfAFault) {
  struct Case {
    std::string text;
    int line;
    int column;
  };
  const Case cases[] = {
      {"<a>\n  <b></c>\n</a>", 2, 6},
      {"<a x/>", 1, 5},
      {"<a>\r\n<?xml version='1.0' ", 2, 1},
      {"", 0, 0},
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
    CimXmlDocument document;
    const LoadOutcome outcome = document.LoadBytes(c.text, Individual, Positions::Tracked);
    EXPECT_NE(outcome.fault, LoadFault::None);
    EXPECT_EQ(outcome.line, c.line) << testing::PrintToString(c.text);
    EXPECT_EQ(outcome.column, c.column) << testing::PrintToString(c.text);
  }
}

TEST(LoadFile, ReadsRegularFilesOnly) {
  const TempFolder folder;
  CimXmlDocument document;
  const std::string path = folder.Write("d.xml", "<a/>");
  EXPECT_EQ(document.LoadFile(path, Individual).fault, LoadFault::None);
  ASSERT_NE(document.Root(), nullptr);
  EXPECT_STREQ(document.Root()->Value(), "a");
  for (const std::string& other : {folder.Path(), path + "x", std::string()}) {
    const LoadOutcome outcome = document.LoadFile(other, Individual);
    EXPECT_EQ(outcome.fault, LoadFault::Unreadable) << other;
    EXPECT_EQ(outcome.reason, "the file cannot be read") << other;
    EXPECT_EQ(document.Root(), nullptr) << other;
  }
  EXPECT_EQ(document.LoadFile(folder.Write("empty.xml", ""), Individual).fault, LoadFault::Empty);
}

}  // namespace
}  // namespace Vornik
