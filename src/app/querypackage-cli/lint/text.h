// What lint found, for people.
#ifndef VORNIK_CLI_LINT_TEXT_H
#define VORNIK_CLI_LINT_TEXT_H

#include <string>

#include "lint/lint.h"

namespace Vornik::Cli {

// Two lines for each finding, a third one if it has more places; unless quiet the number of
// findings of each id, what the baseline has, and a closing line.
std::string LintText(const LintResult& result, bool quiet, bool colour);

// A rule, explained.
std::string RuleText(const LintRule& rule);

// 1 error, 2 warnings, 0 infos
std::string CountsText(const LintCounts& counts);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_TEXT_H
