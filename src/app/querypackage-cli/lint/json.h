// What lint found, for programs.
#ifndef VORNIK_CLI_LINT_JSON_H
#define VORNIK_CLI_LINT_JSON_H

#include <string>

#include "lint/lint.h"

namespace Vornik::Cli {

// Lint's own document. Ends with a line feed, as the next one does.
std::string LintJson(const LintResult& result);

// A log in the Static Analysis Results Interchange Format, version 2.1.0.
std::string LintSarif(const LintResult& result);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_JSON_H
