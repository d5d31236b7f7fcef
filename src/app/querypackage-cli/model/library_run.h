// One query through the library's public surface, as the subcommands run it.
#ifndef VORNIK_CLI_MODEL_LIBRARY_RUN_H
#define VORNIK_CLI_MODEL_LIBRARY_RUN_H

#include <string>
#include <vector>

#include "QueryPackage.h"
#include "commands/options.h"

namespace Vornik::Cli {

struct LibraryRun {
  int code = QueryCode::Completed;  // what RunQuery returned
  std::vector<QueryPackageResult> records;
};

// Runs the query on an object of its own. What the library says on standard output about a wrong
// parameter is ended by a line feed there, and goes to standard error under Format::Json. Throws
// what RunQuery throws.
LibraryRun RunLibrary(const QuerySettings& settings, Format format);

// What to do about a code other than QueryCode::Completed: one line.
std::string Advice(int code, const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_LIBRARY_RUN_H
