// The lines that a plain version expects on the log, as "<level> <text>".
#ifndef VORNIK_TESTS_PLAIN_LOG_H
#define VORNIK_TESTS_PLAIN_LOG_H

#include <string>
#include <vector>

namespace Vornik::Testing {

class PlainLog {
 public:
  void Error(const std::string& text) { lines_.push_back("1 " + text); }
  void Warning(const std::string& text) { lines_.push_back("2 " + text); }
  void Progress(const std::string& text) { lines_.push_back("3 " + text); }

  void Append(const PlainLog& other) {
    lines_.insert(lines_.end(), other.lines_.begin(), other.lines_.end());
  }

  // What a threshold lets through.
  std::vector<std::string> Lines(unsigned int threshold = 3) const {
    std::vector<std::string> lines;
    for (const std::string& line : lines_) {
      if (static_cast<unsigned int>(line[0] - '0') <= threshold) lines.push_back(line);
    }
    return lines;
  }

 private:
  std::vector<std::string> lines_;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_LOG_H
