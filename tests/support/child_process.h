// A program of the tests run as a child: what it printed, how it ended.
#ifndef VORNIK_TESTS_CHILD_PROCESS_H
#define VORNIK_TESTS_CHILD_PROCESS_H

#include <chrono>
#include <string>
#include <vector>

namespace Vornik::Testing {

struct ChildOutcome {
  bool ended = false;              // by itself, before it was stopped
  bool aborted = false;            // ended through abort
  int exitStatus = 0;              // where it ended by itself
  std::vector<std::string> lines;  // of its standard output
};

// Runs a program for at most that long, then stops it.
ChildOutcome RunChild(const std::string& program, const std::vector<std::string>& arguments,
                      std::chrono::milliseconds limit);

struct SleepingChild {
  bool sleeps = false;             // it goes on running and uses no processor time
  std::vector<std::string> lines;  // of its standard output, up to its end
};

// Runs a program until it has printed that line and then sleeps, or ends, or for at most that long;
// then stops it.
SleepingChild RunChildUntilItSleeps(const std::string& program,
                                    const std::vector<std::string>& arguments,
                                    const std::string& lastLine, std::chrono::milliseconds limit);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CHILD_PROCESS_H
