// What edits of a repository change besides the package for which they are made.
#ifndef VORNIK_CLI_REMEDY_EDIT_EFFECTS_H
#define VORNIK_CLI_REMEDY_EDIT_EFFECTS_H

#include <string>
#include <vector>

#include "model/machines.h"
#include "model/query_settings.h"
#include "remedy/edit.h"
#include "remedy/edited_folder.h"

namespace Vornik::Cli {

// Codes, in byte order.
struct OfferChanges {
  std::vector<std::string> withdrawn;  // offered only before the edits
  std::vector<std::string> offered;    // offered only after them

  bool IsEmpty() const { return withdrawn.empty() && offered.empty(); }
};

struct MachineChanges {
  Machine machine;
  OfferChanges changes;  // the package itself included
};

struct EditEffects {
  OfferChanges changes;                  // of the query, but for the package itself
  std::vector<MachineChanges> machines;  // others that the folder names and that change
  bool isComplete = true;                // false: some machines were not evaluated

  bool Withdraws() const;
};

// folder: a part on which all that the edits can change depends. machines: those to evaluate. code:
// of the package.
EditEffects EffectsOf(const Edits& edits, const FolderCopy& folder,
                      const std::vector<Machine>& machines, const QuerySettings& settings,
                      const std::string& code, FileStates& files);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_EDIT_EFFECTS_H
