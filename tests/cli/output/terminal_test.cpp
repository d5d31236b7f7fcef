// The table on a terminal.
#ifndef _WIN32

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;
using testing::Not;

class TerminalTest : public CliTest {
 protected:
  // What the program writes to a terminal of its own. noColour: value of NO_COLOR, null for none.
  std::string QueryOnTerminal(const char* noColour, const Arguments& more = {});
};

// In the child: never returns.
[[noreturn]] void Become(const Arguments& arguments, const char* noColour) {
  if (noColour == nullptr) {
    unsetenv("NO_COLOR");
  } else {
    setenv("NO_COLOR", noColour, 1);
  }
  std::vector<char*> pointers;
  for (const std::string& argument : arguments) {
    pointers.push_back(const_cast<char*>(argument.c_str()));
  }
  pointers.push_back(nullptr);
  execv(pointers.front(), pointers.data());
  _exit(127);
}

// Until the terminal's other end is closed, which some systems report as an error.
std::string ReadAll(int terminal) {
  std::string text;
  char buffer[4096];
  for (;;) {
    const ssize_t count = read(terminal, buffer, sizeof buffer);
    if (count <= 0) return text;
    text.append(buffer, static_cast<std::size_t>(count));
  }
}

std::string TerminalTest::QueryOnTerminal(const char* noColour, const Arguments& more) {
  Arguments arguments{CliPath()};
  for (const std::string& argument : QueryArguments(more)) arguments.push_back(argument);
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) Become(arguments, noColour);
  EXPECT_GT(child, 0);
  std::string text = ReadAll(terminal);
  close(terminal);
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0) << text;
  return text;
}

TEST_F(TerminalTest, VerdictsAreColoured) {
  WritePackage("a");
  const std::string text = QueryOnTerminal(nullptr);
  EXPECT_THAT(text, HasSubstr("\x1B[32mpass\x1B[0m"));
  EXPECT_THAT(text, HasSubstr("\x1B[31mfail\x1B[0m"));
  EXPECT_THAT(text, HasSubstr("\x1B[2m-\x1B[0m"));
  EXPECT_THAT(text, HasSubstr("\x1B[31mno\x1B[0m"));
}

TEST_F(TerminalTest, ColourMovesNoColumn) {
  WritePackage("a");
  std::string text = QueryOnTerminal(nullptr);
  for (const std::string sequence : {"\x1B[32m", "\x1B[31m", "\x1B[2m", "\x1B[0m"}) {
    for (std::size_t at; (at = text.find(sequence)) != std::string::npos;) {
      text.erase(at, sequence.size());
    }
  }
  EXPECT_EQ(text, QueryOnTerminal("1"));
}

TEST_F(TerminalTest, NoColorOfAnyValueButTheEmptyOneDeclinesColour) {
  WritePackage("a");
  for (const char* value : {"1", "0", "no"}) {
    EXPECT_THAT(QueryOnTerminal(value), Not(HasSubstr("\x1B"))) << value;
  }
  EXPECT_THAT(QueryOnTerminal(""), HasSubstr("\x1B[32m"));
}

TEST_F(TerminalTest, DumbTerminalHasNoColour) {
  WritePackage("a");
  setenv("TERM", "dumb", 1);
  EXPECT_THAT(QueryOnTerminal(nullptr), Not(HasSubstr("\x1B")));
  EXPECT_THAT(QueryOnTerminal(nullptr, {"--color", "always"}), HasSubstr("\x1B[32m"));
  unsetenv("TERM");
  EXPECT_THAT(QueryOnTerminal(nullptr), HasSubstr("\x1B[32m"));
}

TEST_F(TerminalTest, OptionDecidesAgainstTerminalAndEnvironment) {
  WritePackage("a");
  EXPECT_THAT(QueryOnTerminal(nullptr, {"--color", "never"}), Not(HasSubstr("\x1B")));
  EXPECT_THAT(QueryOnTerminal(nullptr, {"--color", "auto"}), HasSubstr("\x1B[32m"));
  EXPECT_THAT(QueryOnTerminal("1", {"--color", "always"}), HasSubstr("\x1B[32m"));
  EXPECT_THAT(Query({"--color", "always"}).out, HasSubstr("\x1B[32m"));
  EXPECT_EQ(Query({"--color", "sometimes"}).status, 64);
}

TEST_F(TerminalTest, JsonHasNoColour) {
  WritePackage("a");
  EXPECT_THAT(QueryOnTerminal(nullptr, {"--format", "json"}), Not(HasSubstr("\x1B")));
}

}  // namespace
}  // namespace Vornik::Testing

#endif
