// The logging library of the tests: it keeps every record, and fails where a test asks it to.
//
// All state belongs to the thread, so that queries on several threads do not mix.
#ifndef VORNIK_TESTS_RECORDING_LOG_H
#define VORNIK_TESTS_RECORDING_LOG_H

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Vornik::Testing {

struct LogEntry {
  unsigned int level = 0;
  std::string file;
  int line = 0;
  std::string text;
};

class RecordingLog {
 public:
  enum class Operation { Constructor, Stream, Destructor };

  struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
  };

  // Forgets everything and fails nowhere.
  static void Reset(unsigned int threshold = 3);
  static void SetThreshold(unsigned int threshold);

  static const std::vector<LogEntry>& Entries();

  // The records as "<level> <text>".
  static std::vector<std::string> Lines();

  // The same, of one level alone.
  static std::vector<std::string> LinesOfLevel(unsigned int level);

  // The operation on the record with that number, counted from 0, throws a Failure.
  static void FailAt(Operation operation, std::size_t record);

  // Called with each record when it is complete; null: nothing is called.
  static void OnRecord(std::function<void(const LogEntry&)> hook);

  // How many Log objects were made.
  static std::size_t Constructed();
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_RECORDING_LOG_H
