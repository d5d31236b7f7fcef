// Findings about a document as a whole: whether it loads, its instances, its text.
#ifndef VORNIK_CLI_LINT_DOCUMENTS_H
#define VORNIK_CLI_LINT_DOCUMENTS_H

#include "lint/markers.h"
#include "lint/report.h"

namespace Vornik::Cli {

// A file of either kind.
void CheckDocument(const SearchedFile& file, LintReport& report);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_DOCUMENTS_H
