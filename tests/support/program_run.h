// A program run as a child to its end, with its output in files.
#ifndef VORNIK_TESTS_PROGRAM_RUN_H
#define VORNIK_TESTS_PROGRAM_RUN_H

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace Vornik::Testing {

struct ProgramCall {
  std::string program;
  std::vector<std::string> arguments;
  std::map<std::string, std::string> variables;  // added to the environment, without NO_COLOR
  std::string out;                               // file for its standard output
  std::string err;                               // file for its standard error
};

struct ProgramEnd {
  bool inTime = false;  // by itself; otherwise it was ended
  int status = -1;      // exit status, or the number of the signal that ended it
};

// Standard input is empty. Throws where the program cannot be started.
ProgramEnd RunToItsEnd(const ProgramCall& call, std::chrono::seconds limit);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PROGRAM_RUN_H
