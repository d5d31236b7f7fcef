#include "log_line.h"

namespace Vornik {
namespace {

std::string LevelWord(unsigned int level) {
  switch (level) {
    case 1:
      return "error";
    case 2:
      return "warning";
    case 3:
      return "progress";
    default:
      return "level" + std::to_string(level);
  }
}

void AppendHexEscape(std::string& line, unsigned char byte) {
  constexpr char digits[] = "0123456789ABCDEF";
  line += "\\x";
  line += digits[byte >> 4];
  line += digits[byte & 0x0F];
}

void AppendEscaped(std::string& line, std::string_view text) {
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte == '\n') {
      line += "\\n";
    } else if (byte == '\\') {
      line += "\\\\";
    } else if (byte < 0x20 || byte == 0x7F) {
      AppendHexEscape(line, byte);
    } else {
      line += character;
    }
  }
}

}  // namespace

std::string EscapeControlBytes(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  AppendEscaped(escaped, text);
  return escaped;
}

std::string LogLine(const LogRecord& record) {
  std::string line = LevelWord(record.level);
  line += ' ';
  AppendEscaped(line, record.file);
  line += ':';
  line += std::to_string(record.line);
  line += ": ";
  AppendEscaped(line, record.text);
  return line;
}

}  // namespace Vornik
