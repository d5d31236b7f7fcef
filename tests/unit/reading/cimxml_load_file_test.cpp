// Reading a document into memory, checking it and parsing it gives what TinyXML's own LoadFile
// gives, for every document that LoadFile can take.
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "inspection/xml_places.h"
#include "plain_cimxml.h"
#include "random_xml.h"
#include "reading/cimxml.h"
#include "reading_of.h"
#include "temp_folder.h"
#include "test_random.h"

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

// Every instance is read, with and without properties.
PlainContent ContentOf(const std::string& path, DescriptorKind kind) {
  DescriptorReader reader = Testing::ReadingOf(path);
  PlainContent content;
  content.loaded = reader.ParseDocument(kind);
  content.hasRoot = content.loaded && reader.FindRoot();
  if (!content.hasRoot) return content;
  CimXmlDocument document;
  document.Parse(PrepareXml(Testing::ReadingOf(path).Bytes().value_or("")), kind,
                 Positions::Ignored);
  content.properties = ReadProperties(document.Root());
  content.hasMisfit = !document.CollectInstances();
  for (std::size_t i = 0; i < document.Instances().size(); ++i) {
    content.instances.push_back(content.hasMisfit ? ReadProperties(document.Instances()[i].node)
                                                  : document.TakeProperties(i));
  }
  return content;
}

// LoadFile allocates one byte more than the file has, and steps over a character by its lead byte:
// a lead byte that reaches further than that one byte takes it out of its buffer.
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
constexpr std::size_t documents = 10'000;
#else
constexpr std::size_t documents = 100'000;
#endif

TEST(CimXmlLoadFile, GivesWhatTinyXmlGives) {
  const TempFolder folder;
  const std::string path = folder.Write("d.xml", "");
  Testing::TestRandom pick;
  const std::size_t enough = pick.Rounds(documents);
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
    ASSERT_TRUE(ContentOf(path, kind) == plain)
        << "document " << shares.compared << ": " << testing::PrintToString(bytes);
    shares.Count(plain);
  }
  EXPECT_EQ(shares.compared, enough);
  if (!pick.RunsAllRounds()) return;
  EXPECT_GT(shares.failed, enough / 5);
  EXPECT_LT(shares.failed, enough * 4 / 5);
  EXPECT_GT(shares.withoutRoot, enough / 100);
  EXPECT_GT(shares.withProperties, enough / 5);
  EXPECT_GT(shares.withInstances, enough / 10);
  EXPECT_GT(shares.withMisfit, enough / 200);
}

// The documents that LoadFile cannot take load or fail, and nothing is read after their bytes.
TEST(CimXmlLoadFile, TakesTextsThatEndInsideACharacter) {
  Testing::TestRandom pick;
  const std::size_t enough = pick.Rounds(2'000);
  std::size_t taken = 0;
  std::size_t loaded = 0;
  while (taken < enough) {
    std::string bytes = RandomXml(pick);
    bytes += pick.Of(std::vector<std::string>{"\xC3", "\xE2\x82", "\xEF", "\xF0\x9F\x98", "\xF0"});
    if (LoadFileStaysInside(bytes)) continue;
    ++taken;
    CimXmlDocument document;
    PreparedXml xml = PrepareXml(bytes);
    const Positions positions = PositionsIn(xml);
    const ParseOutcome outcome =
        document.Parse(std::move(xml), DescriptorKind::Individual, positions);
    if (outcome.fault == DescriptorFault::None) ++loaded;
    EXPECT_EQ(outcome.parserText.empty(), outcome.fault == DescriptorFault::None);
  }
  if (!pick.RunsAllRounds()) return;
  EXPECT_GT(loaded, enough / 20);
  EXPECT_LT(loaded, enough - enough / 20);
}

}  // namespace
}  // namespace Vornik
