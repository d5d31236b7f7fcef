// Puts the explanation of one package id together, from a query that has run and the descriptors
// as they are now.
#ifndef VORNIK_CLI_EXPLAIN_EXPLAIN_H
#define VORNIK_CLI_EXPLAIN_EXPLAIN_H

#include <string>

#include "commands/options.h"
#include "explain/explanation.h"
#include "model/captured_log.h"
#include "model/library_run.h"
#include "remedy/smallest_change.h"

namespace Vornik::Cli {

// run: what the query of these settings gave, and log what it logged. A query that was refused or
// that could not read the folder is not explained: the packages and the absence stay empty.
Explanation Explain(const QuerySettings& settings, const std::string& packageId,
                    const LibraryRun& run, const LogLines& log, const Verification& verify);

// Whether there is something to say about the id.
bool IsKnown(const Explanation& explanation);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_EXPLAIN_H
