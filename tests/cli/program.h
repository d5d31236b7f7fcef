// Runs a built program as a child and captures what it leaves behind.
#ifndef VORNIK_TESTS_CLI_PROGRAM_H
#define VORNIK_TESTS_CLI_PROGRAM_H

#include <map>
#include <string>
#include <vector>

namespace Vornik::Testing {

using Arguments = std::vector<std::string>;
using Variables = std::map<std::string, std::string>;

struct Outcome {
  int status = -1;  // exit status, or the number of the signal that ended the program
  std::string out;
  std::string err;
};

// The program with an empty standard input. One that does not end within a minute is ended and
// fails the test. Each variable is added to the environment, which holds no NO_COLOR otherwise.
Outcome RunProgram(const std::string& program, const Arguments& arguments,
                   const Variables& variables = {});

// querypackage-cli.
std::string CliPath();
Outcome RunCli(const Arguments& arguments, const Variables& variables = {});

// The lines of a text, without their ends.
std::vector<std::string> LinesOf(const std::string& text);

std::string ReadFile(const std::string& path);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_PROGRAM_H
