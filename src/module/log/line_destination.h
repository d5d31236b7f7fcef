// A destination that receives records as lines, written by a spdlog sink.
#ifndef VORNIK_LOG_LINE_DESTINATION_H
#define VORNIK_LOG_LINE_DESTINATION_H

#include <spdlog/logger.h>

#include <string>

#include "destination.h"
#include "log_line.h"

namespace Vornik {

class LineDestination final : public Destination {
 public:
  LineDestination(spdlog::sink_ptr sink, std::string lineEnd, LineEscape escape);

  // A std::exception of the sink stops here, and the record is counted as lost.
  void Write(const LogRecord& record) override;

 private:
  // Never registered with spdlog, because the process may use spdlog itself.
  spdlog::logger logger_;
  const LineEscape escape_;
};

}  // namespace Vornik

#endif  // VORNIK_LOG_LINE_DESTINATION_H
