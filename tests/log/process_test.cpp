// What only shows in a process of its own: its end, its standard streams, its limits.
#include <gtest/gtest.h>

#include <cstdlib>

#include "child.h"
#include "support.h"

namespace Vornik {
namespace {

namespace fs = std::filesystem;

std::string Quoted(const fs::path& path) { return '"' + path.string() + '"'; }

// The redirections are the point here, and the shells of all systems know them.
int RunCommand(const std::string& command) {
  return std::system(command.c_str());  // NOLINT(cert-env33-c)
}

class LogProcess : public testing::Test {
 protected:
  // Runs a mode of child.cpp and returns what std::system does: 0 for success.
  int Run(const std::string& mode, const std::string& operand) const {
    return RunWithStandardError(mode, operand, StandardError());
  }

  int RunWithStandardError(const std::string& mode, const std::string& operand,
                           const fs::path& standardError) const {
    std::string command = Quoted(programPath) + " --child " + mode + " " + Quoted(operand) + " > " +
                          Quoted(StandardOutput()) + " 2> " + Quoted(standardError);
#ifdef _WIN32
    command = '"' + command + '"';  // the command interpreter strips the outer pair
#endif
    return RunCommand(command);
  }

  fs::path StandardOutput() const { return folder_ / "stdout"; }
  fs::path StandardError() const { return folder_ / "stderr"; }
  fs::path File() const { return folder_ / "log.txt"; }
  const TempFolder& Folder() const { return folder_; }

 private:
  const TempFolder folder_;
};

TEST_F(LogProcess, ThatAbortsLeavesItsLastRecordInTheFile) {
  EXPECT_NE(Run("abort", File().string()), 0);
  EXPECT_EQ(Texts(ParseLines(ReadFile(File()))), std::vector<std::string>{"the reason"});
}

TEST_F(LogProcess, ThatAbortsLeavesItsLastRecordOnStandardError) {
  EXPECT_NE(Run("abort", "stderr"), 0);
  const std::string written = ReadFile(StandardError());
  // The shell may add a line of its own on how the process ended.
  const std::string line = written.substr(0, written.find_first_of("\r\n"));
  EXPECT_EQ(ParseLine(line), (Received{1, "src/a.cpp", 7, "the reason"}));
}

TEST_F(LogProcess, EscapesOnStandardErrorWhatATerminalObeys) {
  EXPECT_EQ(Run("controls", "stderr"), 0);
  const std::string written = ReadFile(StandardError());
  EXPECT_NE(written.find("a\\xC2\\x9B2J\\xE2\\x80\\xAEz"), std::string::npos) << written;
}

TEST_F(LogProcess, KeepsTheSameBytesInAFile) {
  EXPECT_EQ(Run("controls", File().string()), 0);
  EXPECT_NE(ReadFile(File()).find("a\xC2\x9B"
                                  "2J\xE2\x80\xAEz"),
            std::string::npos);
}

TEST_F(LogProcess, LogsToAFileWhileStaticObjectsAreDestroyed) {
  EXPECT_EQ(Run("exit", File().string()), 0);
  EXPECT_EQ(Texts(ParseLines(ReadFile(File()))), std::vector<std::string>{"at exit"});
}

TEST_F(LogProcess, LogsToStandardErrorWhileStaticObjectsAreDestroyed) {
  EXPECT_EQ(Run("exit", "stderr"), 0);
  EXPECT_EQ(Texts(ParseLines(ReadFile(StandardError()))), std::vector<std::string>{"at exit"});
}

TEST_F(LogProcess, CallsTheFunctionWhileStaticObjectsAreDestroyed) {
  EXPECT_EQ(Run("exit", "function"), 0);
  EXPECT_EQ(ReadFile(StandardError()).substr(0, 17), "function: at exit");
}

TEST_F(LogProcess, WritesNothingToStandardOutput) {
  fs::create_directory(Folder() / "logs");
  EXPECT_EQ(Run("everywhere", (Folder() / "logs").string()), 0);
  EXPECT_EQ(ReadFile(StandardOutput()), "");
  // Records only, and no complaint about what failed.
  EXPECT_EQ(Texts(ParseLines(ReadFile(StandardError()))),
            (std::vector<std::string>{"to standard error", "nested", "nested"}));
}

#ifndef _WIN32

TEST_F(LogProcess, CountsWhatAFullStandardErrorRefuses) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  EXPECT_EQ(RunWithStandardError("lose", "", "/dev/full"), 0);
}

TEST_F(LogProcess, CountsWhatAClosedStandardErrorRefuses) {
  const std::string command = Quoted(programPath) + " --child lose \"\" 2>&-";
  EXPECT_EQ(RunCommand(command), 0);
}

#endif  // _WIN32

}  // namespace
}  // namespace Vornik
