// The host's own logging library: keeps records in memory until the host takes them.
#ifndef OWN_LOG_HOST_LOG_H
#define OWN_LOG_HOST_LOG_H

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace Vornik {

struct LogEntry {
  unsigned int severity = 0;  // 1 error, 2 warning, 3 progress
  std::string source;         // "file(line)"
  std::string message;
};

// Thrown when a record of level 1 is completed while ThrowOnErrors is on.
class LogError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Log {
 public:
  // The four members that querypackage relies on.
  Log(unsigned int level, const char* file, int line);
  virtual ~Log() noexcept(false);
  std::ostringstream& Stream() { return message_; }
  static unsigned int GetMinLogLevel();

  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  // The rest is for the host.
  static void SetMinLogLevel(unsigned int level);
  static void ThrowOnErrors(bool on);

  // The entries since the last call, oldest first.
  static std::vector<LogEntry> TakeEntries();

 private:
  LogEntry entry_;
  std::ostringstream message_;
  const int exceptionsAtStart_;
};

}  // namespace Vornik

#endif  // OWN_LOG_HOST_LOG_H
