// The subcommand "check": the descriptors that a host's query must not meet, without a machine.
#ifndef VORNIK_CLI_COMMANDS_CHECK_COMMAND_H
#define VORNIK_CLI_COMMANDS_CHECK_COMMAND_H

#include <functional>

namespace CLI {
class App;
}

namespace Vornik::Cli {

// Adds the subcommand, as AddListCommand does.
void AddCheckCommand(CLI::App& app, std::function<int()>& chosen);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_CHECK_COMMAND_H
