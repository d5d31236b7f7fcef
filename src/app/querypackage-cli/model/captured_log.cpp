#include "model/captured_log.h"

#include <LogSettings.h>

#include <exception>
#include <utility>

#include "commands/exit_status.h"

namespace Vornik::Cli {

namespace {

constexpr unsigned int everything = 3;

void Restore(const LogOptions& user) {
  LogToStandardError();
  std::string reason;
  if (!ApplyLogOptions(user, reason)) {
    PrintNotice("the log file \"" + user.file + "\" cannot be opened again (" + reason +
                "): records go to standard error");
  }
}

void Write(const LogLines& lines, unsigned int level) {
  for (const LogLine& line : lines) {
    if (line.level <= level) Log(line.level, line.file.c_str(), line.line).Stream() << line.text;
  }
}

}  // namespace

LogCapture::LogCapture(const LogOptions& user) : user_(user), lines_(std::make_shared<LogLines>()) {
  LogToFunction([lines = lines_](const LogRecord& record) {
    lines->push_back({record.level, record.file, record.line, std::string(record.text)});
  });
  SetMinLogLevel(everything);
}

LogCapture::~LogCapture() {
  try {
    if (lines_ != nullptr) End();
  } catch (const std::exception& error) {
    PrintNotice("the log could not be written: " + Describe(error));
  }
}

LogLines LogCapture::End() {
  const std::shared_ptr<LogLines> lines = std::move(lines_);
  Restore(user_);
  Write(*lines, user_.level);
  return std::move(*lines);
}

LogPause::LogPause(const LogOptions& user) : level_(user.level) { SetMinLogLevel(0); }

LogPause::~LogPause() { SetMinLogLevel(level_); }

}  // namespace Vornik::Cli
