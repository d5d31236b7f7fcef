// Finds everything in a folder that makes a package disappear, gives it a wrong verdict, or hangs
// or aborts a host.
#ifndef VORNIK_CLI_LINT_LINT_H
#define VORNIK_CLI_LINT_LINT_H

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "lint/baseline.h"
#include "lint/report.h"
#include "lint/target.h"
#include "model/reading_progress.h"

namespace Vornik::Cli {

struct LintSettings {
  std::string folder;
  LintTarget target = LintTarget::Windows;
  std::set<LintId> ignored = {};
  std::set<LintId> only = {};                 // empty: all
  std::set<std::string> files = {};           // relative to the folder; empty: all
  std::optional<LintBaseline> baseline = {};  // what is known already
};

struct LintResult {
  LintSettings settings;
  std::vector<LintFinding> findings;       // in order; without the known ones
  std::size_t files = 0;                   // that end in ".xml"
  std::optional<std::string> walkFailure;  // why the listing ended early
  std::vector<LintFinding> known = {};     // from the baseline, in order
  LintBaseline fixed = {};                 // of the baseline, what the folder no longer has
};

// Nothing in the folder hangs or aborts it. Throws std::bad_alloc, and what progress throws, which
// may be null.
LintResult Lint(const LintSettings& settings, const ReadingProgress& progress = nullptr);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_LINT_H
