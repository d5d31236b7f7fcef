// CLI11's parser. App.hpp alone declares functions that the other two headers define inline; a
// source without them refers to tables of functions that nothing defines.
#ifndef VORNIK_CLI_COMMANDS_PARSER_H
#define VORNIK_CLI_COMMANDS_PARSER_H

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#endif  // VORNIK_CLI_COMMANDS_PARSER_H
