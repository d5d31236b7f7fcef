#include "Log.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <utility>

namespace Vornik {
namespace {

std::atomic<unsigned int> minLevel{1};
std::atomic<bool> throwOnErrors{false};
std::mutex entriesMutex;
std::vector<LogEntry> entries;

void Keep(LogEntry entry) {
  const std::lock_guard<std::mutex> lock(entriesMutex);
  entries.push_back(std::move(entry));
}

}  // namespace

Log::Log(unsigned int level, const char* file, int line)
    : entry_{level, std::string(file) + "(" + std::to_string(line) + ")", ""},
      exceptionsAtStart_(std::uncaught_exceptions()) {}

Log::~Log() noexcept(false) {
  entry_.message = message_.str();
  Keep(entry_);
  // Not while another exception is on its way through the emitting statement.
  const bool unwinding = std::uncaught_exceptions() > exceptionsAtStart_;
  if (throwOnErrors && entry_.severity == 1 && !unwinding) throw LogError(entry_.message);
}

unsigned int Log::GetMinLogLevel() { return minLevel; }

void Log::SetMinLogLevel(unsigned int level) { minLevel = level; }

void Log::ThrowOnErrors(bool on) { throwOnErrors = on; }

std::vector<LogEntry> Log::TakeEntries() {
  const std::lock_guard<std::mutex> lock(entriesMutex);
  return std::exchange(entries, {});
}

}  // namespace Vornik
