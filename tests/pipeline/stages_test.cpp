// The order of the stages, their switches, the callback and the codes.
#include <algorithm>

#ifndef _WIN32
#include <cerrno>

#include "folder_listing.h"
#endif

#include "captured_stdout.h"
#include "query_fixture.h"
#include "recording_callback.h"

namespace Vornik::Testing {
namespace {

bool IsStageLine(const std::string& text) {
  const auto endsWith = [&text](const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
  };
  return endsWith(" - Start") || endsWith(" - End") || endsWith(" Filter Ignored!");
}

Lines StageLines() {
  Lines lines;
  for (const LogEntry& entry : RecordingLog::Entries()) {
    if (!IsStageLine(entry.text)) continue;
    EXPECT_EQ(entry.level, 3U) << entry.text;
    lines.push_back(entry.text);
  }
  return lines;
}

class StagesTest : public QueryTest {
 protected:
  RecordingCallback callback;
};

TEST_F(StagesTest, AllSwitchesOnAndAllListsEmpty) {
  WriteIndividual("a.xml");
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(StageLines(), (Lines{"Check parameter validity - Start",
                                 "Check parameter validity - End",
                                 "Parse XML Package Folder - Start",
                                 "Parse XML Package Folder - End",
                                 "Create Query Package Results - Start",
                                 "Create Query Package Results - End",
                                 "Duplicate Filter - Start",
                                 "Duplicate Filter - End",
                                 "Platform Filter - Start",
                                 "Platform Filter - End",
                                 "Kovu Filter - Start",
                                 "Kovu Filter - End",
                                 "Sep Filter - Start",
                                 "Sep Filter - End",
                                 "PayloadExist Filter - Start",
                                 "PayloadExist Filter - End",
                                 "Supersede Filter - Start",
                                 "Supersede Filter - End",
                                 "IncludePackageIDs Filter Ignored!",
                                 "ExcludePackageIDs Filter Ignored!",
                                 "UpdateType Filter Ignored!"}));
}

TEST_F(StagesTest, AllSwitchesOffAndAllListsFilled) {
  WriteIndividual("a.xml");
  imp.kovuFilter = imp.sepFilter = imp.payloadExistFilter = imp.supersedeFilter = false;
  imp.includePackageIds = {"a"};
  imp.excludePackageIds = {"b"};
  imp.updateTypes = {UpdateType::Any};
  imp.queryCallback = &callback;
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(StageLines(), (Lines{"Check parameter validity - Start",
                                 "Check parameter validity - End",
                                 "Parse XML Package Folder - Start",
                                 "Parse XML Package Folder - End",
                                 "Create Query Package Results - Start",
                                 "Create Query Package Results - End",
                                 "PreQueryPackage Callback - Start",
                                 "PreQueryPackage Callback - End",
                                 "Duplicate Filter - Start",
                                 "Duplicate Filter - End",
                                 "Platform Filter - Start",
                                 "Platform Filter - End",
                                 "Kovu Filter Ignored!",
                                 "Sep Filter Ignored!",
                                 "PayloadExist Filter Ignored!",
                                 "Supersede Filter Ignored!",
                                 "IncludePackageIDs Filter - Start",
                                 "IncludePackageIDs Filter - End",
                                 "ExcludePackageIDs Filter - Start",
                                 "ExcludePackageIDs Filter - End",
                                 "UpdateType Filter - Start",
                                 "UpdateType Filter - End"}));
}

TEST_F(StagesTest, EachSwitchSilencesItsOwnFilterAlone) {
  WriteIndividual("a.xml");
  struct Switch {
    bool QueryPackageImp::*member;
    const char* name;
  };
  for (const Switch& one :
       {Switch{&QueryPackageImp::kovuFilter, "Kovu"}, Switch{&QueryPackageImp::sepFilter, "Sep"},
        Switch{&QueryPackageImp::payloadExistFilter, "PayloadExist"},
        Switch{&QueryPackageImp::supersedeFilter, "Supersede"}}) {
    SCOPED_TRACE(one.name);
    RecordingLog::Reset();
    imp.*one.member = false;
    EXPECT_EQ(Run(), QueryCode::Completed);
    imp.*one.member = true;
    Lines ignored;
    for (const std::string& line : StageLines()) {
      if (line.find("Ignored!") != std::string::npos) ignored.push_back(line);
    }
    EXPECT_EQ(ignored, (Lines{std::string(one.name) + " Filter Ignored!",
                              "IncludePackageIDs Filter Ignored!",
                              "ExcludePackageIDs Filter Ignored!", "UpdateType Filter Ignored!"}));
  }
}

TEST_F(StagesTest, FolderThatHoldsNothingGivesCode4AndKeepsTheVector) {
  results = {RecordOf("kept")};
  EXPECT_EQ(Run(), QueryCode::NoResults);
  EXPECT_EQ(Codes(), Lines{"kept"});
  EXPECT_EQ(Log(), (Lines{"3 Check parameter validity - Start", "3 Check parameter validity - End",
                          "3 Parse XML Package Folder - Start", "3 Parse XML Package Folder - End",
                          "3 Create Query Package Results - Start",
                          "1 There is not any valid xml package in " + folder.Path()}));
}

TEST_F(StagesTest, CallbackIsNotCalledByAQueryThatStopsEarlier) {
  imp.queryCallback = &callback;
  EXPECT_EQ(Run(), QueryCode::NoResults);
  imp.machineType = "";
  const CapturedStdout out;
  EXPECT_EQ(Run(), QueryCode::InvalidParameter);
  EXPECT_EQ(callback.calls, Lines{});
}

TEST_F(StagesTest, CallbackIsCalledOnceBeforeAndOnceAfterTheFilters) {
  WriteIndividual("a.xml");
  imp.queryCallback = &callback;
  Lines atPre;
  Lines atPost;
  callback.pre = [&] { atPre = Log(); };
  callback.post = [&] { atPost = Log(); };
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(callback.calls, (Lines{"pre", "post"}));
  EXPECT_EQ(atPre.back(), "3 PreQueryPackage Callback - Start");
  EXPECT_EQ(atPost.back(), "3 UpdateType Filter Ignored!");
  EXPECT_EQ(atPost, Log()) << "no line is logged for PostQueryPackage";
}

TEST_F(StagesTest, CallbackSeesTheRecordsBeforeAnyFilter) {
  WriteIndividual("a.xml");
  folder.Write("b.xml", Descriptor("a").Individual());
  imp.queryCallback = &callback;
  std::size_t atPre = 0;
  callback.pre = [&] {
    atPre = results.size();
    for (const auto& record : results) EXPECT_EQ(record.platformFilterStatus, 0U);
  };
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(atPre, 2U);
  EXPECT_EQ(results.size(), 1U);
}

TEST_F(StagesTest, CallbackRemovedInPreIsNotCalledAgain) {
  WriteIndividual("a.xml");
  imp.queryCallback = &callback;
  callback.pre = [&] { imp.queryCallback = nullptr; };
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(callback.calls, Lines{"pre"});
}

TEST_F(StagesTest, CallbackSetInPreIsTheOneThatIsCalledAfterwards) {
  WriteIndividual("a.xml");
  RecordingCallback other;
  imp.queryCallback = &callback;
  callback.pre = [&] { imp.queryCallback = &other; };
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(callback.calls, Lines{"pre"});
  EXPECT_EQ(other.calls, Lines{"post"});
}

TEST_F(StagesTest, SettingsChangedByTheCallbackCountFromThereOn) {
  WriteIndividual("a.xml");
  imp.queryCallback = &callback;
  callback.pre = [&] {
    imp.machineType = "5678";
    imp.kovuFilter = false;
    imp.updateTypes = {UpdateType::Any};
  };
  EXPECT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::NotMatched);
  const Lines stages = StageLines();
  EXPECT_NE(std::find(stages.begin(), stages.end(), "Kovu Filter Ignored!"), stages.end());
  EXPECT_NE(std::find(stages.begin(), stages.end(), "UpdateType Filter - Start"), stages.end());
}

TEST_F(StagesTest, VectorChangedByTheCallbackIsTheOneThatIsFiltered) {
  WriteIndividual("a.xml");
  imp.queryCallback = &callback;
  callback.pre = [&] {
    results.clear();
    for (int i = 0; i < 100; ++i) results.push_back(RecordOf("a"));
    results.push_back(RecordOf("unknown"));
  };
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(Codes(), (Lines{"a", "unknown"}));
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].platformFilterStatus, FilterStatus::NotEvaluated);
}

TEST_F(StagesTest, QueryRunFromTheCallbackLoadsTheFolderAgain) {
  WriteIndividual("a.xml");
  imp.queryCallback = &callback;
  QueryPackageImp::Results inner;
  callback.pre = [&] {
    imp.queryCallback = nullptr;
    EXPECT_EQ(imp.RunQuery(inner), QueryCode::Completed);
    imp.queryCallback = &callback;
  };
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(callback.calls, (Lines{"pre", "post"}));
  EXPECT_EQ(inner.size(), 1U);
  EXPECT_EQ(Codes(), Lines{"a"});
  EXPECT_EQ(imp.repository.packageXmlEntries().size(), 2U);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::Matched);
}

TEST_F(StagesTest, ExceptionOfTheCallbackReachesTheCaller) {
  WriteIndividual("a.xml");
  imp.queryCallback = &callback;
  callback.pre = [] { throw 42; };
  EXPECT_THROW(Run(), int);
  EXPECT_EQ(Log().back(), "3 PreQueryPackage Callback - Start");
  callback.pre = nullptr;
  callback.post = [] { throw std::string("post"); };
  EXPECT_THROW(Run(), std::string);
  callback.post = nullptr;
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(Codes(), Lines{"a"});
}

TEST_F(StagesTest, SecondQueryLoadsTheFolderOnTopOfTheFirst) {
  WriteIndividual("a.xml");
  WriteIndividual("b.xml");
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(imp.repository.packageXmlEntries().size(), 2U);
  RecordingLog::Reset();
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(imp.repository.packageXmlEntries().size(), 4U);
  EXPECT_EQ(Codes(), (Lines{"a", "b"}));
  const Lines log = Log();
  EXPECT_EQ(std::count(log.begin(), log.end(), "3 a is filtered in FilterDuplicate"), 1);
  EXPECT_EQ(std::count(log.begin(), log.end(), "3 b is filtered in FilterDuplicate"), 1);
}

TEST_F(StagesTest, DescriptorsOfAnEarlierFolderStay) {
  WriteIndividual("a.xml");
  EXPECT_EQ(Run(), QueryCode::Completed);
  const TempFolder empty;
  imp.xmlPackageFolder = empty.Path();
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(Codes(), Lines{"a"});
}

TEST_F(StagesTest, BrokenDescriptorsAloneKeepTheVectorAndCallNoCallback) {
  folder.Write("broken.xml", "<a><!-- SystemUpdateElement");
  folder.Write("broken_pack.xml", "<a><!-- ORXQDL_SystemUpdateProduct");
  results = {RecordOf("of the host")};
  imp.queryCallback = &callback;
  EXPECT_EQ(Run(), QueryCode::NoResults);
  EXPECT_EQ(Codes(), Lines{"of the host"});
  EXPECT_EQ(callback.calls, Lines{});
}

#ifndef _WIN32

TEST_F(StagesTest, WalkThatFailsKeepsTheVectorAndCallsNoCallback) {
  WriteIndividual("a.xml");
  WriteIndividual("b.xml");
  results = {RecordOf("of the host")};
  imp.queryCallback = &callback;
  const FolderListing fault(3, EIO);  // ".", ".." and one file
  EXPECT_EQ(Run(), QueryCode::FolderFailed);
  EXPECT_EQ(Codes(), Lines{"of the host"});
  EXPECT_EQ(callback.calls, Lines{});
}

TEST_F(StagesTest, ListingThatCannotBeOpenedFailsTheQuery) {
  WriteIndividual("a.xml");
  results = {RecordOf("of the host")};
  {
    const FoldersCannotBeOpened fault(EMFILE);
    EXPECT_EQ(Run(), QueryCode::FolderFailed);
  }
  EXPECT_EQ(Codes(), Lines{"of the host"});
  ASSERT_EQ(Errors().size(), 1U);
  EXPECT_NE(Errors()[0].find("directory_iterator"), std::string::npos) << Errors()[0];
}

#endif

TEST_F(StagesTest, ObjectsAreIndependent) {
  WriteIndividual("a.xml");
  QueryPackageImp other = imp;
  const TempFolder otherFolder;
  otherFolder.Write("b.xml", Descriptor("b").For("1234", "10", "9").Individual());
  other.xmlPackageFolder = otherFolder.Path();
  QueryPackageImp::Results otherResults;
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(other.RunQuery(otherResults), QueryCode::Completed);
  ASSERT_EQ(otherResults.size(), 1U);
  EXPECT_EQ(otherResults[0].identificationCode, "b");
  EXPECT_EQ(Codes(), Lines{"a"});
  EXPECT_EQ(other.repository.packageXmlEntries().size(), 1U);
}

}  // namespace
}  // namespace Vornik::Testing
