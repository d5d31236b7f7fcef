#include "output/progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

namespace Vornik::Testing {
namespace {

using std::chrono::duration;
using std::chrono::milliseconds;

TEST(Progress, TextHasTheRateAndTheTimeLeft) {
  EXPECT_EQ(Cli::ProgressText(1'200, 5'000, "files", duration<double>(4)),
            "1200 of 5000 files, 300 per second, 13 s left");
  EXPECT_EQ(Cli::ProgressText(5, 5, "kinds of machines", duration<double>(0.5)),
            "5 of 5 kinds of machines, 10 per second, 0 s left");
  EXPECT_EQ(Cli::ProgressText(0, 5, "files", duration<double>(2)), "0 of 5 files");
  // A folder may grow while it is read.
  EXPECT_EQ(Cli::ProgressText(6, 5, "files", duration<double>(2)),
            "6 of 5 files, 3 per second, 0 s left");
}

#ifndef _WIN32

[[noreturn]] void ShowTwice(bool isWanted) {
  {
    Cli::Progress progress("files", isWanted);
    progress.Show(1, 8);
    std::this_thread::sleep_for(milliseconds(1'100));
    progress.Show(4, 8);
    progress.Show(5, 8);  // too soon after the one before
  }
  _exit(0);
}

std::string ReadToEnd(int descriptor, pid_t child) {
  std::string text;
  char buffer[256];
  for (ssize_t count; (count = read(descriptor, buffer, sizeof buffer)) > 0;) {
    text.append(buffer, static_cast<std::size_t>(count));
  }
  close(descriptor);
  waitpid(child, nullptr, 0);
  return text;
}

std::string OnTerminal(bool isWanted, const char* terminal) {
  int descriptor = -1;
  const pid_t child = forkpty(&descriptor, nullptr, nullptr, nullptr);
  if (child == 0) {
    setenv("TERM", terminal, 1);
    ShowTwice(isWanted);
  }
  return ReadToEnd(descriptor, child);
}

TEST(Progress, IsOneLineThatIsErased) {
  const std::string text = OnTerminal(true, "xterm");
  EXPECT_THAT(text, testing::MatchesRegex("\r4 of 8 files, . per second, . s left\r +\r"));
}

TEST(Progress, ShowsNothingWhereItIsNotWanted) {
  EXPECT_EQ(OnTerminal(false, "xterm"), "");
  EXPECT_EQ(OnTerminal(true, "dumb"), "");
}

TEST(Progress, ShowsNothingInAPipe) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    dup2(ends[1], STDERR_FILENO);
    close(ends[0]);
    close(ends[1]);
    ShowTwice(true);
  }
  close(ends[1]);
  EXPECT_EQ(ReadToEnd(ends[0], child), "");
}

#endif

}  // namespace
}  // namespace Vornik::Testing
