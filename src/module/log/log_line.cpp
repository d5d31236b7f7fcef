#include "log_line.h"

#include "utf8_characters.h"

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

void AppendByte(std::string& line, char character) {
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

// Length of the character that text begins with if a terminal obeys it and it has several bytes,
// otherwise 0.
std::size_t WideControlLength(std::string_view text) {
  const Utf8Character character = FirstUtf8Character(text);
  return character.length > 1 && SteersTerminal(character.code) ? character.length : 0;
}

void AppendEscaped(std::string& line, std::string_view text, LineEscape escape) {
  while (!text.empty()) {
    const std::size_t control =
        escape == LineEscape::TerminalControls ? WideControlLength(text) : 0;
    if (control == 0) {
      AppendByte(line, text.front());
      text.remove_prefix(1);
      continue;
    }
    for (const char byte : text.substr(0, control)) {
      AppendHexEscape(line, static_cast<unsigned char>(byte));
    }
    text.remove_prefix(control);
  }
}

}  // namespace

std::string Escape(std::string_view text, LineEscape escape) {
  std::string escaped;
  escaped.reserve(text.size());
  AppendEscaped(escaped, text, escape);
  return escaped;
}

std::string LogLine(const LogRecord& record, LineEscape escape) {
  std::string line = LevelWord(record.level);
  line += ' ';
  AppendEscaped(line, record.file, escape);
  line += ':';
  line += std::to_string(record.line);
  line += ": ";
  AppendEscaped(line, record.text, escape);
  return line;
}

}  // namespace Vornik
