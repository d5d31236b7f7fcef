#include "recording_log.h"

#include <Log.h>

#include <optional>
#include <utility>

namespace Vornik {

namespace {

using Testing::LogEntry;
using Testing::RecordingLog;

struct FailurePlan {
  RecordingLog::Operation operation;
  std::size_t record;
};

struct State {
  unsigned int threshold = 3;
  std::size_t constructed = 0;
  std::vector<LogEntry> entries;
  std::optional<FailurePlan> failure;
  std::function<void(const LogEntry&)> hook;
};

State& ThreadState() {
  thread_local State state;
  return state;
}

void FailIfPlanned(RecordingLog::Operation operation) {
  const State& state = ThreadState();
  if (state.failure && state.failure->operation == operation &&
      state.failure->record + 1 == state.constructed) {
    throw RecordingLog::Failure("the log failed");
  }
}

}  // namespace

Log::Log(unsigned int level, const char* file, int line) : level_(level), file_(file), line_(line) {
  ++ThreadState().constructed;
  FailIfPlanned(RecordingLog::Operation::Constructor);
}

Log::~Log() noexcept(false) {
  State& state = ThreadState();
  state.entries.push_back({level_, file_, line_, stream_.str()});
  if (state.hook) {
    const auto hook = state.hook;
    const LogEntry entry = state.entries.back();
    hook(entry);
  }
  FailIfPlanned(RecordingLog::Operation::Destructor);
}

std::ostringstream& Log::Stream() {
  FailIfPlanned(RecordingLog::Operation::Stream);
  return stream_;
}

unsigned int Log::GetMinLogLevel() { return ThreadState().threshold; }

namespace Testing {

void RecordingLog::Reset(unsigned int threshold) {
  ThreadState() = State();
  ThreadState().threshold = threshold;
}

void RecordingLog::SetThreshold(unsigned int threshold) { ThreadState().threshold = threshold; }

const std::vector<LogEntry>& RecordingLog::Entries() { return ThreadState().entries; }

std::vector<std::string> RecordingLog::Lines() {
  std::vector<std::string> lines;
  for (const LogEntry& entry : Entries()) {
    lines.push_back(std::to_string(entry.level) + " " + entry.text);
  }
  return lines;
}

std::vector<std::string> RecordingLog::LinesOfLevel(unsigned int level) {
  std::vector<std::string> lines;
  for (const LogEntry& entry : Entries()) {
    if (entry.level == level) lines.push_back(entry.text);
  }
  return lines;
}

void RecordingLog::FailAt(Operation operation, std::size_t record) {
  ThreadState().failure = FailurePlan{operation, record};
}

void RecordingLog::OnRecord(std::function<void(const LogEntry&)> hook) {
  ThreadState().hook = std::move(hook);
}

std::size_t RecordingLog::Constructed() { return ThreadState().constructed; }

}  // namespace Testing

}  // namespace Vornik
