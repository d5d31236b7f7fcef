// Colours of a terminal.
#ifndef VORNIK_CLI_OUTPUT_PAINT_H
#define VORNIK_CLI_OUTPUT_PAINT_H

#include <string>

namespace Vornik::Cli {

enum class Paint { None, Good, Bad, Warning, Faint };

// The text between the sequences that switch a colour on and off; as it is without colour.
std::string Painted(const std::string& text, Paint paint, bool colour);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_PAINT_H
