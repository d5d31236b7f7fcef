// What every subcommand that runs a query does around it.
#ifndef VORNIK_CLI_COMMANDS_COMMAND_FRAME_H
#define VORNIK_CLI_COMMANDS_COMMAND_FRAME_H

#include <functional>
#include <optional>
#include <string>

#include "commands/options.h"

namespace Vornik::Cli {

// Directs the log records and, unless trusted, looks for contents that would hang the query or end
// the process. The exit status with which the program has to end before it queries; none: go on.
// Its line is printed already.
std::optional<int> RefuseBefore(const QuerySettings& settings, const LogOptions& log, bool trust);

// The exit status of run, or that of the exception which leaves it.
int StatusOfRun(const std::function<int()>& run);

// Writes to standard output, and says whether that went well.
bool Print(const std::string& text);

// Says that standard output could not be written.
int FailToPrint();

// One line about log records that could not be written, if there are any.
void ReportLostLogRecords();

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_COMMAND_FRAME_H
