// Escapes texts of descriptors and paths for a terminal: no byte of them can move the cursor,
// change a colour, break a line or reverse the writing direction.
#ifndef VORNIK_CLI_OUTPUT_CONSOLE_TEXT_H
#define VORNIK_CLI_OUTPUT_CONSOLE_TEXT_H

#include <string>
#include <string_view>

namespace Vornik::Cli {

// UTF-8 stays as it is. Control characters, characters that reverse the writing direction and bytes
// that are not UTF-8 become \xNN, byte by byte.
//
//   "a\nb"         =>  "a\\x0Ab"
//   "\xC3\xA9"     =>  "\xC3\xA9"
//   "\xE9"         =>  "\\xE9"
//   "\xC2\x9B"     =>  "\\xC2\\x9B"
std::string Printable(std::string_view text);

// Whether the whole text is valid UTF-8.
bool IsUtf8(std::string_view text);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_CONSOLE_TEXT_H
