// Everything about a folder that would make a package disappear, be judged wrongly or hurt a host,
// found before a host meets it.
#ifndef VORNIK_CLI_LINT_H
#define VORNIK_CLI_LINT_H

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "lint_report.h"
#include "lint_target.h"

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

// Neither held nor ended by anything in the folder. Throws std::bad_alloc only.
LintResult Lint(const LintSettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_H
