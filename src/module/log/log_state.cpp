#include "log_state.h"

#include <utility>

#include "line_destination.h"
#include "stderr_sink.h"

namespace Vornik {

LogState& LogState::Instance() {
  static LogState& state = *new LogState;
  return state;
}

LogState::LogState()
    : standardError_(std::make_shared<LineDestination>(
          std::make_shared<StderrSink>(), StderrSink::lineEnd, LineEscape::TerminalControls)),
      current_(standardError_) {}

std::shared_ptr<Destination> LogState::Current() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return current_;
}

void LogState::Replace(std::shared_ptr<Destination> destination) {
  const std::lock_guard<std::mutex> lock(mutex_);
  // The former destination is released with the parameter, after the lock, because destroying a
  // host's function runs the host's code.
  current_.swap(destination);
}

}  // namespace Vornik
