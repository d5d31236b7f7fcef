// The subcommand "list": says what is in a folder, without a machine.
#ifndef VORNIK_CLI_COMMANDS_LIST_COMMAND_H
#define VORNIK_CLI_COMMANDS_LIST_COMMAND_H

#include <functional>

namespace CLI {
class App;
}

namespace Vornik::Cli {

// Adds the subcommand. When a command line that names it is parsed, chosen becomes what carries it
// out and returns the exit status.
void AddListCommand(CLI::App& app, std::function<int()>& chosen);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_LIST_COMMAND_H
