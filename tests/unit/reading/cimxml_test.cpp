#include "reading/cimxml.h"

#include <gtest/gtest.h>
#include <tinyxml.h>

#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "temp_folder.h"

namespace Vornik {

namespace {

using namespace std::string_literals;
using Testing::TempFolder;

constexpr auto Individual = DescriptorKind::Individual;
constexpr auto Pack = DescriptorKind::Pack;

ParseOutcome Parse(const std::string& text, DescriptorKind kind, CimXmlDocument& document) {
  return document.Parse(PrepareXml(text), kind, Positions::Ignored);
}

CimXmlDocument Loaded(const std::string& text) {
  CimXmlDocument document;
  const ParseOutcome outcome = Parse(text, Individual, document);
  EXPECT_EQ(outcome.fault, DescriptorFault::None) << text << ": " << outcome.parserText;
  return document;
}

SupXmlProperties PropertiesOf(const std::string& text) {
  return ReadProperties(Loaded(text).Root());
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

TEST(ReadProperties, TakesEveryPropertyWithItsValues) {
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
  CimXmlDocument document = Loaded(
      "<r><INSTANCE CLASSNAME='a'><PROPERTY NAME='1'/><INSTANCE CLASSNAME='b'>"
      "<PROPERTY NAME='2'/></INSTANCE></INSTANCE><PROPERTY NAME='3'/></r>");
  EXPECT_TRUE(document.CollectInstances());
  ASSERT_EQ(document.Instances().size(), 2U);
  EXPECT_EQ(Show(ReadProperties(document.Instances()[0].node)), "1:[]2:[]");
  EXPECT_EQ(Show(ReadProperties(document.Instances()[1].node)), "2:[]");
  for (const bool taken : {false, true}) {
    for (const std::size_t i : {0U, 1U}) {
      EXPECT_EQ(Show(taken ? document.TakeProperties(i) : document.CopyProperties(i)),
                Show(ReadProperties(document.Instances()[i].node)));
    }
  }
}

TEST(ReadProperties, TakesAWholeDocumentOrNothing) {
  TiXmlDocument document;
  document.Parse("<PROPERTY NAME='a'/><PROPERTY NAME='b'/>", nullptr, TIXML_ENCODING_UNKNOWN);
  EXPECT_EQ(Show(ReadProperties(&document)), "a:[]b:[]");
  EXPECT_EQ(Show(ReadProperties(nullptr)), "");
}

// The values of CLASSNAME, in order, and then '!' where one without it ends the walk.
std::string Collect(const std::string& text) {
  CimXmlDocument document = Loaded(text);
  const bool isComplete = document.CollectInstances();
  std::string classes;
  for (const CollectedInstance& instance : document.Instances()) {
    classes += instance.node->ToElement()->Attribute("CLASSNAME");
  }
  return isComplete ? classes : classes + "!";
}

TEST(CollectInstances, ClassNameFollowedByAnotherAttributeIsCollectedAndNoAttributeIsNot) {
  EXPECT_EQ(Collect("<r><INSTANCE CLASSNAME='a' NAME='x'/><INSTANCE/></r>"), "a");
}

TEST(CollectInstances, TakesThoseThatBeginWithTheirClassName) {
  const std::pair<const char*, const char*> cases[] = {
      {"<INSTANCE CLASSNAME='a'/>", "a"},
      {"<r/>", ""},
      {"<r><INSTANCE CLASSNAME='a'/><b><INSTANCE CLASSNAME='b'/></b></r>", "ab"},
      {"<r><INSTANCE CLASSNAME='a'><INSTANCE CLASSNAME='b'/></INSTANCE>"
       "<INSTANCE CLASSNAME='c'/></r>",
       "abc"},
      {"<r><INSTANCE><INSTANCE CLASSNAME='a'/></INSTANCE></r>", "a"},
      {"<r><instance CLASSNAME='a'/><INSTANCENAME CLASSNAME='b'/></r>", ""},
      {"<r><INSTANCE CLASSNAME='a'/><INSTANCE NAME='x' CLASSNAME='b'/></r>", "a!"},
      {"<r><INSTANCE classname='a'/><INSTANCE CLASSNAME='b'/></r>", "!"},
      {"<INSTANCE N=''/>", "!"},
  };
  for (const auto& [text, classes] : cases) EXPECT_EQ(Collect(text), classes) << text;
}

TEST(CollectInstances, OfADocumentWithoutARootThereAreNone) {
  CimXmlDocument document = Loaded("<!-- comment -->");
  EXPECT_TRUE(document.CollectInstances());
  EXPECT_TRUE(document.Instances().empty());
}

TEST(ParseXml, LoadsWithoutARoot) {
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
    const ParseOutcome outcome = Parse(text, Individual, document);
    EXPECT_EQ(outcome.fault, DescriptorFault::None) << text;
    EXPECT_EQ(outcome.parserText, "") << text;
    EXPECT_EQ(document.Root(), nullptr) << text;
  }
}

TEST(ParseXml, KeepsWhatPrecedesAnUnfinishedDeclaration) {
  EXPECT_EQ(Read("<PROPERTY NAME='a'/><?xml version='1.0' "), "a:[]");
  EXPECT_EQ(Read("<PROPERTY NAME='a'/>\r\n<?xml ="), "a:[]");
}

TEST(ParseXml, Rejects) {
  struct Case {
    std::string text;
    DescriptorFault fault;
    const char* reason;
  };
  const Case cases[] = {
      {"", DescriptorFault::NotWellFormed, "Error document empty."},
      {" \r\n", DescriptorFault::NotWellFormed, "Error document empty."},
      {"\0<a/>"s, DescriptorFault::NotWellFormed, "Error document empty."},
      {"text", DescriptorFault::NotWellFormed, "Error document empty."},
      {"<a>", DescriptorFault::NotWellFormed, "Error reading Element value."},
      {"<a></b>", DescriptorFault::NotWellFormed, "Error reading end tag."},
      {"<a></a ", DescriptorFault::NotWellFormed, "Error reading end tag."},
      {"<a x></a>", DescriptorFault::NotWellFormed, "Error reading Attributes."},
      {"<a x='1' x='2'/>", DescriptorFault::NotWellFormed, "Error parsing Element."},
      {"<a/ >", DescriptorFault::NotWellFormed, "Error: empty tag."},
      {"<a", DescriptorFault::NotWellFormed, "Failed to read Element name"},
      {"<a>&#x;&#q;</a>", DescriptorFault::NotWellFormed, "Error reading Element value."},
      {"<a><?xml version='1.0' ", DescriptorFault::NotWellFormed, "Error reading Element value."},
      {"<a>text <?xml </a>", DescriptorFault::NotWellFormed, "Error reading Element value."},
      {"<a>text <?xml ", DescriptorFault::NotWellFormed, "Error reading Element value."},
  };
  for (const Case& c : cases) {
    CimXmlDocument document;
    const ParseOutcome outcome = Parse(c.text, Individual, document);
    EXPECT_EQ(outcome.fault, c.fault) << testing::PrintToString(c.text);
    EXPECT_EQ(outcome.parserText, c.reason) << testing::PrintToString(c.text);
    EXPECT_EQ(outcome.line, 0) << testing::PrintToString(c.text);
    EXPECT_EQ(document.Root(), nullptr) << testing::PrintToString(c.text);
  }
}

TEST(ParseXml, MovedDocumentKeepsItsNodes) {
  CimXmlDocument first = Loaded("<a/>");
  const TiXmlNode* root = first.Root();
  CimXmlDocument second = std::move(first);
  EXPECT_EQ(second.Root(), root);
  EXPECT_EQ(CimXmlDocument().Root(), nullptr);
}

// A character that reaches over the zero byte, or over the end that normalised line ends leave,
// goes on with the bytes behind it.
TEST(ParseXml, GoesOnAfterAnEndInsideACharacter) {
  EXPECT_EQ(Read("\xEF\xBB\xBF<a><PROPERTY NAME='\xC3\0'/></a>"s), "\xC3:[]");
  // Five line ends leave the last four bytes behind the new end a second time.
  EXPECT_EQ(Read("\xEF\xBB\xBF" + Repeat("\r\n", 5) + "<PROPERTY NAME='/>\xC3"), "/>\xC3:[]");
}

TEST(ParseLimits, StandWhereTheyAreSet) {
  const std::string attributes = [] {
    std::string text;
    for (int i = 0; i < 256; ++i) text += " n" + std::to_string(i) + "=''";
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
    DescriptorFault fault;
  };
  const Case cases[] = {
      {"1,000 deep", nested("<a>", "</a>", 1'000, ""), Individual, DescriptorFault::None},
      {"1,001 deep", nested("<a>", "</a>", 1'001, ""), Individual, DescriptorFault::NestedTooDeep},
      {"1,001 deep, empty", nested("<a>", "</a>", 1'000, "<b/>"), Pack,
       DescriptorFault::NestedTooDeep},
      {"256 attributes", "<a" + attributes + "/>", Individual, DescriptorFault::None},
      {"257 attributes", "<a" + attributes + " x=''/>", Pack, DescriptorFault::TooManyAttributes},
      {"500 x 4,000", properties(500, 4'000, ""), Pack, DescriptorFault::None},
      {"500 x 4,000, outside", properties(500, 4'000, "<PROPERTY/>"), Pack, DescriptorFault::None},
      {"500 x 4,000 + 1", properties(500, 4'000, instance + "<PROPERTY/></INSTANCE>"), Pack,
       DescriptorFault::TooManyProperties},
      {"500 x 4,000 + 1, one of them without attributes",
       properties(500, 4'000, "<INSTANCE><PROPERTY/></INSTANCE>"), Pack, DescriptorFault::None},
      {"500 x 4,000 + 1, read once", properties(500, 4'000, instance + "<PROPERTY/></INSTANCE>"),
       Individual, DescriptorFault::None},
      {"500 x 4,000 + 1, none collected",
       properties(500, 4'000, instance + "<PROPERTY/></INSTANCE><INSTANCE NAME='x'/>"), Pack,
       DescriptorFault::None},
  };
  for (const Case& c : cases) {
    CimXmlDocument document;
    EXPECT_EQ(Parse(c.text, c.kind, document).fault, c.fault) << c.what;
    EXPECT_EQ(document.Root() != nullptr, c.fault == DescriptorFault::None) << c.what;
  }
}

std::string NestedInstances(std::size_t depth, const std::string& inside) {
  return "<r>" + Repeat("<INSTANCE CLASSNAME='c'>", depth) + inside + Repeat("</INSTANCE>", depth) +
         "</r>";
}

std::string ListOf(std::size_t values) {
  return "<PROPERTY.ARRAY><VALUE.ARRAY>" + Repeat("<VALUE>v</VALUE>", values) +
         "</VALUE.ARRAY></PROPERTY.ARRAY>";
}

TEST(ParseLimits, OfWhatNestedInstancesMultiply) {
  const std::string text = "<PROPERTY><VALUE>" + std::string(100'000, 'v') + "</VALUE></PROPERTY>";
  const std::string name = "<PROPERTY NAME='" + std::string(100'000, 'n') + "'/>";
  const std::string type = "<PROPERTY TYPE='" + std::string(100'000, 't') + "'/>";
  const std::string others =
      "<PROPERTY><VALUE a='" + std::string(100'000, 'o') + "'/></PROPERTY><x>not read</x>";
  const struct {
    const char* what;
    std::string document;
    DescriptorFault fault;
  } cases[] = {
      {"500 x 4,000 values", NestedInstances(500, ListOf(4'000)), DescriptorFault::None},
      {"500 x 4,001 values", NestedInstances(500, ListOf(4'001)), DescriptorFault::ListsTooLarge},
      {"4 x 500,001 values", NestedInstances(4, ListOf(500'001)), DescriptorFault::None},
      {"5 x 500,001 values", NestedInstances(5, ListOf(500'001)), DescriptorFault::ListsTooLarge},
      {"16 x a text", NestedInstances(16, text), DescriptorFault::None},
      {"17 x a text", NestedInstances(17, text), DescriptorFault::ListsTooLarge},
      {"16 x a name", NestedInstances(16, name), DescriptorFault::None},
      {"17 x a name", NestedInstances(17, name), DescriptorFault::ListsTooLarge},
      {"17 x a type", NestedInstances(17, type), DescriptorFault::ListsTooLarge},
      {"17 x what is not read", NestedInstances(17, others), DescriptorFault::None},
  };
  for (const auto& [what, document, fault] : cases) {
    CimXmlDocument pack;
    EXPECT_EQ(Parse(document, Pack, pack).fault, fault) << what;
    CimXmlDocument individual;
    EXPECT_EQ(Parse(document, Individual, individual).fault, DescriptorFault::None) << what;
  }
}

TEST(ParseLimits, NeverRefuseAPackWithoutNestedInstances) {
  const std::string instance = NestedInstances(1, ListOf(300'000));
  CimXmlDocument pack;
  EXPECT_EQ(Parse("<p>" + Repeat(instance, 8) + "</p>", Pack, pack).fault, DescriptorFault::None);
}

TEST(ParseLimits, OfPropertiesReadOnce) {
  const std::string most = "<r>" + Repeat("<PROPERTY/><PROPERTY.ARRAY/>", 1'000'000);
  {
    CimXmlDocument document;
    EXPECT_EQ(Parse(most + "</r>", Individual, document).fault, DescriptorFault::None);
    EXPECT_NE(document.Root(), nullptr);
  }
  CimXmlDocument document;
  EXPECT_EQ(Parse(most + "<PROPERTY/></r>", Individual, document).fault,
            DescriptorFault::TooManyProperties);
  EXPECT_EQ(document.Root(), nullptr);
}

}  // namespace
}  // namespace Vornik
