// The next step of a search for edits: the first filter that does not match a package, and the ways
// to make it match.
#ifndef VORNIK_CLI_REMEDY_EDIT_STEPS_H
#define VORNIK_CLI_REMEDY_EDIT_STEPS_H

#include <optional>
#include <string>
#include <vector>

#include "model/query_settings.h"
#include "remedy/edit.h"
#include "remedy/edited_folder.h"

namespace Vornik::Cli {

struct EditStep {
  // None: every filter that runs matches the package. Kovu: or there is no package.
  std::optional<FilterId> obstacle;

  // No edit that leaves the code as it is lets the obstacle match.
  bool isFixed = false;

  std::vector<Edits> ways;  // with the fewest edits first; empty: none is known
};

// Whether an edit may replace what other machines get.
enum class Sparing { No, Yes };

// The package of a code. The obstacles that depend on its own properties come first.
EditStep NextStep(EditedFolder& folder, const QuerySettings& settings, const std::string& code,
                  Sparing sparing);

// The ways to have a package of the code from the pack in use, whatever other filters say: a copy
// of another instance may match them, too. Empty where there is one.
std::vector<Edits> ListingWays(EditedFolder& folder, const QuerySettings& settings,
                               const std::string& code);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_EDIT_STEPS_H
