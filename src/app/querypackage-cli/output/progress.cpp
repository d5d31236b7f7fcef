#include "output/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <iostream>
#include <utility>

#include "output/terminal.h"

namespace Vornik::Cli {

namespace {

constexpr std::chrono::milliseconds patience{1000};
constexpr std::chrono::milliseconds interval{200};

}  // namespace

std::string ProgressText(std::size_t done, std::size_t total, const std::string& unit,
                         std::chrono::duration<double> elapsed) {
  std::string text = fmt::format("{} of {} {}", done, total, unit);
  if (done == 0 || elapsed.count() <= 0) return text;
  const double rate = static_cast<double>(done) / elapsed.count();
  const double left = static_cast<double>(total - std::min(done, total)) / rate;
  return text + fmt::format(", {:.0f} per second, {:.0f} s left", rate, left);
}

Progress::Progress(std::string unit, bool isWanted)
    : unit_(std::move(unit)),
      isShown_(isWanted && ErrorsAreOnTerminal()),
      next_(begin_ + patience) {}

Progress::~Progress() {
  if (width_ != 0) Write("");
}

void Progress::Show(std::size_t done, std::size_t total) {
  if (!isShown_) return;
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + interval;
  Write(ProgressText(done, total, unit_, now - begin_));
}

// Blanks erase what is left of the line before.
void Progress::Write(const std::string& text) {
  const std::string blanks(width_ > text.size() ? width_ - text.size() : 0, ' ');
  std::cerr << '\r' + text + blanks + (text.empty() ? "\r" : "") << std::flush;
  width_ = text.size();
}

}  // namespace Vornik::Cli
