// Whether a package's descriptor and payload are in the folder, as a stage. Names of every kind are
// tested with the rule.
#include <boost/filesystem/operations.hpp>

#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

constexpr char noProperties[] = "1 ERROR: Couldn't find correct SupXmlProperties";
constexpr char aMatched[] = "3 a PayloadExist Filter is matched!";
constexpr char aNotMatched[] = "3 a PayloadExist Filter is not matched!";

class PayloadExistFilterTest : public QueryTest {
 protected:
  void WriteBoth() {
    folder.Write("a.xml", "descriptor");
    folder.Write("a.exe", "payload");
  }

  // Judges one package of those properties; its verdict is the slot's value.
  std::uint32_t Judge(const Descriptor& descriptor) {
    Load({{"a.xml", descriptor.Properties()}});
    results = {RecordOf("a")};
    RecordingLog::Reset();
    imp.FilterPayloadExist(results);
    return results.at(0).payloadExistFilterStatus;
  }

  static Descriptor With(const std::string& xmlFilename, const std::string& payload) {
    return Descriptor("a").Set("xmlFilename", xmlFilename).Set("payload", payload);
  }
};

TEST_F(PayloadExistFilterTest, EmptyVectorGivesNoLine) {
  imp.FilterPayloadExist(results);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(PayloadExistFilterTest, BothFilesInTheFolderAreMatched) {
  WriteBoth();
  EXPECT_EQ(Judge(With("a.xml", "a.exe")), FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{aMatched});
}

TEST_F(PayloadExistFilterTest, RecordWithoutPropertiesIsNotMatched) {
  results = {RecordOf("unknown")};
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results[0].payloadExistFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(), (Lines{noProperties, "3 unknown PayloadExist Filter is not matched!"}));
}

TEST_F(PayloadExistFilterTest, RecordWithoutACodeWarnsAndIsNotMatched) {
  Load({{"a.xml", Descriptor("").Properties()}});
  results = {RecordOf("")};
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results[0].payloadExistFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(), (Lines{"2 Package IdentificationCode is empty", noProperties,
                          "3  PayloadExist Filter is not matched!"}));
}

TEST_F(PayloadExistFilterTest, PackageWithoutAnXmlFilenameIsNotMatched) {
  WriteBoth();
  EXPECT_EQ(Judge(Descriptor("a").Set("payload", "a.exe")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), (Lines{"1 ERROR: Couldn't find xml!", aNotMatched}));
  EXPECT_EQ(Judge(With("", "a.exe")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), (Lines{"1 ERROR: Couldn't find xml!", aNotMatched}));
}

TEST_F(PayloadExistFilterTest, PackageWithoutAPayloadIsNotMatched) {
  WriteBoth();
  EXPECT_EQ(Judge(Descriptor("a").Set("xmlFilename", "a.xml")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), (Lines{"1 ERROR: Couldn't find payload!", aNotMatched}));
  EXPECT_EQ(Judge(With("a.xml", "")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), (Lines{"1 ERROR: Couldn't find payload!", aNotMatched}));
}

TEST_F(PayloadExistFilterTest, MissingXmlFilenameAloneIsReported) {
  EXPECT_EQ(Judge(Descriptor("a")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), (Lines{"1 ERROR: Couldn't find xml!", aNotMatched}));
}

TEST_F(PayloadExistFilterTest, MissingFilesGiveNoErrorLine) {
  folder.Write("a.xml", "descriptor");
  EXPECT_EQ(Judge(With("a.xml", "none.exe")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{aNotMatched});
  EXPECT_EQ(Judge(With("none.xml", "a.xml")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{aNotMatched});
}

TEST_F(PayloadExistFilterTest, FolderInThePlaceOfAFileIsNotMatched) {
  WriteBoth();
  boost::filesystem::create_directory(folder.Path() + "/folder");
  EXPECT_EQ(Judge(With("a.xml", "folder")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{aNotMatched});
  EXPECT_EQ(Judge(With("folder", "a.exe")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{aNotMatched});
}

TEST_F(PayloadExistFilterTest, NamesThatTheSystemRefusesAreNotMatchedAndThrowNothing) {
  WriteBoth();
  EXPECT_EQ(Judge(With("a.xml", std::string(300, 'n'))), FilterStatus::NotMatched);
  EXPECT_EQ(Judge(With(std::string(5'000, 'n'), "a.exe")), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{aNotMatched});
}

TEST_F(PayloadExistFilterTest, DescriptorDeletedAfterTheScanIsNotMatched) {
  WriteIndividual("a.xml", Descriptor().Set("xmlFilename", "a.xml").Set("payload", "a.exe"));
  folder.Write("a.exe", "payload");
  ASSERT_TRUE(imp.ParseXmlPackageFolder());
  ASSERT_TRUE(imp.CreateQueryPackageResults(results));
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results.at(0).payloadExistFilterStatus, FilterStatus::Matched);
  boost::filesystem::remove(folder.Path() + "/a.xml");
  RecordingLog::Reset();
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results.at(0).payloadExistFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{aNotMatched});
}

TEST_F(PayloadExistFilterTest, SubPathWithForwardSlashesIsFound) {
  WriteBoth();
  boost::filesystem::create_directory(folder.Path() + "/sub");
  folder.Write("sub/b.exe", "payload");
  EXPECT_EQ(Judge(With("a.xml", "sub/b.exe")), FilterStatus::Matched);
}

TEST_F(PayloadExistFilterTest, FolderWithATrailingSeparatorIsFound) {
  WriteBoth();
  imp.xmlPackageFolder += "/";
  EXPECT_EQ(Judge(With("a.xml", "a.exe")), FilterStatus::Matched);
  imp.xmlPackageFolder = PathOf("");
  EXPECT_EQ(Judge(With("a.xml", "a.exe")), FilterStatus::Matched);
}

TEST_F(PayloadExistFilterTest, PayloadIsLookedForInThePackageFolderOfTheQuery) {
  WriteBoth();
  EXPECT_EQ(Judge(With("a.xml", "a.exe")), FilterStatus::Matched);
  const TempFolder other;
  imp.xmlPackageFolder = other.Path();
  EXPECT_EQ(Judge(With("a.xml", "a.exe")), FilterStatus::NotMatched);
}

TEST_F(PayloadExistFilterTest, RecordsOfOneCodeShareTheFirstPropertySet) {
  WriteBoth();
  Load({{"1.xml", With("a.xml", "a.exe").Properties()},
        {"2.xml", With("none.xml", "none.exe").Properties()}});
  results = {RecordOf("a"), RecordOf("a")};
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results[0].payloadExistFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].payloadExistFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(), (Lines{aMatched, aMatched}));
}

TEST_F(PayloadExistFilterTest, PropertiesOfAPackMemberCountBeforeTheIndividualOnes) {
  WriteBoth();
  Load({{"1.xml", With("a.xml", "a.exe").Properties()}});
  LoadPacks({{"p.xml", {{"m.xml", With("a.xml", "none.exe").Properties()}}}});
  results = {RecordOf("a")};
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results[0].payloadExistFilterStatus, FilterStatus::NotMatched);
}

TEST_F(PayloadExistFilterTest, RecordsOwnPayloadIsNotLookedAt) {
  WriteBoth();
  Load({{"a.xml", With("a.xml", "a.exe").Properties()}});
  results = {RecordOf("a")};
  results[0].payload = "none.exe";
  results[0].packageXmlFile = "none.xml";
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results[0].payloadExistFilterStatus, FilterStatus::Matched);
}

TEST_F(PayloadExistFilterTest, RecordsAreJudgedInOrderAndLoseTheirEarlierVerdict) {
  WriteBoth();
  Load({{"a.xml", With("a.xml", "a.exe").Properties()}});
  results = {RecordOf("unknown"), RecordOf("a")};
  results[0].payloadExistFilterStatus = FilterStatus::Matched;
  results[1].payloadExistFilterStatus = FilterStatus::NotMatched;
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results[0].payloadExistFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].payloadExistFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(),
            (Lines{noProperties, "3 unknown PayloadExist Filter is not matched!", aMatched}));
}

TEST_F(PayloadExistFilterTest, CheckOfOneCodeLogsItsOwnErrorsAlone) {
  WriteBoth();
  Load({{"1.xml", With("a.xml", "a.exe").Properties()},
        {"2.xml", Descriptor("b").Properties()},
        {"3.xml", Descriptor("c").Set("xmlFilename", "a.xml").Properties()}});
  EXPECT_TRUE(imp.PayloadExists("a"));
  EXPECT_EQ(Log(), Lines{});
  EXPECT_FALSE(imp.PayloadExists("A"));
  EXPECT_FALSE(imp.PayloadExists("b"));
  EXPECT_FALSE(imp.PayloadExists("c"));
  EXPECT_FALSE(imp.PayloadExists(""));
  EXPECT_EQ(Log(),
            (Lines{noProperties, "1 ERROR: Couldn't find xml!", "1 ERROR: Couldn't find payload!",
                   "2 Package IdentificationCode is empty", noProperties}));
}

TEST_F(PayloadExistFilterTest, StatusIsSetAlsoWhenNothingIsLogged) {
  WriteBoth();
  Load({{"a.xml", With("a.xml", "a.exe").Properties()}});
  results = {RecordOf("unknown"), RecordOf("a")};
  RecordingLog::SetThreshold(0);
  imp.FilterPayloadExist(results);
  EXPECT_EQ(results[0].payloadExistFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].payloadExistFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(PayloadExistFilterTest, SwitchedOffFilterLeavesTheSlot) {
  WriteIndividual("a.xml");
  imp.payloadExistFilter = false;
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).payloadExistFilterStatus, FilterStatus::NotEvaluated);
}

}  // namespace
}  // namespace Vornik::Testing
