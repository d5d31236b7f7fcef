// What standard output is connected to.
#ifndef VORNIK_CLI_OUTPUT_TERMINAL_H
#define VORNIK_CLI_OUTPUT_TERMINAL_H

namespace Vornik::Cli {

// Whether standard output is a terminal that shows colours, and NO_COLOR is not set to a non-empty
// text. On Windows this also makes the console interpret the colour sequences.
bool WantsColour();

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_TERMINAL_H
