#include "line_destination.h"

#include <spdlog/pattern_formatter.h>

#include <memory>
#include <utility>

#include "log_state.h"

namespace Vornik {

LineDestination::LineDestination(spdlog::sink_ptr sink, std::string lineEnd, LineEscape escape)
    : logger_("querypackage", std::move(sink)), escape_(escape) {
  logger_.set_formatter(std::make_unique<spdlog::pattern_formatter>(
      "%Y-%m-%d %H:%M:%S.%e %v", spdlog::pattern_time_type::local, std::move(lineEnd)));
  logger_.set_error_handler([](const std::string&) { CountLostRecord(); });
}

void LineDestination::Write(const LogRecord& record) {
  // The level is part of the line; spdlog's own levels do not decide anything here.
  logger_.log(spdlog::level::info, spdlog::string_view_t(LogLine(record, escape_)));
}

}  // namespace Vornik
