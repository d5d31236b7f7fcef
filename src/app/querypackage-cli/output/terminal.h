// What standard output is connected to.
#ifndef VORNIK_CLI_OUTPUT_TERMINAL_H
#define VORNIK_CLI_OUTPUT_TERMINAL_H

namespace Vornik::Cli {

// Whether standard output is a terminal that shows colours, and the user has not declined them with
// a NO_COLOR variable of any value but the empty one. On Windows this also makes the console read
// the colour sequences.
bool WantsColour();

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_TERMINAL_H
