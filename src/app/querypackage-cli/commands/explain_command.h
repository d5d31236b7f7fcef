// The subcommand "explain": says why a package is offered or not.
#ifndef VORNIK_CLI_COMMANDS_EXPLAIN_COMMAND_H
#define VORNIK_CLI_COMMANDS_EXPLAIN_COMMAND_H

#include <functional>
#include <optional>

namespace CLI {
class App;
}

namespace Vornik::Cli {

struct EvaluatedQuery;

// Adds the subcommand. When a command line that names it is parsed, chosen becomes what carries it
// out and returns the exit status.
void AddExplainCommand(CLI::App& app, std::function<int()>& chosen);

// The exit status where the query and its evaluation disagree, with the line printed; none: go on.
std::optional<int> FailOnDisagreement(const EvaluatedQuery& query);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_EXPLAIN_COMMAND_H
