#include <exception>
#include <memory>
#include <utility>

#include "LogSettings.h"
#include "file_sink.h"
#include "function_destination.h"
#include "line_destination.h"
#include "log_state.h"

namespace Vornik {

void SetMinLogLevel(unsigned int level) noexcept {
  minLogLevel.store(level, std::memory_order_relaxed);
}

void LogToStandardError() {
  LogState& state = LogState::Instance();
  state.Replace(state.StandardError());
}

bool LogToFile(const LogFile& file, std::string* reason) {
  LogState& state = LogState::Instance();
  try {
    state.Replace(std::make_shared<LineDestination>(std::make_shared<FileSink>(file),
                                                    FileSink::lineEnd, LineEscape::ControlBytes));
    return true;
  } catch (const std::exception& error) {
    if (reason != nullptr) *reason = error.what();
    return false;
  }
}

void LogToFunction(LogFunction function) {
  LogState& state = LogState::Instance();
  state.Replace(std::make_shared<FunctionDestination>(std::move(function), state.StandardError()));
}

std::uint64_t LostLogRecords() noexcept { return lostRecords.load(std::memory_order_relaxed); }

}  // namespace Vornik
