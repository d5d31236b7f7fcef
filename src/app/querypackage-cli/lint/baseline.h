// Findings that are known and not to be failed on, as a file keeps them.
//
// A finding is known by its id, its file and the code of its package, not by its line: the file may
// change around it. Of several that are alike in this, the file has the number.
#ifndef VORNIK_CLI_LINT_BASELINE_H
#define VORNIK_CLI_LINT_BASELINE_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "lint/report.h"

namespace Vornik::Cli {

// Id, file and code.
using FindingKey = std::tuple<std::string, std::string, std::string>;

FindingKey KeyOf(const LintFinding& finding);

using LintBaseline = std::map<FindingKey, std::size_t>;

LintBaseline BaselineOf(const std::vector<LintFinding>& findings);

// The JSON document of a baseline, with a line feed at its end, and what it contains. A text that
// is no such document gives nothing, and reason says why. Ids that lint does not know are kept.
std::string BaselineText(const LintBaseline& baseline);
std::optional<LintBaseline> ParseBaseline(const std::string& text, std::string& reason);

// Takes the known findings out of the others, and out of the baseline: what is left there has been
// fixed. Of more findings with one key than the baseline has, the first ones are known.
std::vector<LintFinding> TakeKnown(std::vector<LintFinding>& findings, LintBaseline& left);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_BASELINE_H
