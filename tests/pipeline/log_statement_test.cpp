#include "log_statement.h"

#include <gtest/gtest.h>

#include "recording_log.h"

namespace Vornik::Testing {
namespace {

class LogStatementTest : public testing::Test {
 protected:
  int Evaluated() { return ++evaluations; }

  int evaluations = 0;
};

TEST_F(LogStatementTest, NothingOfAMessageIsEvaluatedBelowTheThreshold) {
  for (const unsigned int threshold : {0U, 1U, 2U}) {
    RecordingLog::Reset(threshold);
    QP_LOG(3U, "piece " << Evaluated());
    EXPECT_EQ(evaluations, 0);
    EXPECT_EQ(RecordingLog::Constructed(), 0U);
  }
}

TEST_F(LogStatementTest, MessageAtTheThresholdIsOneRecord) {
  RecordingLog::Reset(2);
  const int line = __LINE__ + 1;
  QP_LOG(2U, "piece " << Evaluated() << " and " << 'c');
  EXPECT_EQ(evaluations, 1);
  EXPECT_EQ(RecordingLog::Constructed(), 1U);
  ASSERT_EQ(RecordingLog::Entries().size(), 1U);
  const LogEntry& entry = RecordingLog::Entries()[0];
  EXPECT_EQ(entry.level, 2U);
  EXPECT_EQ(entry.text, "piece 1 and c");
  EXPECT_EQ(entry.line, line);
  EXPECT_EQ(entry.file, "src/module/querypackage/querypackageimp.cpp");
}

TEST_F(LogStatementTest, StandsWhereAStatementStands) {
  RecordingLog::Reset(3);
  if (evaluations == 0)
    QP_LOG(3U, "then");
  else
    QP_LOG(3U, "else");
  EXPECT_EQ(RecordingLog::Lines(), std::vector<std::string>{"3 then"});
}

}  // namespace
}  // namespace Vornik::Testing
