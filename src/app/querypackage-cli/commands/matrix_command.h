// "matrix": which packages of a folder each of many machines gets.
#ifndef VORNIK_CLI_COMMANDS_MATRIX_COMMAND_H
#define VORNIK_CLI_COMMANDS_MATRIX_COMMAND_H

#include <functional>

namespace CLI {
class App;
}

namespace Vornik::Cli {

// Adds the subcommand, as AddListCommand does.
void AddMatrixCommand(CLI::App& app, std::function<int()>& chosen);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_MATRIX_COMMAND_H
