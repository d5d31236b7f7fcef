// Findings about a document as a whole: whether it loads, its instances, its text.
#ifndef VORNIK_CLI_LINT_DOCUMENTS_H
#define VORNIK_CLI_LINT_DOCUMENTS_H

#include "cimxml.h"
#include "lint_markers.h"
#include "lint_report.h"

namespace Vornik::Cli {

// A file of either kind, loaded with positions; outcome is what loading it gave.
void CheckDocument(const SearchedFile& file, const CimXmlDocument& document,
                   const LoadOutcome& outcome, LintReport& report);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_DOCUMENTS_H
