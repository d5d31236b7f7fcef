// Finds everything in a folder that makes a package disappear, gives it a wrong verdict, or hangs
// or aborts a host.
#ifndef VORNIK_CLI_LINT_LINT_H
#define VORNIK_CLI_LINT_LINT_H

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "lint/report.h"
#include "lint/target.h"

namespace Vornik::Cli {

struct LintSettings {
  std::string folder;
  LintTarget target = LintTarget::Windows;
  std::set<LintId> ignored;
};

struct LintResult {
  LintSettings settings;
  std::vector<LintFinding> findings;       // in order
  std::size_t files = 0;                   // that end in ".xml"
  std::optional<std::string> walkFailure;  // why the listing ended early
};

// Nothing in the folder hangs or aborts it. Throws std::bad_alloc only.
LintResult Lint(const LintSettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_LINT_H
