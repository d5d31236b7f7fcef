#include "filters/payload_exist.h"

#include <gtest/gtest.h>

#include <boost/filesystem/operations.hpp>

#include "descriptors.h"
#include "temp_folder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace Vornik::Testing {
namespace {

constexpr auto found = PayloadVerdict::Found;
constexpr auto descriptorMissing = PayloadVerdict::DescriptorMissing;
constexpr auto payloadMissing = PayloadVerdict::PayloadMissing;

// A folder that holds d.xml and p.exe, a sub-folder sub with d.xml and p.exe of its own, and an
// empty sub-folder "folder.exe".
class PayloadRules : public testing::Test {
 protected:
  PayloadRules() {
    folder.Write("d.xml", "descriptor");
    folder.Write("p.exe", "payload");
    boost::filesystem::create_directory(folder.Path() + "/sub");
    boost::filesystem::create_directory(folder.Path() + "/folder.exe");
    folder.Write("sub/d.xml", "descriptor");
    folder.Write("sub/p.exe", "payload");
  }

  PayloadVerdict Judge(const std::string& xmlFilename, const std::string& payload) const {
    return EvaluatePayload(
        Descriptor().Set("xmlFilename", xmlFilename).Set("payload", payload).Properties(),
        folder.Path());
  }

  // The payload's verdict beside a descriptor that is there, and the descriptor's beside a payload
  // that is there: one name is judged alike in both places.
  bool Exists(const std::string& name) const {
    const bool asPayload = Judge("d.xml", name) == found;
    const bool asDescriptor = Judge(name, "p.exe") == found;
    EXPECT_EQ(asPayload, asDescriptor) << name;
    return asPayload;
  }

  TempFolder folder;
};

TEST_F(PayloadRules, VerdictNamesTheFirstThingThatIsMissing) {
  struct Case {
    const char* xmlFilename;
    const char* payload;
    PayloadVerdict verdict;
  };
  const Case cases[] = {
      {"d.xml", "p.exe", found},
      {"d.xml", "d.xml", found},
      {"", "", PayloadVerdict::NoXmlFilename},
      {"", "p.exe", PayloadVerdict::NoXmlFilename},
      {"d.xml", "", PayloadVerdict::NoPayload},
      {"none.xml", "", PayloadVerdict::NoPayload},
      {"none.xml", "none.exe", descriptorMissing},
      {"none.xml", "p.exe", descriptorMissing},
      {"folder.exe", "folder.exe", descriptorMissing},
      {"d.xml", "none.exe", payloadMissing},
      {"d.xml", "folder.exe", payloadMissing},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(Judge(one.xmlFilename, one.payload), one.verdict)
        << one.xmlFilename << ", " << one.payload;
  }
}

TEST_F(PayloadRules, PropertiesThatAreMissing) {
  const auto judge = [this](const Descriptor& descriptor) {
    return EvaluatePayload(descriptor.Properties(), folder.Path());
  };
  EXPECT_EQ(judge(Descriptor()), PayloadVerdict::NoXmlFilename);
  EXPECT_EQ(judge(Descriptor().Set("payload", "p.exe")), PayloadVerdict::NoXmlFilename);
  EXPECT_EQ(judge(Descriptor().Set("xmlFilename", "d.xml")), PayloadVerdict::NoPayload);
  EXPECT_EQ(judge(Descriptor().Set("XMLFILENAME", "d.xml").Set("Payload", "p.exe")), found);
  EXPECT_EQ(judge(Descriptor().Set("xmlFilename", {"d.xml", "x"}).Set("payload", {"p.exe", "x"})),
            found);
  EXPECT_EQ(judge(Descriptor().Set("xmlFilename", {"x", "d.xml"}).Set("payload", "p.exe")),
            descriptorMissing);
}

TEST_F(PayloadRules, NamesOfRegularFiles) {
  for (const char* name : {"d.xml", "p.exe", "sub/p.exe", "./p.exe", "sub/../p.exe", "sub//d.xml",
                           "folder.exe/../p.exe", "/p.exe", "//p.exe"}) {
    EXPECT_TRUE(Exists(name)) << name;
  }
}

TEST_F(PayloadRules, NamesOfNoRegularFile) {
  for (const std::string name : {"none.exe",    "p",
                                 "p.ex",        "p.exee",
                                 " p.exe",      "sub",
                                 "sub/",        "folder.exe",
                                 ".",           "..",
                                 "./",          "../",
                                 "/",           "sub/none.exe",
                                 "none/p.exe",  "p.exe/none.exe",
                                 "d.xml/p.exe", "*",
                                 "p.*",         "?.exe",
                                 "p.exe\n",     "\n",
                                 "%s",          "~",
                                 "$HOME"}) {
    EXPECT_FALSE(Exists(name)) << name;
  }
}

TEST_F(PayloadRules, LongNamesAreNoFiles) {
  for (const std::size_t size : {255U, 256U, 300U, 4'096U, 5'000U, 100'000U}) {
    EXPECT_FALSE(Exists(std::string(size, 'n'))) << size;
  }
  std::string deep;
  for (int i = 0; i < 3'000; ++i) deep += "sub/../";
  EXPECT_FALSE(Exists(deep + "none.exe"));
}

TEST_F(PayloadRules, AbsoluteNameIsLookedForInTheFolder) {
  const TempFolder other;
  const std::string absolute = other.Write("p.exe", "payload");
  EXPECT_FALSE(Exists(absolute));
}

TEST_F(PayloadRules, NameLeadsOutOfTheFolderWhereItSaysSo) {
  const auto properties =
      Descriptor().Set("xmlFilename", "../d.xml").Set("payload", "../p.exe").Properties();
  EXPECT_EQ(EvaluatePayload(properties, folder.Path() + "/sub"), found);
}

TEST_F(PayloadRules, NamesInTheSubfolderAreNotLookedForByThemselves) {
  folder.Write("sub/only.exe", "payload");
  EXPECT_FALSE(Exists("only.exe"));
  EXPECT_TRUE(Exists("sub/only.exe"));
}

TEST_F(PayloadRules, EmptyFileIsAFile) {
  folder.Write("empty.exe", "");
  EXPECT_TRUE(Exists("empty.exe"));
}

TEST_F(PayloadRules, FolderMayEndInASeparator) {
  const auto properties =
      Descriptor().Set("xmlFilename", "d.xml").Set("payload", "p.exe").Properties();
  EXPECT_EQ(EvaluatePayload(properties, folder.Path() + "/"), found);
  EXPECT_EQ(EvaluatePayload(properties, folder.Path() + "//"), found);
  EXPECT_EQ(EvaluatePayload(properties, folder.Path() + "/sub/.."), found);
}

TEST_F(PayloadRules, FolderThatIsNone) {
  const auto properties =
      Descriptor().Set("xmlFilename", "d.xml").Set("payload", "p.exe").Properties();
  for (const std::string& none :
       {folder.Path() + "/none", folder.Path() + "/d.xml", std::string(300, 'n')}) {
    EXPECT_EQ(EvaluatePayload(properties, none), descriptorMissing) << none;
  }
}

TEST_F(PayloadRules, FilesAreLookedForAtEveryCall) {
  EXPECT_EQ(Judge("d.xml", "p.exe"), found);
  boost::filesystem::remove(folder.Path() + "/d.xml");
  EXPECT_EQ(Judge("d.xml", "p.exe"), descriptorMissing);
  folder.Write("d.xml", "again");
  boost::filesystem::remove(folder.Path() + "/p.exe");
  EXPECT_EQ(Judge("d.xml", "p.exe"), payloadMissing);
  boost::filesystem::create_directory(folder.Path() + "/p.exe");
  EXPECT_EQ(Judge("d.xml", "p.exe"), payloadMissing);
}

TEST_F(PayloadRules, NameEndsAtAZeroByte) {
  const std::string zero(1, '\0');
  EXPECT_TRUE(Exists("p.exe" + zero));
  EXPECT_TRUE(Exists("p.exe" + zero + "x"));
  EXPECT_FALSE(Exists("none.exe" + zero + "p.exe"));
  EXPECT_FALSE(Exists(zero + "p.exe"));
}

#ifdef _WIN32

TEST_F(PayloadRules, BackslashAndCaseOfThisSystem) {
  for (const char* name :
       {"sub\\p.exe", "sub/p.exe", ".\\sub\\..\\p.exe", "\\p.exe", "P.EXE", "SUB/p.Exe"}) {
    EXPECT_TRUE(Exists(name)) << name;
  }
  EXPECT_FALSE(Exists("sub\\none.exe"));
  EXPECT_FALSE(Exists("sub\\"));
}

TEST_F(PayloadRules, NamesThatThisSystemRefuses) {
  for (const char* name : {"p<.exe", "p>.exe", "p|.exe", "p\".exe", "C:\\p.exe", "\x01"}) {
    EXPECT_FALSE(Exists(name)) << name;
  }
}

TEST_F(PayloadRules, FolderWithATrailingBackslash) {
  const auto properties =
      Descriptor().Set("xmlFilename", "sub/d.xml").Set("payload", "p.exe").Properties();
  EXPECT_EQ(EvaluatePayload(properties, folder.Path() + "\\"), found);
  EXPECT_EQ(EvaluatePayload(properties, folder.Path() + "\\sub\\..\\"), found);
}

TEST_F(PayloadRules, LettersOfTheProcessesCodePage) {
  folder.Write("\xE4.exe", "payload");
  EXPECT_TRUE(Exists("\xE4.exe"));
  EXPECT_FALSE(Exists("\xF6.exe"));
}

#endif

#ifndef _WIN32

TEST_F(PayloadRules, NamesOfAnyBytes) {
  for (const std::string name : {"\xC3\xA4.exe", "\xE4.exe", "\xFF\xFE", "\x80", "\x01", "\xC3"}) {
    EXPECT_FALSE(Exists(name)) << testing::PrintToString(name);
    folder.Write(name, "payload");
    EXPECT_TRUE(Exists(name)) << testing::PrintToString(name);
  }
}

TEST_F(PayloadRules, FolderOfNoNameIsTheRoot) {
  const std::string fromRoot = folder.Path().substr(1);
  const auto properties = Descriptor()
                              .Set("xmlFilename", fromRoot + "/d.xml")
                              .Set("payload", fromRoot + "/p.exe")
                              .Properties();
  EXPECT_EQ(EvaluatePayload(properties, ""), found);
}

TEST_F(PayloadRules, BackslashIsALetterOnThisSystem) {
  EXPECT_FALSE(Exists("sub\\p.exe"));
  folder.Write("sub\\p.exe", "payload");
  EXPECT_TRUE(Exists("sub\\p.exe"));
}

TEST_F(PayloadRules, LongestNameOfThisSystem) {
  const std::string name(255, 'n');
  folder.Write(name, "payload");
  EXPECT_TRUE(Exists(name));
}

class LinkedPayload : public PayloadRules {
 protected:
  void Link(const std::string& target, const std::string& name) {
    boost::filesystem::create_symlink(target, folder.Path() + "/" + name);
  }
};

TEST_F(LinkedPayload, LinkToAFileIsAFile) {
  Link("p.exe", "link");
  Link("link", "second");
  Link(folder.Path() + "/sub/p.exe", "absolute");
  Link("sub", "subLink");
  EXPECT_TRUE(Exists("link"));
  EXPECT_TRUE(Exists("second"));
  EXPECT_TRUE(Exists("absolute"));
  EXPECT_TRUE(Exists("subLink/p.exe"));
}

TEST_F(LinkedPayload, LinkToAFolderIsNone) {
  Link("sub", "link");
  EXPECT_FALSE(Exists("link"));
  EXPECT_FALSE(Exists("link/"));
}

TEST_F(LinkedPayload, LinkToNothingIsNone) {
  Link("none", "link");
  EXPECT_FALSE(Exists("link"));
  folder.Write("none", "now it is there");
  EXPECT_TRUE(Exists("link"));
}

TEST_F(LinkedPayload, LoopOfLinksIsNone) {
  Link("self", "self");
  Link("b", "a");
  Link("a", "b");
  EXPECT_FALSE(Exists("self"));
  EXPECT_FALSE(Exists("a"));
  EXPECT_FALSE(Exists("a/p.exe"));
}

TEST_F(PayloadRules, PipeIsNone) {
  ASSERT_EQ(mkfifo((folder.Path() + "/pipe").c_str(), 0600), 0);
  EXPECT_FALSE(Exists("pipe"));
}

#endif

}  // namespace
}  // namespace Vornik::Testing
