// The library's log during one query, kept for a look at it.
#ifndef VORNIK_CLI_MODEL_CAPTURED_LOG_H
#define VORNIK_CLI_MODEL_CAPTURED_LOG_H

#include <memory>
#include <string>
#include <vector>

#include "commands/options.h"

namespace Vornik::Cli {

struct LogLine {
  unsigned int level = 0;
  std::string file;
  int line = 0;
  std::string text;
};

using LogLines = std::vector<LogLine>;

// From its construction on, records of every level are kept here instead of being written. When it
// ends, the log is again as the user asked, and the records that the user asked for are written,
// with the time of that moment.
class LogCapture {
 public:
  explicit LogCapture(const LogOptions& user);
  ~LogCapture();  // ends it, where End was not called
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  // Called at most once; what was kept.
  LogLines End();

 private:
  const LogOptions& user_;
  std::shared_ptr<LogLines> lines_;  // null once ended
};

// While it lives, the library logs nothing.
class LogPause {
 public:
  explicit LogPause(const LogOptions& user);
  ~LogPause();
  LogPause(const LogPause&) = delete;
  LogPause& operator=(const LogPause&) = delete;

 private:
  const unsigned int level_;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_CAPTURED_LOG_H
