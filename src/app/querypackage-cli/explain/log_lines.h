// The library's log lines about one package or one file, composed from what its rules say of it.
#ifndef VORNIK_CLI_EXPLAIN_LOG_LINES_H
#define VORNIK_CLI_EXPLAIN_LOG_LINES_H

#include <cstddef>
#include <string>
#include <vector>

#include "explain/explanation.h"
#include "model/folder_reading.h"

namespace Vornik::Cli {

// What a filter logs about the package of a code. repeats: how many descriptors were dropped as
// duplicates of it.
std::vector<std::string> LogLinesOf(const FilterExplanation& explanation, const std::string& code,
                                    std::size_t repeats);

// The error lines that loading a file with a fault causes.
std::vector<std::string> LogLinesOf(const RepositoryFile& file);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_LOG_LINES_H
