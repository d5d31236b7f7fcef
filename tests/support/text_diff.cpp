#include "text_diff.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Vornik::Testing {

namespace {

using Lines = std::vector<std::string>;

struct DiffLine {
  char kind;  // '-', '+', or ' ' for a line of both
  std::string text;
};

Lines SplitLines(const std::string& text) {
  Lines lines;
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = text.find('\n', begin);
    if (end == std::string::npos) {
      lines.push_back(text.substr(begin) + " (no line feed)");
      break;
    }
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

// common[i][j]: the length of the longest common subsequence of a from i on and b from j on.
std::vector<std::vector<std::size_t>> CommonLengths(const Lines& a, const Lines& b) {
  std::vector<std::vector<std::size_t>> common(a.size() + 1,
                                               std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = a.size(); i-- > 0;) {
    for (std::size_t j = b.size(); j-- > 0;) {
      common[i][j] =
          a[i] == b[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  return common;
}

std::vector<DiffLine> Compare(const Lines& a, const Lines& b) {
  const auto common = CommonLengths(a, b);
  std::vector<DiffLine> lines;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() || j < b.size()) {
    if (i < a.size() && j < b.size() && a[i] == b[j]) {
      lines.push_back({' ', a[i]});
      ++i;
      ++j;
    } else if (j == b.size() || (i < a.size() && common[i + 1][j] >= common[i][j + 1])) {
      lines.push_back({'-', a[i++]});
    } else {
      lines.push_back({'+', b[j++]});
    }
  }
  return lines;
}

// Whether a line is a change or has one within three lines.
std::vector<bool> ShownLines(const std::vector<DiffLine>& lines) {
  constexpr std::size_t context = 3;
  std::vector<bool> shown(lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].kind == ' ') continue;
    const std::size_t begin = i < context ? 0 : i - context;
    const std::size_t end = std::min(lines.size(), i + context + 1);
    std::fill(shown.begin() + static_cast<std::ptrdiff_t>(begin),
              shown.begin() + static_cast<std::ptrdiff_t>(end), true);
  }
  return shown;
}

}  // namespace

std::string TextDiff(const std::string& expected, const std::string& actual) {
  const std::vector<DiffLine> lines = Compare(SplitLines(expected), SplitLines(actual));
  const std::vector<bool> shown = ShownLines(lines);
  std::string diff;
  std::size_t expectedLine = 1;
  std::size_t actualLine = 1;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (shown[i]) {
      if (i == 0 || !shown[i - 1]) {
        diff += "@@ -" + std::to_string(expectedLine) + " +" + std::to_string(actualLine) + " @@\n";
      }
      diff += lines[i].kind + lines[i].text + '\n';
    }
    if (lines[i].kind != '+') ++expectedLine;
    if (lines[i].kind != '-') ++actualLine;
  }
  return diff;
}

}  // namespace Vornik::Testing
