// A record as the text of one line, without time and line end.
#ifndef VORNIK_LOG_LOG_LINE_H
#define VORNIK_LOG_LOG_LINE_H

#include <string>
#include <string_view>

#include "LogSettings.h"

namespace Vornik {

// Which bytes of a record's file and text are escaped. Either way the result can be converted back
// and is one line.
enum class LineEscape {
  // "a\nb" (line feed)  => a\nb (backslash, n)
  // "C:\x" (backslash)  => C:\\x
  // tab, NUL, DEL       => \x09, \x00, \x7F
  // bytes from 0x80     => unchanged
  ControlBytes,

  // The same, and of UTF-8 characters those that a terminal obeys:
  // U+009B (control)    => \xC2\x9B
  // U+202E (direction)  => \xE2\x80\xAE
  // other bytes         => unchanged
  TerminalControls,
};

std::string Escape(std::string_view text, LineEscape escape);

// {1, "a.cpp", 7, "no folder"} => error a.cpp:7: no folder
std::string LogLine(const LogRecord& record, LineEscape escape);

}  // namespace Vornik

#endif  // VORNIK_LOG_LOG_LINE_H
