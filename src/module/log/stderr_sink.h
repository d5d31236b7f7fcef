// Writes lines to standard error and, unlike spdlog's own sink for it, reports a failed write.
#ifndef VORNIK_LOG_STDERR_SINK_H
#define VORNIK_LOG_STDERR_SINK_H

#include <spdlog/sinks/base_sink.h>

#include <mutex>

namespace Vornik {

class StderrSink final : public spdlog::sinks::base_sink<std::mutex> {
 public:
  // The stream is in text mode and turns this into the platform's line end.
  static constexpr char lineEnd[] = "\n";

 protected:
  void sink_it_(const spdlog::details::log_msg& message) override;
  void flush_() override;
};

}  // namespace Vornik

#endif  // VORNIK_LOG_STDERR_SINK_H
