// What depends on the system that a folder is meant for, whichever system lint runs on.
#include <boost/filesystem.hpp>

#include "lint/lint_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LintTargetTest : public LintTest {
 protected:
  std::vector<std::string> OnWindows(const std::string& id) {
    return PlacesOf(id, {"--target", "windows"});
  }
  std::vector<std::string> OnPosix(const std::string& id) {
    return PlacesOf(id, {"--target", "posix"});
  }
};

// A marker that begins 9 bytes and the filler after the beginning of its line.
std::string MarkerAfter(std::size_t filler) {
  return "\r\n<CIM><!--" + std::string(filler, 'x') +
         "SystemUpdateElement\r\n--><INSTANCE CLASSNAME='x'/></CIM>";
}

TEST_F(LintTargetTest, WindowsIsTheDefault) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "A.EXE")));
  EXPECT_THAT(PlacesOf("payload-missing"), IsEmpty());
  EXPECT_EQ(OnPosix("payload-missing").size(), 1U);
}

TEST_F(LintTargetTest, ByteThatEndsTheFileOnWindowsHidesTheMarkerThere) {
  std::string text = SoundText("a");
  text.insert(text.find("<CIM>"), "<!-- \x1A -->");
  WriteFiles(PackageFiles("a", text));
  EXPECT_THAT(OnWindows("marker-hidden"),
              ElementsAre("a.xml:" + PlaceIn(text, "SystemUpdateElement")));
  EXPECT_THAT(OnPosix("marker-hidden"), IsEmpty());
  EXPECT_THAT(OnPosix("no-marker"), IsEmpty());
}

TEST_F(LintTargetTest, SecondMarkerAfterThatByteMakesNoPackOnWindows) {
  std::string text = SoundText("a");
  text.insert(text.find("</CIM>"), "<!-- \x1A ORXQDL_SystemUpdateProduct -->");
  WriteFiles(PackageFiles("a", text));
  EXPECT_THAT(OnWindows("both-markers"), IsEmpty());
  EXPECT_THAT(OnWindows("marker-hidden"),
              ElementsAre("a.xml:" + PlaceIn(text, "ORXQDL_SystemUpdateProduct")));
  EXPECT_THAT(OnPosix("both-markers"),
              ElementsAre("a.xml:" + PlaceIn(text, "ORXQDL_SystemUpdateProduct")));
}

TEST_F(LintTargetTest, PieceEndsAtTheSameByteOnBothTargetsWithinALine) {
  WriteFiles(
      {{"fits.xml", MarkerAfter(1'023 - 9 - 19)}, {"straddles.xml", MarkerAfter(1'023 - 9 - 18)}});
  EXPECT_EQ(OnWindows("marker-straddles").size(), 1U);
  EXPECT_EQ(OnWindows("marker-straddles"), OnPosix("marker-straddles"));
}

TEST_F(LintTargetTest, BackslashSeparatesOnWindowsAlone) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "sub\\a.exe")) +
             LintFiles{{"sub/a.exe", "x"}});
  EXPECT_THAT(OnWindows("payload-missing"), IsEmpty());
  EXPECT_THAT(OnWindows("separator-foreign"), IsEmpty());
  EXPECT_EQ(OnPosix("separator-foreign").size(), 1U);
}

TEST_F(LintTargetTest, ForwardSlashSeparatesOnBoth) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "sub/a.exe")) +
             LintFiles{{"sub/a.exe", "x"}});
  EXPECT_THAT(OnWindows("payload-missing"), IsEmpty());
  EXPECT_THAT(OnPosix("payload-missing"), IsEmpty());
}

TEST_F(LintTargetTest, FolderThatANameLeavesAgainNeedNotExistOnWindows) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "gone/../A.exe")));
  EXPECT_THAT(OnWindows("payload-missing"), IsEmpty());
  EXPECT_EQ(OnPosix("payload-missing").size(), 1U);
}

TEST_F(LintTargetTest, CaseOfAPayloadCountsOnPosix) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "SUB/a.exe")) +
             LintFiles{{"sub/A.exe", "x"}});
  EXPECT_THAT(OnWindows("payload-missing"), IsEmpty());
  EXPECT_THAT(TextOf("payload-missing", {"--target", "posix"}),
              HasSubstr("\"sub/A.exe\" differs in case"));
}

TEST_F(LintTargetTest, CaseOfAMembersFileCountsOnPosix) {
  const std::string member = PutValue(SoundInstance("p-member"), "xmlFilename", "P-Member.XML");
  WriteFiles(PackFiles("p", OwnInstance("p.xml"), member));
  EXPECT_THAT(OnWindows("member-file-missing"), IsEmpty());
  EXPECT_EQ(OnPosix("member-file-missing").size(), 1U);
}

TEST_F(LintTargetTest, PayloadsThatDifferInCaseAreOneOnWindows) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "one.exe")) +
             PackageFiles("b", PutValue(SoundText("b"), "payload", "ONE.exe")) +
             LintFiles{{"one.exe", "x"}});
  EXPECT_EQ(OnWindows("payload-shared").size(), 2U);
  EXPECT_THAT(OnPosix("payload-shared"), IsEmpty());
}

TEST_F(LintTargetTest, NamesAreJudgedByTheTargetsRules) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "aux.exe")) +
             PackageFiles("b", PutValue(SoundText("b"), "payload", "\xC3\xA9.exe")));
  EXPECT_EQ(OnWindows("name-invalid").size(), 1U);
  EXPECT_THAT(OnPosix("name-invalid"), IsEmpty());
  EXPECT_EQ(OnWindows("name-encoding").size(), 1U);
  EXPECT_THAT(OnPosix("name-encoding"), IsEmpty());
}

#ifndef _WIN32
TEST_F(LintTargetTest, FilesThatWindowsCannotHoldAreNamed) {
  WriteFiles({{"a\\b.xml", SoundText("a")}, {"q?.xml", SoundText("b")}});
  EXPECT_THAT(OnWindows("name-invalid"), ElementsAre("a\\b.xml:0:0", "q?.xml:0:0"));
  EXPECT_THAT(OnPosix("name-invalid"), IsEmpty());
}

TEST_F(LintTargetTest, FileNameThatIsNoTextIsNamedOnBoth) {
  WriteFiles({{"a\xFF.xml", SoundText("a")}});
  EXPECT_EQ(OnWindows("name-encoding").size(), 1U);
  EXPECT_EQ(OnPosix("name-encoding").size(), 1U);
}

TEST_F(LintTargetTest, NameWithABackslashThatIsThereIsSoundOnPosix) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "s\\a.exe")) +
             LintFiles{{"s\\a.exe", "x"}});
  EXPECT_THAT(OnPosix("separator-foreign"), IsEmpty());
  EXPECT_THAT(OnPosix("payload-missing"), IsEmpty());
}

TEST_F(LintTargetTest, PayloadBehindALinkOutOfTheFolderIsOutside) {
  const TempFolder other;
  boost::filesystem::create_symlink(other.Write("a.exe", "x"),
                                    boost::filesystem::path(folder.Path()) / "a.exe");
  WriteFiles({{"a.xml", SoundText("a")}});
  EXPECT_EQ(OnWindows("payload-outside").size(), 1U);
  EXPECT_EQ(OnPosix("payload-outside").size(), 1U);
  EXPECT_THAT(OnPosix("payload-missing"), IsEmpty());
}
#endif

}  // namespace
}  // namespace Vornik::Testing
