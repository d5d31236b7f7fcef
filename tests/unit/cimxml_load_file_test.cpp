// Reading a document into memory, checking it and parsing it gives what TinyXML's own LoadFile
// gives, for every document that LoadFile can take.
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "cimxml.h"
#include "random_pick.h"
#include "random_xml.h"
#include "temp_folder.h"

namespace Vornik {

// Found by the comparisons of vectors.
static bool operator==(const SupXmlProperty& a, const SupXmlProperty& b) {
  return a.name == b.name && a.type == b.type && a.values == b.values;
}

namespace {

using Testing::RandomPick;
using Testing::RandomXml;
using Testing::TempFolder;

// Everything that the library takes from a document.
struct Content {
  bool loaded = false;
  bool hasRoot = false;
  SupXmlProperties properties;
  bool hasMisfit = false;
  std::vector<SupXmlProperties> instances;

  bool operator==(const Content& other) const {
    return loaded == other.loaded && hasRoot == other.hasRoot && properties == other.properties &&
           hasMisfit == other.hasMisfit && instances == other.instances;
  }
};

void PlainTexts(const TiXmlNode* value, std::vector<std::string>& values) {
  for (const TiXmlNode* text = value->FirstChild(); text != nullptr; text = text->NextSibling()) {
    if (text->ToText() != nullptr) values.emplace_back(text->Value());
  }
}

void PlainValues(const TiXmlNode* parent, std::vector<std::string>& values) {
  for (const TiXmlNode* child = parent->FirstChild(); child != nullptr;
       child = child->NextSibling()) {
    if (child->ToElement() != nullptr && std::string(child->Value()) == "VALUE") {
      PlainTexts(child, values);
    }
  }
}

void PlainProperties(const TiXmlNode* node, SupXmlProperties& properties) {
  const std::string name = node->ToElement() != nullptr ? node->Value() : "";
  if (name == "PROPERTY" || name == "PROPERTY.ARRAY") {
    SupXmlProperty property;
    for (const TiXmlAttribute* attribute = node->ToElement()->FirstAttribute();
         attribute != nullptr; attribute = attribute->Next()) {
      if (std::string(attribute->Name()) == "NAME") property.name = attribute->Value();
      if (std::string(attribute->Name()) == "TYPE") property.type = attribute->Value();
    }
    if (name == "PROPERTY") PlainValues(node, property.values);
    for (const TiXmlNode* child = node->FirstChild(); child != nullptr && name != "PROPERTY";
         child = child->NextSibling()) {
      if (child->ToElement() != nullptr && std::string(child->Value()) == "VALUE.ARRAY") {
        PlainValues(child, property.values);
      }
    }
    properties.push_back(property);
  }
  for (const TiXmlNode* child = node->FirstChild(); child != nullptr;
       child = child->NextSibling()) {
    PlainProperties(child, properties);
  }
}

void PlainInstances(const TiXmlNode* node, Content& content) {
  const TiXmlElement* element = node->ToElement();
  if (element != nullptr && std::string(element->Value()) == "INSTANCE" &&
      element->FirstAttribute() != nullptr) {
    if (std::string(element->FirstAttribute()->Name()) != "CLASSNAME") content.hasMisfit = true;
    if (content.hasMisfit) return;
    PlainProperties(element, content.instances.emplace_back());
  }
  for (const TiXmlNode* child = node->FirstChild(); child != nullptr && !content.hasMisfit;
       child = child->NextSibling()) {
    PlainInstances(child, content);
  }
}

Content PlainContent(const std::string& path) {
  Content content;
  TiXmlDocument document(path);
  content.loaded = document.LoadFile(TIXML_ENCODING_UNKNOWN);
  const TiXmlNode* root = content.loaded ? document.FirstChildElement() : nullptr;
  content.hasRoot = root != nullptr;
  if (root == nullptr) return content;
  PlainProperties(root, content.properties);
  PlainInstances(root, content);
  return content;
}

Content ContentOf(const std::string& path, DescriptorKind kind, Positions positions) {
  Content content;
  CimXmlDocument document;
  content.loaded = document.LoadFile(path, kind, positions).fault == LoadFault::None;
  content.hasRoot = document.Root() != nullptr;
  ReadProperties(document.Root(), content.properties);
  std::vector<const TiXmlNode*> instances;
  content.hasMisfit = CollectInstances(document.Root(), instances) != nullptr;
  for (const TiXmlNode* instance : instances) {
    ReadProperties(instance, content.instances.emplace_back());
  }
  return content;
}

// LoadFile allocates one byte more than the file has, and steps over a character by its lead byte's
// word: a lead byte that reaches further than that one byte takes it out of its buffer.
bool LoadFileStaysInside(const std::string& bytes) {
  std::string buffer = bytes;
  std::size_t to = 0;
  for (std::size_t from = 0; from < bytes.size() && bytes[from] != '\0'; ++from) {
    const bool isCarriageReturn = bytes[from] == '\r';
    buffer[to++] = isCarriageReturn ? '\n' : bytes[from];
    if (isCarriageReturn && from + 1 < bytes.size() && bytes[from + 1] == '\n') ++from;
  }
  if (to < buffer.size()) buffer[to] = '\0';
  for (std::size_t left = 1; left <= 3 && left <= buffer.size(); ++left) {
    const auto lead = static_cast<unsigned char>(buffer[buffer.size() - left]);
    if (static_cast<std::size_t>(TiXmlBase::utf8ByteTable[lead]) > left) return false;
  }
  return true;
}

// What the documents of a run were, so that it cannot pass on documents of one sort.
struct Shares {
  std::size_t compared = 0;
  std::size_t failed = 0;
  std::size_t withoutRoot = 0;
  std::size_t withProperties = 0;
  std::size_t withInstances = 0;
  std::size_t withMisfit = 0;

  void Count(const Content& content) {
    ++compared;
    if (!content.loaded) ++failed;
    if (content.loaded && !content.hasRoot) ++withoutRoot;
    if (!content.properties.empty()) ++withProperties;
    if (!content.instances.empty()) ++withInstances;
    if (content.hasMisfit) ++withMisfit;
  }
};

// Windows and Wine need some ten times as long for a file, and between the systems only the reading
// of it differs.
#ifdef _WIN32
constexpr std::size_t enough = 10'000;
#else
constexpr std::size_t enough = 100'000;
#endif

TEST(CimXmlLoadFile, GivesWhatTinyXmlGives) {
  const TempFolder folder;
  const std::string path = folder.Write("d.xml", "");
  RandomPick pick(20'240'217);
  Shares shares;
  while (shares.compared < enough) {
    const std::string bytes = RandomXml(pick);
    if (!LoadFileStaysInside(bytes)) continue;
    // Some file systems flush a file that is cut and written again.
    ASSERT_EQ(std::remove(path.c_str()), 0);
    folder.Write("d.xml", bytes);
    const Content plain = PlainContent(path);
    const auto kind = pick.OneIn(2) ? DescriptorKind::Individual : DescriptorKind::Pack;
    const auto positions = pick.OneIn(4) ? Positions::Tracked : Positions::Ignored;
    ASSERT_EQ(ContentOf(path, kind, positions), plain)
        << "document " << shares.compared << ": " << testing::PrintToString(bytes);
    shares.Count(plain);
  }
  EXPECT_EQ(shares.compared, enough);
  EXPECT_GT(shares.failed, enough / 5);
  EXPECT_LT(shares.failed, enough * 4 / 5);
  EXPECT_GT(shares.withoutRoot, enough / 100);
  EXPECT_GT(shares.withProperties, enough / 5);
  EXPECT_GT(shares.withInstances, enough / 10);
  EXPECT_GT(shares.withMisfit, enough / 200);
}

// The documents that LoadFile cannot take load or fail, and nothing is read behind their bytes.
TEST(CimXmlLoadFile, TakesTextsThatEndInsideACharacter) {
  RandomPick pick(20'240'218);
  std::size_t taken = 0;
  std::size_t loaded = 0;
  while (taken < 2'000) {
    std::string bytes = RandomXml(pick);
    bytes += pick.Of(std::vector<std::string>{"\xC3", "\xE2\x82", "\xEF", "\xF0\x9F\x98", "\xF0"});
    if (LoadFileStaysInside(bytes)) continue;
    ++taken;
    CimXmlDocument document;
    const LoadOutcome outcome =
        document.LoadBytes(bytes, DescriptorKind::Individual, Positions::Tracked);
    if (outcome.fault == LoadFault::None) ++loaded;
    EXPECT_EQ(outcome.reason.empty(), outcome.fault == LoadFault::None);
  }
  EXPECT_GT(loaded, 100U);
  EXPECT_LT(loaded, 1'900U);
}

}  // namespace
}  // namespace Vornik
