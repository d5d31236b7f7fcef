// What is wrong with a command line, in one line.
#ifndef VORNIK_CLI_COMMANDS_USAGE_ERROR_H
#define VORNIK_CLI_COMMANDS_USAGE_ERROR_H

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace Vornik::Cli {

// A first argument that is neither a subcommand nor an option of the program, with the nearest
// subcommand.
std::optional<std::string> FindWrongSubcommand(const CLI::App& app,
                                               const std::vector<std::string>& arguments);

// Names an option that the subcommand does not have, with the nearest one, whatever else is missing
// for that reason; otherwise what the parser says.
std::string TextOf(const CLI::App& app, const CLI::ParseError& error);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_USAGE_ERROR_H
