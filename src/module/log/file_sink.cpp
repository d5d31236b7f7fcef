#include "file_sink.h"

#include <spdlog/sinks/base_sink-inl.h>  // for a mutex that spdlog does not know

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

namespace Vornik {
namespace {

using spdlog::sinks::rotating_file_sink_st;

// An attempt to open a file takes some 50 ms when it fails, too much to pay for every record.
constexpr std::chrono::seconds retryInterval{1};

constexpr std::size_t mostFiles = 1000;

void CheckSettings(const LogFile& file) {
  if (file.path.empty()) throw std::invalid_argument("the log file has no name");
  if (file.path.find('\0') != std::string::npos) {
    throw std::invalid_argument("the log file's name holds a NUL");
  }
  if (file.maxBytes == 0) throw std::invalid_argument("the log file's size limit is 0");
  if (file.maxFiles == 0 || file.maxFiles > mostFiles) {
    throw std::invalid_argument("the number of log files is not between 1 and " +
                                std::to_string(mostFiles));
  }
}

// A full disk or a killed process leaves part of a line at the end.
bool EndsInsideLine(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  char last = '\n';
  return stream.seekg(-1, std::ios::end) && stream.get(last) && last != '\n';
}

void Prepare(const std::string& path, std::FILE* stream) {
  // Unbuffered: a line reaches the system in one write, and a failed write leaves nothing in a
  // buffer that would later be written into the middle of another line.
  if (std::setvbuf(stream, nullptr, _IONBF, 0) != 0) {
    throw std::runtime_error("the log file cannot be written unbuffered");
  }
  // Where this fails, the next record fails too and is counted.
  if (EndsInsideLine(path)) static_cast<void>(std::fputs(FileSink::lineEnd, stream));
}

std::unique_ptr<rotating_file_sink_st> Open(const LogFile& file) {
  spdlog::file_event_handlers handlers;
  handlers.after_open = Prepare;
  return std::make_unique<rotating_file_sink_st>(file.path, file.maxBytes, file.maxFiles - 1, false,
                                                 handlers);
}

}  // namespace

std::mutex& FileSinkMutex::Shared() {
  static std::mutex& mutex = *new std::mutex;  // still there while static objects are destroyed
  return mutex;
}

FileSink::FileSink(LogFile file, Clock clock) : file_(std::move(file)), clock_(std::move(clock)) {
  CheckSettings(file_);
  const std::lock_guard<FileSinkMutex> lock(mutex_);
  sink_ = Open(file_);
}

void FileSink::sink_it_(const spdlog::details::log_msg& message) {
  if (!sink_) Reopen();
  try {
    sink_->log(message);
  } catch (...) {
    sink_.reset();
    nextTry_ = clock_() + retryInterval;
    throw;
  }
}

void FileSink::flush_() {}

void FileSink::set_formatter_(std::unique_ptr<spdlog::formatter> formatter) {
  base_sink::set_formatter_(std::move(formatter));
  if (sink_) sink_->set_formatter(formatter_->clone());
}

void FileSink::Reopen() {
  const auto now = clock_();
  if (now < nextTry_) throw std::runtime_error("the log file is closed after a failure");
  nextTry_ = now + retryInterval;
  auto opened = Open(file_);
  opened->set_formatter(formatter_->clone());
  sink_ = std::move(opened);
}

}  // namespace Vornik
