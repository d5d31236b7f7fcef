// The verdicts of a query as a table: one line per package, in the order of the records.
#ifndef VORNIK_CLI_OUTPUT_VERDICT_TABLE_H
#define VORNIK_CLI_OUTPUT_VERDICT_TABLE_H

#include <string>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Cli {

// Heading, lines and a closing line with the counts. Texts of descriptors go through Printable.
std::string VerdictTable(const std::vector<QueryPackageResult>& records, bool colour);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_VERDICT_TABLE_H
