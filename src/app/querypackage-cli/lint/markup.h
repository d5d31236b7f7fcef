// Findings about elements and attributes that are not read as their author meant them.
#ifndef VORNIK_CLI_LINT_MARKUP_H
#define VORNIK_CLI_LINT_MARKUP_H

#include "lint/markers.h"
#include "lint/report.h"

namespace Vornik::Cli {

// A file of either kind that has a root element.
void CheckMarkup(const SearchedFile& file, LintReport& report);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_MARKUP_H
