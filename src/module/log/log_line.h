// A record as the text of one line, without time and line end.
#ifndef VORNIK_LOG_LOG_LINE_H
#define VORNIK_LOG_LOG_LINE_H

#include <string>
#include <string_view>

#include "LogSettings.h"

namespace Vornik {

// "a\nb" (line feed)  => a\nb (backslash, n)
// "C:\x" (backslash)  => C:\\x
// tab, NUL, DEL       => \x09, \x00, \x7F
// bytes from 0x80     => unchanged
// What comes out is reversible and never ends a line or drives a terminal.
std::string EscapeControlBytes(std::string_view text);

// {1, "a.cpp", 7, "no folder"} => error a.cpp:7: no folder
std::string LogLine(const LogRecord& record);

}  // namespace Vornik

#endif  // VORNIK_LOG_LOG_LINE_H
