// The subcommand "query": runs one query and prints what it found.
#ifndef VORNIK_CLI_COMMANDS_QUERY_COMMAND_H
#define VORNIK_CLI_COMMANDS_QUERY_COMMAND_H

#include <functional>

namespace CLI {
class App;
}

namespace Vornik::Cli {

// Adds the subcommand. When a command line that names it is parsed, chosen becomes what carries it
// out and returns the exit status.
void AddQueryCommand(CLI::App& app, std::function<int()>& chosen);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_QUERY_COMMAND_H
