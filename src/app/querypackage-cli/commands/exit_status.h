// How the program ends. Beside these, it ends with what RunQuery returned: see QueryCode.
#ifndef VORNIK_CLI_COMMANDS_EXIT_STATUS_H
#define VORNIK_CLI_COMMANDS_EXIT_STATUS_H

#include <exception>
#include <string>

namespace Vornik::Cli {

namespace ExitStatus {
inline constexpr int success = 0;
inline constexpr int negative =
    1;  // explain knows nothing by the id; lint or matrix fail on what they found
inline constexpr int refused = 10;  // explain --exit-code; of several packages the greatest
inline constexpr int undecided = 11;
inline constexpr int absent = 12;
inline constexpr int unknown = 13;
inline constexpr int usage = 64;      // the command line is wrong, or its log file cannot be opened
inline constexpr int hazard = 65;     // a descriptor would make the query hang or end the process
inline constexpr int exception = 70;  // an exception ended the query
inline constexpr int internalError = 71;  // the program contradicts itself
inline constexpr int outputLost = 74;     // standard output could not be written
inline constexpr int interrupted = 130;   // by the user
}  // namespace ExitStatus

// Writes one line to standard error, under the program's name.
void PrintNotice(const std::string& line);

// The same, and returns status.
int Fail(int status, const std::string& line);

// The exception's type and what it says.
std::string Describe(const std::exception& error);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_EXIT_STATUS_H
