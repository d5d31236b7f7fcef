// A host whose own logging library stands in the place of the default one, and throws.
#include <array>

#include "host_fixture.h"
#include "recording_log.h"

namespace Vornik::Testing {
namespace {

using Operation = RecordingLog::Operation;

class ReplacedLogTest : public HostTest, public testing::WithParamInterface<Operation> {
 protected:
  ReplacedLogTest() { RecordingLog::Reset(); }
  ~ReplacedLogTest() override { RecordingLog::Reset(); }
};

TEST_F(ReplacedLogTest, ReceivesTheRecordsOfTheLibrary) {
  QueryPackage query;
  Prepare(query);
  ASSERT_EQ(query.RunQuery(results), QueryCode::Completed);
  ASSERT_FALSE(RecordingLog::Entries().empty());
  EXPECT_EQ(RecordingLog::Entries()[0].level, 3U);
  EXPECT_EQ(RecordingLog::Entries()[0].file, "src/module/querypackage/querypackageimp.cpp");
  EXPECT_EQ(RecordingLog::Entries()[0].text, "Check parameter validity - Start");
}

TEST_F(ReplacedLogTest, ThresholdOfZeroLeavesNothingToReceive) {
  RecordingLog::SetThreshold(0);
  QueryPackage query;
  Prepare(query);
  ASSERT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(RecordingLog::Constructed(), 0U);
}

TEST_P(ReplacedLogTest, ExceptionReachesTheHostFromEveryRecord) {
  QueryPackage counted;
  Prepare(counted);
  ASSERT_EQ(counted.RunQuery(results), QueryCode::Completed);
  const std::size_t records = RecordingLog::Constructed();
  ASSERT_GT(records, 20U);
  for (std::size_t record = 0; record < records; ++record) {
    RecordingLog::Reset();
    RecordingLog::FailAt(GetParam(), record);
    QueryPackage query;
    Prepare(query);
    EXPECT_THROW(query.RunQuery(results), RecordingLog::Failure) << record;
    EXPECT_EQ(RecordingLog::Constructed(), record + 1);
  }
}

TEST_P(ReplacedLogTest, ObjectWorksAfterAnException) {
  QueryPackage query;
  Prepare(query);
  RecordingLog::FailAt(GetParam(), 10);
  EXPECT_THROW(query.RunQuery(results), RecordingLog::Failure);
  RecordingLog::Reset();
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(Codes(), Lines{"a"});
}

std::string NameOf(const testing::TestParamInfo<Operation>& operation) {
  constexpr std::array names{"Constructor", "Stream", "Destructor"};
  return names.at(static_cast<std::size_t>(operation.param));
}

INSTANTIATE_TEST_SUITE_P(Operations, ReplacedLogTest,
                         testing::Values(Operation::Constructor, Operation::Stream,
                                         Operation::Destructor),
                         NameOf);

}  // namespace
}  // namespace Vornik::Testing
