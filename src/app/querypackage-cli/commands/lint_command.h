// The subcommand "lint": says what is wrong with a folder before a host meets it.
#ifndef VORNIK_CLI_COMMANDS_LINT_COMMAND_H
#define VORNIK_CLI_COMMANDS_LINT_COMMAND_H

#include <functional>

namespace CLI {
class App;
}

namespace Vornik::Cli {

// Adds the subcommand. When a command line that names it is parsed, chosen becomes what carries it
// out and returns the exit status.
void AddLintCommand(CLI::App& app, std::function<int()>& chosen);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_LINT_COMMAND_H
