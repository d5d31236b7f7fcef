// A host's log may do anything between two stages: change the records, the settings, or run a query
// of its own on the same object. Each stage works on what it finds when it begins.
#include <functional>
#include <string>

#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

class LogBetweenStagesTest : public QueryTest {
 protected:
  ~LogBetweenStagesTest() override { RecordingLog::OnRecord(nullptr); }

  // Once, when that line is complete.
  void After(const std::string& line, const std::function<void()>& action) {
    RecordingLog::OnRecord([this, line, action](const LogEntry& entry) {
      if (isDone_ || entry.text != line) return;
      isDone_ = true;
      action();
    });
  }

 private:
  bool isDone_ = false;
};

TEST_F(LogBetweenStagesTest, RecordsThatAreAddedAreFilteredFromThereOn) {
  WriteIndividual("a.xml");
  After("Platform Filter - End", [this] { results.resize(1'000, RecordOf("unknown")); });
  EXPECT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(results.size(), 1'000U);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[999].platformFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(results[999].kovuFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[999].payloadExistFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[999].supersedeFilterStatus, FilterStatus::Matched);
}

TEST_F(LogBetweenStagesTest, RecordsThatAreRemovedAreFilteredNoMore) {
  WriteIndividual("a.xml");
  WriteIndividual("b.xml");
  After("Sep Filter - End", [this] { results.clear(); });
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_TRUE(results.empty());
}

TEST_F(LogBetweenStagesTest, PropertiesAreLookedUpByTheRecordsPresentCode) {
  WriteIndividual("a.xml", Descriptor().Set("type", "1"));
  WriteIndividual("b.xml", Descriptor().Set("type", "2"));
  imp.updateTypes = {static_cast<UpdateType>(2)};
  After("Platform Filter - End", [this] { results[0].identificationCode = "b"; });
  EXPECT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(results.size(), 2U);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].updateTypeFilterStatus, FilterStatus::Matched);
}

TEST_F(LogBetweenStagesTest, NestedQueryOnTheSameObjectLeavesTheOuterOneRight) {
  WriteIndividual("a.xml", Descriptor().Set("type", "1"));
  WriteIndividual("b.xml", Descriptor().Set("type", "2"));
  imp.updateTypes = {static_cast<UpdateType>(2)};
  QueryPackageImp::Results nested;
  int nestedCode = -1;
  // The outer query has looked packages up already; the nested one loads them again.
  After("Platform Filter - End", [&] { nestedCode = imp.RunQuery(nested); });
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(nestedCode, QueryCode::Completed);
  EXPECT_EQ(imp.repository.packageXmlEntries().size(), 4U);
  for (const auto* records : {&results, &nested}) {
    ASSERT_EQ(records->size(), 2U);
    EXPECT_EQ((*records)[0].platformFilterStatus, FilterStatus::Matched);
    EXPECT_EQ((*records)[0].updateTypeFilterStatus, FilterStatus::NotMatched);
    EXPECT_EQ((*records)[1].updateTypeFilterStatus, FilterStatus::Matched);
  }
}

}  // namespace
}  // namespace Vornik::Testing
