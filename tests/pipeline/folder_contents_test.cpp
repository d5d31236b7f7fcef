// A query of what was read of its folder before.
#include <gmock/gmock.h>

#include <boost/filesystem/exception.hpp>
#include <boost/system/system_error.hpp>
#include <exception>

#include "contents_of.h"
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class FolderContentsTest : public QueryTest {
 protected:
  // The log of a query that reads the folder.
  Lines LogOfReading() {
    QueryPackageImp reading = imp;
    reading.RunQuery(results);
    const Lines lines = Log();
    RecordingLog::Reset();
    return lines;
  }
};

TEST_F(FolderContentsTest, AreJudgedInPlaceOfTheFiles) {
  WriteIndividual("a.xml");
  imp.contents = ContentsOf(folder.Path());
  boost::filesystem::remove(PathOf("a.xml"));
  WriteIndividual("b.xml");
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_THAT(Codes(), ElementsAre("a"));
}

TEST_F(FolderContentsTest, ServeOneQuery) {
  WriteIndividual("a.xml");
  imp.contents = ContentsOf(folder.Path());
  Run();
  WriteIndividual("b.xml");
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_THAT(Codes(), Contains("b"));
}

TEST_F(FolderContentsTest, EveryFaultIsLoggedAsIfTheFileWereRead) {
  const std::string individual = "<!-- SystemUpdateElement -->";
  const std::string pack = "<!-- ORXQDL_SystemUpdateProduct -->";
  folder.Write("empty.xml", "");
  folder.Write("neither.xml", "<a/>");
  folder.Write("broken.xml", individual + "<a>");
  folder.Write("rootless.xml", individual);
  folder.Write("bare.xml", individual + "<a/>");
  folder.Write("broken_pack.xml", pack + "<a>");
  folder.Write("rootless_pack.xml", pack);
  folder.Write("bare_pack.xml", pack + "<a/>");
  boost::filesystem::create_directory(PathOf("folder.xml"));
  WriteIndividual("sound.xml");
  const Lines expected = LogOfReading();
  imp.contents = ContentsOf(folder.Path());
  EXPECT_EQ(imp.contents->files.size(), 10U);
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(Log(), expected);
}

TEST_F(FolderContentsTest, EmptyInstancesAreLoggedInTheirPlaces) {
  folder.Write("pack.xml", Pack({Descriptor(), Descriptor().Set("xmlFilename", "m.xml"),
                                 Descriptor(), Descriptor().Set("xmlFilename", "pack.xml")}));
  const Lines expected = LogOfReading();
  imp.contents = ContentsOf(folder.Path());
  Run();
  EXPECT_EQ(Log(), expected);
}

TEST_F(FolderContentsTest, ListingThatFailedFailsTheQueryAfterItsFiles) {
  WriteIndividual("a.xml");
  imp.contents = ContentsOf(folder.Path());
  imp.contents->failure = std::make_exception_ptr(boost::filesystem::filesystem_error(
      "the disk", boost::system::errc::make_error_code(boost::system::errc::io_error)));
  EXPECT_EQ(Run(), QueryCode::FolderFailed);
  EXPECT_THAT(Errors(), Contains(testing::HasSubstr("the disk")));
  EXPECT_EQ(imp.repository.packageXmlEntries().size(), 1U);
}

TEST_F(FolderContentsTest, ListingForWhichThereWasNoMemoryIsNoFaultOfTheFolder) {
  imp.contents = FolderContents();
  imp.contents->failure = std::make_exception_ptr(boost::filesystem::filesystem_error(
      "the listing", boost::system::errc::make_error_code(boost::system::errc::not_enough_memory)));
  EXPECT_THROW(Run(), std::bad_alloc);
}

TEST_F(FolderContentsTest, OtherFailureOfTheListingLeavesTheQuery) {
  imp.contents = FolderContents();
  imp.contents->failure = std::make_exception_ptr(boost::system::system_error(
      boost::system::errc::make_error_code(boost::system::errc::illegal_byte_sequence)));
  EXPECT_THROW(Run(), boost::system::system_error);
}

TEST_F(FolderContentsTest, OfNothingAreNoPackages) {
  WriteIndividual("a.xml");
  imp.contents = FolderContents();
  EXPECT_EQ(Run(), QueryCode::NoResults);
  EXPECT_THAT(results, IsEmpty());
}

}  // namespace
}  // namespace Vornik::Testing
