#include "support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace Vornik {
namespace {

namespace fs = std::filesystem;

// One escape without its backslash, from the front of text.
char TakeEscape(std::string_view& text) {
  const char kind = text.front();
  text.remove_prefix(1);
  if (kind != 'x') return kind == 'n' ? '\n' : kind;
  const std::string digits(text.substr(0, 2));
  text.remove_prefix(digits.size());
  return static_cast<char>(std::strtoul(digits.c_str(), nullptr, 16));
}

std::string Unescape(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const char character = text.front();
    text.remove_prefix(1);
    plain += character == '\\' && !text.empty() ? TakeEscape(text) : character;
  }
  return plain;
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// "2025-01-31 13:05:09.042 "
bool TakeTimeStamp(std::string_view& rest) {
  constexpr std::string_view shape = "0000-00-00 00:00:00.000 ";
  const std::string_view stamp = rest.substr(0, shape.size());
  const bool matches = std::equal(shape.begin(), shape.end(), stamp.begin(), stamp.end(),
                                  [](char expected, char found) {
                                    return expected == '0' ? IsDigit(found) : expected == found;
                                  });
  if (matches) rest.remove_prefix(shape.size());
  return matches;
}

// What stands before separator, which is taken too; false if it is missing.
bool TakeUpTo(std::string_view& rest, std::string_view separator, std::string& part) {
  const std::size_t position = rest.find(separator);
  if (position == std::string_view::npos) return false;
  part = rest.substr(0, position);
  rest.remove_prefix(position + separator.size());
  return true;
}

// A whole decimal number; false for anything else.
template <typename Number>
bool ToNumber(std::string_view text, Number& number) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

// "error ", "level4 "
bool TakeLevel(std::string_view& rest, unsigned int& level) {
  std::string word;
  if (!TakeUpTo(rest, " ", word)) return false;
  const std::string_view words[] = {"error", "warning", "progress"};
  const auto* const found = std::find(std::begin(words), std::end(words), word);
  if (found != std::end(words)) {
    level = static_cast<unsigned int>(found - std::begin(words)) + 1;
    return true;
  }
  constexpr std::string_view other = "level";
  return word.compare(0, other.size(), other) == 0 && ToNumber(word.substr(other.size()), level);
}

// "src/a.cpp:7: "; the tests' file names hold no ": "
bool TakeSource(std::string_view& rest, Received& received) {
  std::string source;
  if (!TakeUpTo(rest, ": ", source)) return false;
  const std::size_t colon = source.rfind(':');
  if (colon == std::string::npos) return false;
  received.file = Unescape(source.substr(0, colon));
  return ToNumber(std::string_view(source).substr(colon + 1), received.line);
}

}  // namespace

void PrintTo(const Received& received, std::ostream* stream) {
  *stream << "level " << received.level << " from " << received.file << ":" << received.line
          << " \"" << received.text.substr(0, 200) << "\"";
}

void Emit(unsigned int level, const std::string& text, const char* file, int line) {
  Log(level, file, line).Stream() << text;
}

Received ParseLine(const std::string& line) {
  std::string_view rest = line;
  Received received;
  if (TakeTimeStamp(rest) && TakeLevel(rest, received.level) && TakeSource(rest, received)) {
    received.text = Unescape(rest);
    return received;
  }
  ADD_FAILURE() << "not a log line: " << line.substr(0, 200);
  return {};
}

std::vector<Received> ParseLines(const std::string& text) {
  std::vector<Received> received;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    received.push_back(ParseLine(line));
  }
  if (!text.empty() && text.back() != '\n') ADD_FAILURE() << "the last line does not end";
  return received;
}

std::vector<std::string> Texts(const std::vector<Received>& received) {
  std::vector<std::string> texts;
  texts.reserve(received.size());
  for (const Received& one : received) texts.push_back(one.text);
  return texts;
}

std::string ReadFile(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

std::vector<Received> ReadRotated(const fs::path& path) {
  std::size_t count = 0;
  while (fs::exists(RotatedName(path, count))) ++count;
  std::string content;
  while (count > 0) content += ReadFile(RotatedName(path, --count));
  return ParseLines(content);
}

fs::path RotatedName(const fs::path& path, std::size_t index) {
  if (index == 0) return path;
  fs::path name = path.stem();
  name += "." + std::to_string(index);
  name += path.extension();
  return path.parent_path() / name;
}

RestoredSettings::~RestoredSettings() {
  SetMinLogLevel(1);
  LogToStandardError();
}

}  // namespace Vornik
