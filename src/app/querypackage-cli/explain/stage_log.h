// The library's own lines about one descriptor or one package, found in the log of a query that
// ran to its end.
#ifndef VORNIK_CLI_EXPLAIN_STAGE_LOG_H
#define VORNIK_CLI_EXPLAIN_STAGE_LOG_H

#include <cstddef>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/captured_log.h"
#include "model/filter_table.h"

namespace Vornik::Cli {

// The lines of one filter about the record at an index of records, in which they stand after the
// duplicate filter. The supersede filter has lines for a package without a code alone.
std::vector<std::string> LinesOfRecord(const LogLines& log, FilterId filter,
                                       const std::vector<QueryPackageResult>& records,
                                       std::size_t index);

// The error lines that loading one file caused. path: as a query names the file; name: its last
// component.
std::vector<std::string> LinesOfFile(const LogLines& log, const std::string& path,
                                     const std::string& name);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_STAGE_LOG_H
