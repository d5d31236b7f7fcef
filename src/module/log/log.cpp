#include "Log.h"

#include <string>

#include "log_state.h"

namespace Vornik {

Log::Log(unsigned int level, const char* file, int line)
    : level_(level), file_(file == nullptr ? "" : file), line_(line) {}

Log::~Log() noexcept(false) {
  try {
    const std::string text = stream_.str();
    LogState::Instance().Current()->Write(LogRecord{level_, file_, line_, text});
  } catch (...) {
    CountLostRecord();
  }
}

std::ostringstream& Log::Stream() { return stream_; }

unsigned int Log::GetMinLogLevel() { return minLogLevel.load(std::memory_order_relaxed); }

}  // namespace Vornik
