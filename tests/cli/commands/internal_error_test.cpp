// A query and its evaluation that disagree.
#include <gtest/gtest.h>

#include "cli_fixture.h"
#include "commands/exit_status.h"
#include "commands/explain_command.h"
#include "explain/explain.h"

namespace Vornik::Testing {
namespace {

class InternalErrorTest : public CliTest {
 protected:
  InternalErrorTest() {
    WritePackage("a");
    WritePackage("b");
    reading = Cli::ReadFolder(folder.Path());
    run = Cli::RunLibrary(settings);
  }

  // The status, with the lines on standard error in error.
  std::optional<int> Compare() {
    Cli::QueryModel model(reading, folder.Path());
    const Cli::Evaluation evaluation = model.Evaluate(settings);
    testing::internal::CaptureStderr();
    const auto status = Cli::FailOnDisagreement({settings, run, model, evaluation});
    error = testing::internal::GetCapturedStderr();
    return status;
  }

  Cli::QuerySettings settings = Settings();
  Cli::FolderReading reading;
  Cli::LibraryRun run;
  std::string error;
};

TEST_F(InternalErrorTest, RecordsThatAgreeAreNone) {
  EXPECT_EQ(Compare(), std::nullopt);
  EXPECT_EQ(error, "");
}

TEST_F(InternalErrorTest, RecordThatDiffersInOneMemberIsNamed) {
  run.records.back().supersededById = "x";
  const std::string code = run.records.back().identificationCode;
  EXPECT_EQ(Compare(), Cli::ExitStatus::internalError);
  EXPECT_EQ(error,
            "querypackage-cli: internal error: the query and its evaluation differ in "
            "package 2 of 2, \"" +
                code + "\": please report it\n");
}

TEST_F(InternalErrorTest, RecordThatIsMissingIsCounted) {
  run.records.pop_back();
  EXPECT_EQ(Compare(), Cli::ExitStatus::internalError);
  EXPECT_EQ(error,
            "querypackage-cli: internal error: the query gives 1 package, and its evaluation 2: "
            "please report it\n");
}

TEST_F(InternalErrorTest, PayloadThatChangedExplainsADifference) {
  run.records.back().payloadExistFilterStatus = FilterStatus::NotEvaluated;
  EXPECT_EQ(Compare(), std::nullopt);
  EXPECT_EQ(error, "");
}

TEST_F(InternalErrorTest, QueryThatDidNotRunHasNothingToCompare) {
  run = {QueryCode::InvalidParameter, {}};
  EXPECT_EQ(Compare(), std::nullopt);
}

}  // namespace
}  // namespace Vornik::Testing
