// One query, as the subcommands run it: the library's own, which is part of the program.
#ifndef VORNIK_CLI_MODEL_LIBRARY_RUN_H
#define VORNIK_CLI_MODEL_LIBRARY_RUN_H

#include <optional>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/query_settings.h"
#include "reading/folder_contents.h"

namespace Vornik::Cli {

struct LibraryRun {
  int code = QueryCode::Completed;  // what RunQuery returned
  std::vector<QueryPackageResult> records;
};

// Runs the query on an object of its own. contents: what was read of the folder; none: the query
// reads it. What the library says on standard output about a wrong parameter is dropped, since
// Advice says it. Throws what RunQuery throws.
LibraryRun RunLibrary(const QuerySettings& settings,
                      std::optional<FolderContents> contents = std::nullopt);

// What to do about a code other than QueryCode::Completed: one line.
std::string Advice(int code, const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_LIBRARY_RUN_H
