// How messages reach the host's log: the gate, the file and line, and a log that fails.
#include <algorithm>
#include <fstream>

#include "captured_stdout.h"
#include "project_file.h"
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

using Operation = RecordingLog::Operation;

class LoggingTest : public QueryTest {
 protected:
  // A folder that gives a record of every level.
  void WriteAllLevels() {
    WriteIndividual("a.xml", Descriptor().Set("driverFiles", {"not a driver file"}));
    folder.Write("neither.xml", "<x/>");
  }

  Lines LogAtThreshold(unsigned int threshold) {
    RecordingLog::Reset(threshold);
    QueryPackageImp fresh;
    fresh.xmlPackageFolder = imp.xmlPackageFolder;
    fresh.osValue = os;
    fresh.arcValue = arch;
    fresh.machineType = "1234";
    EXPECT_EQ(fresh.RunQuery(results), QueryCode::Completed);
    return Log();
  }
};

TEST_F(LoggingTest, ThresholdZeroSilencesTheLibrary) {
  WriteAllLevels();
  EXPECT_EQ(LogAtThreshold(0), Lines{});
  EXPECT_EQ(RecordingLog::Constructed(), 0U);
}

TEST_F(LoggingTest, ThresholdZeroStillEchoesAFailedParameterCheck) {
  RecordingLog::SetThreshold(0);
  imp.machineType = "";
  const CapturedStdout out;
  EXPECT_EQ(Run(), QueryCode::InvalidParameter);
  EXPECT_EQ(out.Text(), "MachineType is not set");
  EXPECT_EQ(RecordingLog::Constructed(), 0U);
}

TEST_F(LoggingTest, ThresholdOneLetsErrorsThrough) {
  WriteAllLevels();
  LogAtThreshold(1);
  EXPECT_FALSE(Errors().empty());
  EXPECT_EQ(RecordingLog::Entries().size(), Errors().size());
}

TEST_F(LoggingTest, ThresholdTwoLetsErrorsAndWarningsThrough) {
  WriteAllLevels();
  LogAtThreshold(2);
  EXPECT_EQ(Warnings(), Lines{"Fail to parse driverFiles's property value"});
  EXPECT_FALSE(Errors().empty());
  EXPECT_EQ(Progress(), Lines{});
}

TEST_F(LoggingTest, ThresholdThreeAndAboveLetEverythingThrough) {
  WriteAllLevels();
  const Lines all = LogAtThreshold(3);
  EXPECT_FALSE(Progress().empty());
  EXPECT_EQ(LogAtThreshold(4), all);
  EXPECT_EQ(LogAtThreshold(0xFFFFFFFFU), all);
}

TEST_F(LoggingTest, ALowerThresholdOnlyRemovesLines) {
  WriteAllLevels();
  Lines all = LogAtThreshold(3);
  for (unsigned int threshold : {1U, 2U}) {
    Lines expected;
    for (const std::string& line : all) {
      if (static_cast<unsigned int>(line[0] - '0') <= threshold) expected.push_back(line);
    }
    EXPECT_EQ(LogAtThreshold(threshold), expected);
  }
}

TEST_F(LoggingTest, ThresholdIsReadAtEveryMessage) {
  WriteAllLevels();
  RecordingLog::OnRecord([](const LogEntry& entry) {
    if (entry.text == "Parse XML Package Folder - Start") RecordingLog::SetThreshold(0);
  });
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(Log().size(), 3U);
}

TEST_F(LoggingTest, EveryMessageIsOneLogObject) {
  WriteAllLevels();
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(RecordingLog::Constructed(), RecordingLog::Entries().size());
}

TEST_F(LoggingTest, RecordNamesTheLineOfItsStatement) {
  EXPECT_EQ(Run(), QueryCode::NoResults);
  const LogEntry& record = RecordingLog::Entries().back();
  std::ifstream source(ProjectFile(record.file));
  std::string line;
  for (int i = 0; i < record.line; ++i) ASSERT_TRUE(std::getline(source, line));
  EXPECT_NE(line.find("QP_LOG(LogLevel::error, LogText::noValidPackage"), std::string::npos)
      << line;
}

TEST_F(LoggingTest, FailuresOfTheLogReachTheCaller) {
  WriteAllLevels();
  EXPECT_EQ(Run(), QueryCode::Completed);
  const std::size_t records = RecordingLog::Constructed();
  for (const Operation operation :
       {Operation::Constructor, Operation::Stream, Operation::Destructor}) {
    for (std::size_t i = 0; i < records; ++i) {
      RecordingLog::Reset();
      RecordingLog::FailAt(operation, i);
      QueryPackageImp fresh;
      fresh.xmlPackageFolder = imp.xmlPackageFolder;
      fresh.osValue = os;
      fresh.arcValue = arch;
      fresh.machineType = "1234";
      EXPECT_THROW(fresh.RunQuery(results), RecordingLog::Failure);
      EXPECT_EQ(RecordingLog::Constructed(), i + 1) << "nothing is retried";
      RecordingLog::Reset();
      EXPECT_EQ(fresh.RunQuery(results), QueryCode::Completed) << "the object answers again";
    }
  }
}

TEST_F(LoggingTest, FailureOfTheLogInTheParameterCheckLeavesStandardOutputAlone) {
  imp.machineType = "";
  RecordingLog::FailAt(Operation::Destructor, 1);
  const CapturedStdout out;
  EXPECT_THROW(Run(), RecordingLog::Failure);
  EXPECT_EQ(out.Text(), "");
}

}  // namespace
}  // namespace Vornik::Testing
