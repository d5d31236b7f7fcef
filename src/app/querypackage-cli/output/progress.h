// How far a long command is, in one line on a terminal.
#ifndef VORNIK_CLI_OUTPUT_PROGRESS_H
#define VORNIK_CLI_OUTPUT_PROGRESS_H

#include <chrono>
#include <cstddef>
#include <string>

namespace Vornik::Cli {

// 1200 of 5000 files, 340 per second, 12 s left
std::string ProgressText(std::size_t done, std::size_t total, const std::string& unit,
                         std::chrono::duration<double> elapsed);

// Writes to standard error, if that is a terminal, from the first second on and some times in a
// second. The line is erased by the destructor. One thread at a time.
class Progress {
 public:
  // unit: what is counted, in the plural.
  Progress(std::string unit, bool isWanted);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Show(std::size_t done, std::size_t total);

 private:
  using Clock = std::chrono::steady_clock;

  void Write(const std::string& text);

  const std::string unit_;
  const bool isShown_;
  const Clock::time_point begin_ = Clock::now();
  Clock::time_point next_;
  std::size_t width_ = 0;  // of the line on the terminal
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_PROGRESS_H
