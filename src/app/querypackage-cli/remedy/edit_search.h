// The smallest edits of a repository that let a package pass a query.
#ifndef VORNIK_CLI_REMEDY_EDIT_SEARCH_H
#define VORNIK_CLI_REMEDY_EDIT_SEARCH_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/query_settings.h"
#include "remedy/edit_steps.h"

namespace Vornik::Cli {

struct EditSearch {
  std::vector<Edits> smallest;       // of one size; each was evaluated
  std::optional<FilterId> obstacle;  // none found: the first filter that no edit makes match
  bool isFixed = false;              // of the obstacle: see EditStep
  bool hasReachedLimit = false;      // others, as small or smaller, may have been missed
};

// folder: the package's neighbourhood. Size is the number of edits.
EditSearch FindEdits(const FolderCopy& folder, const QuerySettings& settings,
                     const std::string& code, FileStates& files, Sparing sparing);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_EDIT_SEARCH_H
