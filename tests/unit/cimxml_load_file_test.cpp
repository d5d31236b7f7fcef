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
#include "plain_cimxml.h"
#include "random_pick.h"
#include "random_xml.h"
#include "temp_folder.h"

namespace Vornik {

namespace {

using Testing::PlainContent;
using Testing::RandomPick;
using Testing::RandomXml;
using Testing::TempFolder;

PlainContent ContentOfTinyXml(const std::string& path) {
  TiXmlDocument document(path);
  document.LoadFile(TIXML_ENCODING_UNKNOWN);
  return Testing::PlainContentOf(document);
}

PlainContent ContentOf(const std::string& path, DescriptorKind kind, Positions positions) {
  PlainContent content;
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
  const std::string buffer = Testing::PlainFileBuffer(bytes).substr(0, bytes.size());
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

  void Count(const PlainContent& content) {
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
    const PlainContent plain = ContentOfTinyXml(path);
    ASSERT_TRUE(Testing::PlainContentOf(bytes) == plain) << testing::PrintToString(bytes);
    const auto kind = pick.OneIn(2) ? DescriptorKind::Individual : DescriptorKind::Pack;
    const auto positions = pick.OneIn(4) ? Positions::Tracked : Positions::Ignored;
    ASSERT_TRUE(ContentOf(path, kind, positions) == plain)
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
