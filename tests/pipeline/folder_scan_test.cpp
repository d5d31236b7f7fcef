// Walking the package folder and telling its files apart.
#include <boost/filesystem/operations.hpp>
#include <cerrno>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "folder_listing.h"
#include "query_fixture.h"
#include "reading_of.h"
#include "unqueryable_folder.h"

namespace Vornik::Testing {
namespace {

namespace fs = boost::filesystem;

class FolderScanTest : public QueryTest {
 protected:
  Lines LoadedFiles() const {
    Lines files;
    for (const auto& entry : imp.repository.packageXmlEntries()) files.push_back(entry.xmlFile);
    return files;
  }
};

TEST_F(FolderScanTest, EmptyFolderTextFails) {
  imp.xmlPackageFolder = "";
  EXPECT_FALSE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Log(), Lines{"1 xml package folder is not set"});
  EXPECT_TRUE(imp.repository.packageXmlEntries().empty());
  EXPECT_TRUE(imp.repository.kovuPackEntries().empty());
}

TEST_F(FolderScanTest, MissingFolderIsReportedAndPasses) {
  imp.xmlPackageFolder = PathOf("missing");
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Log(), Lines{"1 " + imp.xmlPackageFolder + " does not exist\n"});
  EXPECT_TRUE(imp.repository.packageXmlEntries().empty());
}

TEST_F(FolderScanTest, FileInPlaceOfTheFolderIsReportedAndPasses) {
  imp.xmlPackageFolder = folder.Write("plain", "x");
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Log(), Lines{"1 " + imp.xmlPackageFolder + " exists, but is not a directory\n"});
  EXPECT_TRUE(imp.repository.packageXmlEntries().empty());
}

TEST_F(FolderScanTest, EmptyFolderPassesWithoutALine) {
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(FolderScanTest, OtherExtensionsAreSkippedWithoutAWord) {
  for (const char* name : {"B.XML", "b.Xml", "b.xml.bak", "b", "xml", "b.xm", "b.xmlx", "b.xml~"}) {
    folder.Write(name, Descriptor("b").Individual());
  }
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Log(), Lines{});
  EXPECT_TRUE(imp.repository.packageXmlEntries().empty());
}

TEST_F(FolderScanTest, IndividualDescriptorIsLoadedWithItsFullPath) {
  const std::string path = folder.Write("a.xml", Descriptor("a").Individual());
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Log(), (Lines{"3 " + path + " is not Kovu xml", "3 " + path + " is individual xml",
                          "3 Load Package XML file: " + path, "3 Load Package XML's root node",
                          "3 Get Package XML's property value"}));
  EXPECT_EQ(LoadedFiles(), Lines{path});
}

TEST_F(FolderScanTest, FileWithBothMarkersIsAPackOnly) {
  const std::string path =
      folder.Write("both.xml", Pack({Descriptor("p")}) + "<!-- SystemUpdateElement -->");
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  ASSERT_EQ(imp.repository.kovuPackEntries().size(), 1U);
  EXPECT_EQ(imp.repository.kovuPackEntries()[0].kovuXmlFile, path);
  EXPECT_TRUE(imp.repository.packageXmlEntries().empty());
  EXPECT_EQ(Log()[0], "3 " + path + " is Kovu xml");
}

TEST_F(FolderScanTest, FileWithNeitherMarkerIsReportedByItsBareName) {
  const std::string path = folder.Write("plain.xml", "<x/>");
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Log(), (Lines{"3 " + path + " is not Kovu xml", "3 " + path + " is not individual xml",
                          "1 plain.xml is not a valid ORX xml"}));
}

TEST_F(FolderScanTest, EmptyFileIsOfNeitherKind) {
  folder.Write("empty.xml", "");
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Errors(), Lines{"empty.xml is not a valid ORX xml"});
}

TEST_F(FolderScanTest, MarkerAcrossALineBreakIsNotSeen) {
  folder.Write("split.xml", "<!-- SystemUpdate\nElement -->" + Descriptor("a").Instance());
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Errors(), Lines{"split.xml is not a valid ORX xml"});
}

TEST_F(FolderScanTest, MarkerAcross1023BytesOfALineIsNotSeen) {
  const std::string marker = "SystemUpdateElement";
  const std::string before(1023 - marker.size(), ' ');
  folder.Write("seen.xml", before + marker);
  folder.Write("straddles.xml", " " + before + marker);
  EXPECT_TRUE(imp.IsIndividualXml(ReadingOf(PathOf("seen.xml"))));
  EXPECT_FALSE(imp.IsIndividualXml(ReadingOf(PathOf("straddles.xml"))));
}

TEST_F(FolderScanTest, PathsThatNameNoDescriptorAreAnsweredWithoutALine) {
  for (const char* path : {"", "a.XML", "xml", "a.xm"}) {
    EXPECT_FALSE(imp.IsKovuXml(ReadingOf(path))) << path;
    EXPECT_FALSE(imp.IsIndividualXml(ReadingOf(path))) << path;
  }
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(FolderScanTest, ExtensionAnywhereInThePathIsEnoughForTheTests) {
  const std::string path = folder.Write("a.xml.bak", "SystemUpdateElement");
  EXPECT_TRUE(imp.IsIndividualXml(ReadingOf(path)));
  EXPECT_EQ(Log(), Lines{"3 " + path + " is individual xml"});
}

TEST_F(FolderScanTest, FileThatCannotBeOpenedIsOfNeitherKind) {
  const std::string path = PathOf("missing.xml");
  EXPECT_FALSE(imp.IsKovuXml(ReadingOf(path)));
  EXPECT_FALSE(imp.IsIndividualXml(ReadingOf(path)));
  EXPECT_EQ(Log(),
            (Lines{"3 " + path + " is not Kovu xml", "3 " + path + " is not individual xml"}));
}

TEST_F(FolderScanTest, SubfolderCalledXmlIsTreatedLikeAFile) {
  fs::create_directory(PathOf("sub.xml"));
  WriteIndividual("a.xml");
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Errors(), Lines{"sub.xml is not a valid ORX xml"});
  EXPECT_EQ(LoadedFiles(), Lines{PathOf("a.xml")});
}

TEST_F(FolderScanTest, FilesInSubfoldersAreNeverSeen) {
  fs::create_directory(PathOf("sub"));
  folder.Write("sub/a.xml", Descriptor("a").Individual());
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Log(), Lines{});
  EXPECT_TRUE(imp.repository.packageXmlEntries().empty());
}

TEST_F(FolderScanTest, FileCalledJustXmlIsLoaded) {
  const std::string path = folder.Write(".xml", Descriptor("a").Individual());
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(LoadedFiles(), Lines{path});
}

TEST_F(FolderScanTest, FolderIsUsedExactlyAsSet) {
  folder.Write("a.xml", Descriptor("a").Individual());
  const std::string unusual = folder.Path() + "/.";
  imp.xmlPackageFolder = unusual + "/";
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(LoadedFiles(), Lines{(fs::path(unusual) / "a.xml").string()});
}

TEST_F(FolderScanTest, LoaderFailureDoesNotEndTheWalk) {
  folder.Write("a.xml", "<broken SystemUpdateElement");
  WriteIndividual("b.xml");
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(Errors(), Lines{"Faile to load Package XML: " + PathOf("a.xml")});
  EXPECT_EQ(LoadedFiles(), Lines{PathOf("b.xml")});
}

TEST_F(FolderScanTest, RunningTheStageTwiceAppends) {
  WriteIndividual("a.xml");
  folder.Write("p.xml", Pack({Descriptor("p")}));
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(LoadedFiles(), (Lines{PathOf("a.xml"), PathOf("a.xml")}));
  EXPECT_EQ(imp.repository.kovuPackEntries().size(), 2U);
}

TEST_F(FolderScanTest, FolderThatCannotBeQueriedFails) {
  imp.xmlPackageFolder = UnqueryableFolder();
  EXPECT_FALSE(imp.ParseXmlPackageFolder());
  ASSERT_EQ(Log().size(), 1U);
  EXPECT_EQ(Log()[0].find("1 boost::filesystem::status: "), 0U) << Log()[0];
}

// The C library's text mode, which only Windows has: the text ends before a byte 0x1A.
TEST_F(FolderScanTest, MarkerIsLookedForInWhatTheCLibraryDelivers) {
  folder.Write("before.xml", "<!-- SystemUpdateElement -->\x1A");
  folder.Write("after.xml", "<!--\x1A SystemUpdateElement -->");
  folder.Write("lines.xml", "\r\n\r" + std::string(1'003, ' ') + "SystemUpdateElement\r\n");
  EXPECT_TRUE(imp.IsIndividualXml(ReadingOf(PathOf("before.xml"))));
  EXPECT_TRUE(imp.IsIndividualXml(ReadingOf(PathOf("lines.xml"))));
#ifdef _WIN32
  EXPECT_FALSE(imp.IsIndividualXml(ReadingOf(PathOf("after.xml"))));
#else
  EXPECT_TRUE(imp.IsIndividualXml(ReadingOf(PathOf("after.xml"))));
#endif
}

// The document itself is read as it is: line ends are the XML library's business.
TEST_F(FolderScanTest, DocumentIsNotCutWhereTheTextOfTheMarkersEnds) {
  folder.Write("a.xml", "<!-- SystemUpdateElement \x1A -->\r\n" +
                            Descriptor("a").Set("description", "x\r\ny").Instance());
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  ASSERT_EQ(LoadedFiles(), Lines{PathOf("a.xml")});
  EXPECT_EQ(
      GetPropertyValue("identificationCode", imp.repository.packageXmlEntries()[0].properties),
      "a");
}

#ifndef _WIN32

TEST_F(FolderScanTest, ErrorDuringTheWalkKeepsWhatWasLoaded) {
  WriteIndividual("a.xml");
  WriteIndividual("b.xml");
  const FolderListing fault(3, EIO);  // ".", ".." and one file
  EXPECT_EQ(Run(), QueryCode::FolderFailed);
  EXPECT_EQ(LoadedFiles(), Lines{PathOf("a.xml")});
  ASSERT_EQ(Errors().size(), 1U);
  EXPECT_NE(Errors()[0].find("directory_iterator"), std::string::npos) << Errors()[0];
  EXPECT_EQ(Log().back(), "1 " + Errors()[0]) << "no line follows";
}

TEST_F(FolderScanTest, LinksAreFollowedAndLoopsCostNothingElse) {
  fs::create_symlink(folder.Write("target", Descriptor("a").Individual()), PathOf("link.xml"));
  fs::create_symlink(PathOf("nowhere"), PathOf("dangling.xml"));
  fs::create_symlink(PathOf("loop.xml"), PathOf("loop.xml"));
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(LoadedFiles(), Lines{PathOf("link.xml")});
  EXPECT_EQ(Errors(),
            (Lines{"dangling.xml is not a valid ORX xml", "loop.xml is not a valid ORX xml"}));
}

TEST_F(FolderScanTest, PipesAndDevicesAreNeverOpened) {
  ASSERT_EQ(::mkfifo(PathOf("pipe.xml").c_str(), 0600), 0);
  fs::create_symlink("/dev/zero", PathOf("zero.xml"));
  WriteIndividual("a.xml");
  EXPECT_TRUE(imp.ParseXmlPackageFolder());
  EXPECT_EQ(LoadedFiles(), Lines{PathOf("a.xml")});
  EXPECT_EQ(Errors(),
            (Lines{"pipe.xml is not a valid ORX xml", "zero.xml is not a valid ORX xml"}));
}

#endif

}  // namespace
}  // namespace Vornik::Testing
