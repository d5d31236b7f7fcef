// What every subcommand that runs a query does around it.
#ifndef VORNIK_CLI_COMMANDS_COMMAND_FRAME_H
#define VORNIK_CLI_COMMANDS_COMMAND_FRAME_H

#include <functional>
#include <optional>
#include <string>

#include "commands/options.h"
#include "model/hazard_check.h"
#include "reading/folder_contents.h"

namespace Vornik::Cli {

// Each returns the exit status with which the program has to end before it queries, with its line
// printed; none: go on.

// Directs the log records of a query. A query that will be refused logs nothing to standard error
// unless a level is given, since the line about the refusal says the same.
std::optional<int> DirectLog(const LogOptions& log, const QuerySettings& query);

// Looks for contents of the query's folder that would hang the query or abort the process.
std::optional<int> RefuseHazard(const QuerySettings& settings, const FolderContents& contents);

int FailOnHazard(const Hazard& hazard);

// The exit status of run, or that of the exception which leaves it.
int StatusOfRun(const std::function<int()>& run);

// Writes to standard output, and says whether that went well.
bool Print(const std::string& text);

// Says that standard output could not be written.
int FailToPrint();

bool IsFolder(const std::string& path);

// The exit status of a subcommand whose FOLDER is not a folder, or whose folder could not be listed
// to its end, with its line printed.
int FailOnFolder(const std::string& path);
int FailOnWalk(const std::string& reason);

// One line about log records that could not be written, if there are any.
void ReportLostLogRecords();

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_COMMAND_FRAME_H
