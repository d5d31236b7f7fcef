// Writes lines to a rotating file and recovers from failures: spdlog's rotating sink must not be
// used again once it has thrown, because it may then have no open file.
#ifndef VORNIK_LOG_FILE_SINK_H
#define VORNIK_LOG_FILE_SINK_H

#include <spdlog/details/os.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/sinks/rotating_file_sink.h>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>

#include "LogSettings.h"

namespace Vornik {

// One mutex for every FileSink: when a destination is replaced by one with the same path, the
// former one must have written its record whole before the new one opens the file.
class FileSinkMutex {
 public:
  void lock() { Shared().lock(); }
  void unlock() { Shared().unlock(); }

 private:
  static std::mutex& Shared();
};

class FileSink final : public spdlog::sinks::base_sink<FileSinkMutex> {
 public:
  // The stream is in binary mode.
  static constexpr const char* lineEnd = spdlog::details::os::default_eol;

  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  // Opens the file. Throws a std::exception that says why it cannot. After a failure the clock says
  // when to try again.
  explicit FileSink(LogFile file, Clock clock = std::chrono::steady_clock::now);

 protected:
  void sink_it_(const spdlog::details::log_msg& message) override;
  void flush_() override;
  void set_formatter_(std::unique_ptr<spdlog::formatter> formatter) override;

 private:
  void Reopen();

  const LogFile file_;
  const Clock clock_;
  std::unique_ptr<spdlog::sinks::rotating_file_sink_st> sink_;  // null after a failure
  std::chrono::steady_clock::time_point nextTry_;               // read only while sink_ is null
};

}  // namespace Vornik

#endif  // VORNIK_LOG_FILE_SINK_H
