// The subcommand on a terminal, and one that is interrupted.
#ifndef _WIN32

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <vector>

#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// In the child: never returns.
[[noreturn]] void Become(const Arguments& arguments) {
  std::vector<char*> pointers;
  for (const std::string& argument : arguments) {
    pointers.push_back(const_cast<char*>(argument.c_str()));
  }
  pointers.push_back(nullptr);
  execv(pointers.front(), pointers.data());
  _exit(127);
}

// Until the other end is closed, which some systems report as an error.
std::string ReadAll(int descriptor) {
  std::string text;
  char buffer[4096];
  for (;;) {
    const ssize_t count = read(descriptor, buffer, sizeof buffer);
    if (count <= 0) return text;
    text.append(buffer, static_cast<std::size_t>(count));
  }
}

int ExitStatusOf(pid_t child) {
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class MatrixTerminalTest : public CliTest {
 protected:
  // The program on a terminal of that width.
  Outcome MatrixOnTerminal(unsigned short width, const Arguments& more) {
    Arguments arguments{CliPath(), "matrix", folder.Path(), "--color", "never"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    winsize size{};
    size.ws_row = 25;
    size.ws_col = width;
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) Become(arguments);
    Outcome outcome;
    outcome.out = ReadAll(terminal);
    close(terminal);
    outcome.status = ExitStatusOf(child);
    return outcome;
  }

  std::string WriteMachines(const std::string& lines) {
    other_.Write("machines.csv", "machine_type,os,arch,name,count\n" + lines);
    return other_.Path() + "/machines.csv";
  }

  TempFolder other_;
};

TEST_F(MatrixTerminalTest, TableThatDoesNotFitIsRefused) {
  WritePackage("a");
  const Arguments more{"--no-kovu-filter", "--machines",
                       WriteMachines("1234,10,9,,\n1234,10,8,,\n1234,10,7,,\n")};
  const std::string table = "CODE  1234/10/9  1234/10/8          1234/10/7\r\n";
  const Outcome wide = MatrixOnTerminal(53, more);
  EXPECT_EQ(wide.status, 0);
  EXPECT_THAT(wide.out, HasSubstr(table));
  const Outcome narrow = MatrixOnTerminal(52, more);
  EXPECT_EQ(narrow.status, 64);
  EXPECT_THAT(narrow.out, HasSubstr("3 machines of 3 kinds, 1 package\r\n"));
  EXPECT_THAT(narrow.out, Not(HasSubstr("CODE")));
  EXPECT_THAT(
      narrow.out,
      HasSubstr("the table of 3 kinds needs at least 53 columns of the terminal, which has 52: "
                "narrow it with --machine, or use --format csv"));
  EXPECT_THAT(MatrixOnTerminal(30, more).out, HasSubstr("needs at least 37 columns"));
  EXPECT_EQ(MatrixOnTerminal(0, more).status, 0);  // a terminal that does not say has 80
}

TEST_F(MatrixTerminalTest, ShortCommandShowsNoProgress) {
  WritePackage("a");
  const Outcome outcome = MatrixOnTerminal(80, {"--machines", WriteMachines("1234,10,9,,\n")});
  EXPECT_THAT(outcome.out, Not(HasSubstr(" per second")));
}

TEST_F(MatrixTerminalTest, InterruptLeavesWholeLines) {
  WritePackage("a");
  std::string lines;
  for (int i = 0; i < 50'000; ++i) lines += "1234,10,9,machine " + std::to_string(i) + ",\n";
  const std::string machines = WriteMachines(lines);
  for (const std::string format : {"csv", "jsonl"}) {
    SCOPED_TRACE(format);
    int out[2];
    int err[2];
    ASSERT_EQ(pipe(out), 0);
    ASSERT_EQ(pipe(err), 0);
    const pid_t child = fork();
    if (child == 0) {
      dup2(out[1], STDOUT_FILENO);
      dup2(err[1], STDERR_FILENO);
      for (const int descriptor : {out[0], out[1], err[0], err[1]}) close(descriptor);
      Become({CliPath(), "matrix", folder.Path(), "--machines", machines, "--format", format});
    }
    close(out[1]);
    close(err[1]);
    // It waits for a reader, since a pipe does not take all of it.
    std::string text(1, '\0');
    ASSERT_EQ(read(out[0], text.data(), 1), 1);
    kill(child, SIGINT);
    text += ReadAll(out[0]);
    const std::string errors = ReadAll(err[0]);
    close(out[0]);
    close(err[0]);
    EXPECT_EQ(ExitStatusOf(child), 130);
    EXPECT_THAT(errors, HasSubstr("interrupted"));
    EXPECT_THAT(text, EndsWith("\n"));
    const std::vector<std::string> printed = LinesOf(text);
    EXPECT_LT(printed.size(), 50'000U);
    if (format == "csv") {
      EXPECT_EQ(std::count(printed.back().begin(), printed.back().end(), ','), 11);
    } else {
      EXPECT_TRUE(Json::accept(printed.back()));
    }
  }
}

}  // namespace
}  // namespace Vornik::Testing

#endif
