#include "child.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "support.h"

namespace Vornik {

std::string programPath;

namespace {

bool logAtExit = false;

// Built before main, hence destroyed after everything that main makes.
struct LogsWhenDestroyed {
  LogsWhenDestroyed() = default;
  ~LogsWhenDestroyed() {
    if (logAtExit) Emit(1, "at exit");
  }
  LogsWhenDestroyed(const LogsWhenDestroyed&) = delete;
  LogsWhenDestroyed& operator=(const LogsWhenDestroyed&) = delete;
};
const LogsWhenDestroyed logsWhenDestroyed{};

// "stderr", "function" (which writes the text to standard error) or the path of a file.
bool Select(const std::string& destination) {
  if (destination == "stderr") {
    LogToStandardError();
    return true;
  }
  if (destination == "function") {
    LogToFunction([](const LogRecord& record) {
      const std::string line = "function: " + std::string(record.text) + "\n";
      static_cast<void>(std::fputs(line.c_str(), stderr));
    });
    return true;
  }
  return LogToFile({destination});
}

int EmitAndAbort() {
  Emit(1, "the reason");
  std::abort();
}

int EmitControls() {
  Emit(1,
       "a\xC2\x9B"
       "2J\xE2\x80\xAEz");
  return 0;
}

int EmitAtExit() {
  logAtExit = true;
  return 0;
}

// Everything that can go well or wrong, with standard output watched from outside.
int EmitEverywhere(const std::string& folder) {
  Emit(1, "to standard error");
  LogToFile({folder});  // not a file
  LogToFile({folder + "/log.txt", 50, 2});
  for (int number = 0; number < 10; ++number) Emit(1, "rotating");
#ifndef _WIN32
  LogToFile({"/dev/full", 50, 2});
  Emit(1, "lost");
#endif
  LogToFunction([](const LogRecord& record) {
    Emit(1, "nested");
    if (record.level == 1) throw std::runtime_error("no");
    throw 1;
  });
  Emit(1, "thrown");
  Emit(2, "thrown");
  LogToFunction(nullptr);
  Emit(1, "discarded");
  return LostLogRecords() == 0 ? 1 : 0;  // the failures did happen
}

// With a standard error that refuses what is written: every record counts, none hurts.
int LoseEverything() {
  LogToStandardError();
  for (int number = 0; number < 10; ++number) Emit(1, "lost");
  return LostLogRecords() == 10 ? 0 : 1;
}

}  // namespace

int RunChild(const std::vector<std::string>& arguments) {
  if (arguments.size() != 2) return 2;
  const std::string& mode = arguments[0];
  const std::string& operand = arguments[1];
  if (mode == "abort") return Select(operand) ? EmitAndAbort() : 1;
  if (mode == "controls") return Select(operand) ? EmitControls() : 1;
  if (mode == "exit") return Select(operand) ? EmitAtExit() : 1;
  if (mode == "everywhere") return EmitEverywhere(operand);
  if (mode == "lose") return LoseEverything();
  return 2;
}

}  // namespace Vornik
