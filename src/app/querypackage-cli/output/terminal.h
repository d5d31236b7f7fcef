// What standard output is connected to.
#ifndef VORNIK_CLI_OUTPUT_TERMINAL_H
#define VORNIK_CLI_OUTPUT_TERMINAL_H

namespace Vornik::Cli {

enum class ColourChoice { Auto, Always, Never };

// Auto: whether standard output is a terminal that shows colours, TERM is not "dumb", and NO_COLOR
// is not set to a non-empty text. On Windows this also makes a console interpret the colour
// sequences.
bool WantsColour(ColourChoice choice = ColourChoice::Auto);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_TERMINAL_H
