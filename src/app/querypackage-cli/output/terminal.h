// What standard output and standard error are connected to.
#ifndef VORNIK_CLI_OUTPUT_TERMINAL_H
#define VORNIK_CLI_OUTPUT_TERMINAL_H

#include <cstddef>
#include <optional>

namespace Vornik::Cli {

enum class ColourChoice { Auto, Always, Never };

// Auto: whether standard output is a terminal that shows colours, TERM is not "dumb", and NO_COLOR
// is not set to a non-empty text. On Windows this also makes a console interpret the colour
// sequences.
bool WantsColour(ColourChoice choice = ColourChoice::Auto);

// Characters in a line of the terminal that standard output is; none: it is no terminal. One that
// does not say has 80.
std::optional<std::size_t> OutputWidth();

// Whether standard error is a terminal that redraws a line: TERM is not "dumb".
bool ErrorsAreOnTerminal();

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_TERMINAL_H
