// Folders in which other programs leave anything, on purpose or not: the query ends, each unsound
// file has its line, and the sound packages beside it are in the results.
#include <boost/filesystem.hpp>
#include <functional>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/stat.h>
#endif

#include "query_fixture.h"
#include "recording_callback.h"
#include "repeat.h"

namespace Vornik::Testing {
namespace {

namespace fs = boost::filesystem;

const std::string individualMarker = "<!-- SystemUpdateElement -->\n";
const std::string packMarker = "<!-- ORXQDL_SystemUpdateProduct -->\n";

std::string ManyAttributes(std::size_t count) {
  std::string element = "<a";
  for (std::size_t i = 0; i < count; ++i) element += " b" + std::to_string(i) + "=''";
  return element + "/>";
}

std::string Utf16(const std::string& ascii, bool bigEndian) {
  std::string wide = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii) wide += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return wide;
}

class HostileFolderTest : public QueryTest {
 protected:
  HostileFolderTest() {
    WriteIndividual("a_sound.xml");
    WriteIndividual("z_sound.xml");
  }

  // What the scan reported of files, without the lines of the filters.
  static Lines FileErrors() {
    Lines errors;
    for (const std::string& error : Errors()) {
      if (error.rfind("ERROR: ", 0) != 0) errors.push_back(error);
    }
    return errors;
  }

  // Runs a query on an object of its own; the two sound packages have to be there.
  void RunBesideSound(const std::string& what = "") {
    imp = QueryPackageImp();
    imp.xmlPackageFolder = folder.Path();
    imp.osValue = os;
    imp.arcValue = arch;
    imp.machineType = "1234";
    RecordingLog::Reset();
    EXPECT_EQ(Run(), QueryCode::Completed) << what;
    const Lines codes = Codes();
    ASSERT_GE(codes.size(), 2U) << what;
    EXPECT_EQ(codes.front(), "a_sound") << what;
    EXPECT_EQ(codes.back(), "z_sound") << what;
  }

  // One line, and no record.
  void ExpectReported(const std::string& bytes, const std::string& line) {
    folder.Write("hostile.xml", bytes);
    RunBesideSound(line);
    EXPECT_EQ(FileErrors(), Lines{line});
    EXPECT_EQ(results.size(), 2U);
  }

  void ExpectIndividualFails(const std::string& document) {
    ExpectReported(individualMarker + document, "Faile to load Package XML: " + hostile);
  }

  void ExpectPackFails(const std::string& document) {
    ExpectReported(packMarker + document, "Faile to load Kovu XML: " + hostile);
  }

  // Either a record more or exactly one line, never both and never neither.
  void ExpectLoadedOrReported(const std::string& bytes, const std::string& what) {
    folder.Write("hostile.xml", bytes);
    RunBesideSound(what);
    EXPECT_EQ(results.size() - 2 + FileErrors().size(), 1U) << what;
  }

  const std::string hostile = PathOf("hostile.xml");
  const std::string notValid = "hostile.xml is not a valid ORX xml";
};

TEST_F(HostileFolderTest, DeepNesting) {
  for (const std::string& end : {Repeat("</a>", 200'000), std::string()}) {
    const std::string document = Repeat("<a>", 200'000) + end;
    ExpectIndividualFails(document);
    ExpectPackFails(document);
    ExpectReported(document, notValid);
  }
}

TEST_F(HostileFolderTest, DeepestNestingThatIsRead) {
  const auto nested = [](const std::string& begin, std::size_t depth, const std::string& end) {
    return Repeat(begin, depth) + "<PROPERTY NAME='x'/>" + Repeat(end, depth);
  };
  folder.Write("hostile.xml", individualMarker + nested("<a>", 999, "</a>"));
  RunBesideSound();
  EXPECT_EQ(FileErrors(), Lines{});
  EXPECT_EQ(results.size(), 3U);

  folder.Write("hostile.xml", packMarker + nested("<INSTANCE CLASSNAME='a'>", 999, "</INSTANCE>"));
  RunBesideSound();
  EXPECT_EQ(FileErrors(), Lines{});
  ASSERT_EQ(imp.repository.kovuPackEntries().size(), 1U);
  EXPECT_EQ(imp.repository.kovuPackEntries()[0].members.size(), 999U);
}

TEST_F(HostileFolderTest, ManyAttributes) {
  ExpectIndividualFails(ManyAttributes(64'000));
  ExpectPackFails(ManyAttributes(64'000));
}

TEST_F(HostileFolderTest, LongLine) {
  const std::string line = Repeat("x", 50'000'000);
  ExpectReported("<a>" + line + "</a>", notValid);
  ExpectReported(individualMarker + "<a>" + line + "</a>",
                 "Faile to load Package XML's property value");
  ExpectReported(packMarker + "<a>" + line + "</a>", "UpdateElements in Kovu is empty");

  WriteIndividual("hostile.xml", Descriptor().Set("description", line));
  RunBesideSound();
  ASSERT_EQ(results.size(), 3U);
  EXPECT_TRUE(results[1].description == line);
}

TEST_F(HostileFolderTest, EndInsideACharacter) {
  for (const char* end : {"\xC3", "\xE2\x80", "\xF0\x9F\x98", "\xEF", "\xEF\xBB"}) {
    ExpectIndividualFails(std::string("<a>") + end);
    ExpectIndividualFails(std::string("<a b='") + end);
    ExpectIndividualFails(std::string("<a") + end);
    ExpectPackFails(std::string("<a>") + end);
  }
}

TEST_F(HostileFolderTest, ZeroBytesAnywhere) {
  const std::string text = Descriptor("h").Set("preReq", {"a"}).Individual();
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::string bytes = text;
    bytes[at] = '\0';
    ExpectLoadedOrReported(bytes, "zero at " + std::to_string(at));
  }
  ExpectReported(std::string(100'000, '\0'), notValid);
}

TEST_F(HostileFolderTest, ByteOfAMarkAnywhere) {
  const std::string text = Descriptor("h").Set("preReq", {"a"}).Individual();
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::string bytes = text;
    bytes[at] = '\xEF';
    ExpectLoadedOrReported(bytes, "0xEF at " + std::to_string(at));
    ExpectLoadedOrReported(std::string(text).insert(at, 1, '\xEF'),
                           "0xEF before " + std::to_string(at));
  }
  ExpectReported(std::string(100'000, '\xEF'), notValid);
}

TEST_F(HostileFolderTest, Utf16) {
  const std::string text = Descriptor("h").Individual();
  for (const bool bigEndian : {false, true}) {
    ExpectReported(Utf16(text, bigEndian), notValid);
    ExpectIndividualFails("<a>" + Utf16(text, bigEndian));
  }
}

TEST_F(HostileFolderTest, DocumentTypeWithNestedEntities) {
  std::string entities = "<!ENTITY e0 \"xxxxxxxxxx\">";
  for (int i = 1; i < 30; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    entities += "<!ENTITY e" + std::to_string(i) + " \"" + Repeat(inner, 10) + "\">";
  }
  const std::string root = Descriptor("&e29;").Instance();
  // The reader knows no document type: it ends at the first '>', and what follows is no root.
  ExpectReported("<!DOCTYPE a [" + entities + "]>\n" + individualMarker + root,
                 "Faile to load Package XML's root node");
  ExpectReported("<!DOCTYPE a [" + entities + "]>\n" + packMarker + root,
                 "Faile to load Kovu XML's root node");
}

TEST_F(HostileFolderTest, ManyProperties) {
  folder.Write(
      "hostile.xml",
      individualMarker + "<a>" +
          Repeat("<PROPERTY NAME='identificationCode'><VALUE>h</VALUE></PROPERTY>", 200'000) +
          "</a>");
  RunBesideSound();
  EXPECT_EQ(FileErrors(), Lines{});
  EXPECT_EQ(Codes(), (Lines{"a_sound", "h", "z_sound"}));
}

TEST_F(HostileFolderTest, NestedInstancesOverManyProperties) {
  const std::string instances = Repeat("<INSTANCE CLASSNAME='a'>", 900);
  const std::string end = Repeat("</INSTANCE>", 900);
  ExpectPackFails(instances + Repeat("<PROPERTY NAME='x'/>", 3'000) + end);

  folder.Write("hostile.xml", packMarker + instances + Repeat("<PROPERTY NAME='x'/>", 1'000) + end);
  RunBesideSound();
  ASSERT_EQ(imp.repository.kovuPackEntries().size(), 1U);
  EXPECT_EQ(imp.repository.kovuPackEntries()[0].members.size(), 900U);
}

TEST_F(HostileFolderTest, PackInsideAPack) {
  const std::string begin =
      "<INSTANCE CLASSNAME='a'><PROPERTY NAME='xmlFilename'><VALUE>hostile.xml</VALUE></PROPERTY>";
  ExpectPackFails(Repeat(begin, 3'000) + Repeat("</INSTANCE>", 3'000));
}

TEST_F(HostileFolderTest, FolderOfThatName) {
  fs::create_directory(hostile);
  RunBesideSound();
  EXPECT_EQ(FileErrors(), Lines{notValid});
}

// What the results hold is what was read; that the descriptor is gone shows in one slot.
TEST_F(HostileFolderTest, FileThatChangesBetweenScanAndFilters) {
  const Descriptor package = Descriptor().Set("xmlFilename", "hostile.xml").Set("payload", "h.exe");
  folder.Write("h.exe", "payload");
  const auto deleted = [this] { fs::remove(hostile); };
  const auto aFolder = [this] {
    fs::remove(hostile);
    fs::create_directory(hostile);
  };
  const auto cut = [this] { folder.Write("hostile.xml", "<?xml"); };
  const auto another = [this] { WriteIndividual("hostile.xml", Descriptor("other")); };
  const struct {
    std::function<void()> change;
    std::uint32_t payloadExist;
  } cases[] = {{deleted, FilterStatus::NotMatched},
               {aFolder, FilterStatus::NotMatched},
               {cut, FilterStatus::Matched},
               {another, FilterStatus::Matched}};
  for (const auto& [change, payloadExist] : cases) {
    WriteIndividual("hostile.xml", package);
    RecordingCallback callback(change);
    imp.queryCallback = &callback;
    EXPECT_EQ(Run(), QueryCode::Completed);
    EXPECT_EQ(FileErrors(), Lines{});
    ASSERT_EQ(Codes(), (Lines{"a_sound", "hostile", "z_sound"}));
    EXPECT_EQ(results[1].payloadExistFilterStatus, payloadExist);
    EXPECT_EQ(results[1].platformFilterStatus, FilterStatus::Matched);
    fs::remove(hostile);
    imp.repository = {};
    RecordingLog::Reset();
  }
}

#ifndef _WIN32

// The folder was listed before.
TEST_F(HostileFolderTest, FileThatChangesBeforeItIsRead) {
  const auto deleted = [this] { fs::remove(hostile); };
  const auto aFolder = [this] {
    fs::remove(hostile);
    fs::create_directory(hostile);
  };
  const auto aPipe = [this] {
    fs::remove(hostile);
    ASSERT_EQ(::mkfifo(hostile.c_str(), 0600), 0);
  };
  const auto aLoop = [this] {
    fs::remove(hostile);
    fs::create_symlink(hostile, hostile);
  };
  for (const std::function<void()>& change :
       std::vector<std::function<void()>>{deleted, aFolder, aPipe, aLoop}) {
    WriteIndividual("hostile.xml");
    bool changed = false;
    RecordingLog::OnRecord([&](const LogEntry& entry) {
      if (changed || entry.text != "Load Package XML file: " + PathOf("a_sound.xml")) return;
      changed = true;
      change();
    });
    EXPECT_EQ(Run(), QueryCode::Completed);
    EXPECT_TRUE(changed);
    EXPECT_EQ(FileErrors(), Lines{notValid});
    EXPECT_EQ(Codes(), (Lines{"a_sound", "z_sound"}));
    fs::remove(hostile);
    imp.repository = {};
    RecordingLog::Reset();
  }
}

TEST_F(HostileFolderTest, NamesThatAreNoText) {
  const std::string name = "m\xFF\xC3(\n\x01.xml";
  WriteIndividual(name);
  folder.Write("n\xFF.xml", "<x/>");
  RunBesideSound();
  EXPECT_EQ(FileErrors(), Lines{"n\xFF.xml is not a valid ORX xml"});
  ASSERT_EQ(results.size(), 3U);
  EXPECT_EQ(results[1].packageXmlFile, PathOf(name));
}

#else

// Outside every single-byte encoding, and, where a file system takes it, no text at all.
TEST_F(HostileFolderTest, NamesThatTheEncodingLacks) {
  std::size_t written = 0;
  for (const wchar_t* name : {L"m\u5957\u4EF6.xml", L"n\xD800.xml"}) {
    boost::system::error_code error;
    fs::copy_file(PathOf("a_sound.xml"), fs::path(folder.Path()) / name, error);
    if (!error) ++written;
  }
  ASSERT_GE(written, 1U);
  RunBesideSound();
  EXPECT_EQ(FileErrors().size(), written);
  EXPECT_EQ(results.size(), 2U);
}

#endif

TEST_F(HostileFolderTest, LongestNames) {
  const std::string stem = "m" + std::string(250, 'x');
  WriteIndividual(stem + ".xml");
  folder.Write("n" + std::string(250, 'x') + ".xml", "<x/>");
  RunBesideSound();
  EXPECT_EQ(FileErrors(), Lines{"n" + std::string(250, 'x') + ".xml is not a valid ORX xml"});
  EXPECT_EQ(Codes(), (Lines{"a_sound", stem, "z_sound"}));
}

}  // namespace
}  // namespace Vornik::Testing
