#include "stderr_sink.h"

#include <cerrno>
#include <cstdio>

namespace Vornik {

void StderrSink::sink_it_(const spdlog::details::log_msg& message) {
  spdlog::memory_buf_t line;
  formatter_->format(message, line);
  // One call a line: the stream's own lock keeps other writers of the process out of it.
  const bool written = std::fwrite(line.data(), 1, line.size(), stderr) == line.size();
  if (!written || std::fflush(stderr) != 0) {
    spdlog::throw_spdlog_ex("cannot write to standard error", errno);
  }
}

void StderrSink::flush_() {}

}  // namespace Vornik
