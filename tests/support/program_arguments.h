// A program and its arguments as Boost.Process takes them, so that each argument arrives as it is.
#ifndef VORNIK_TESTS_PROGRAM_ARGUMENTS_H
#define VORNIK_TESTS_PROGRAM_ARGUMENTS_H

#include <boost/process/args.hpp>
#include <boost/process/cmd.hpp>
#include <string>
#include <vector>

namespace Vornik::Testing {

#ifdef _WIN32

// As the C library of the program will take it apart again: backslashes count as such unless a
// quote follows them.
inline std::string QuotedArgument(const std::string& argument) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char c : argument) {
    if (c == '"') quoted.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, '\\') += '"';
}

// Boost.Process itself drops empty arguments there and doubles quotes.
inline auto ProgramAndArguments(const std::string& program,
                                const std::vector<std::string>& arguments) {
  std::string line = QuotedArgument(program);
  for (const std::string& argument : arguments) line += ' ' + QuotedArgument(argument);
  return boost::process::cmd = line;
}

#else

inline auto ProgramAndArguments(const std::string& program, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), program);
  return boost::process::args = arguments;
}

#endif

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PROGRAM_ARGUMENTS_H
