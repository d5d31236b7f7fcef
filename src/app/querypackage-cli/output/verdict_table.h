// The verdicts of a query as a table for a person: one line a package, in the order of the records.
#ifndef VORNIK_CLI_OUTPUT_VERDICT_TABLE_H
#define VORNIK_CLI_OUTPUT_VERDICT_TABLE_H

#include <string>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Cli {

// Heading, lines and a closing line with the counts. Texts of descriptors go through Printable; a
// very long one is printed whole and moves the columns of its own line only.
std::string VerdictTable(const std::vector<QueryPackageResult>& records, bool colour);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_VERDICT_TABLE_H
