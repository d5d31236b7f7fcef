// The ways in which edits make one filter match a package, each from what its rule reports.
#ifndef VORNIK_CLI_REMEDY_WAYS_WAYS_H
#define VORNIK_CLI_REMEDY_WAYS_WAYS_H

#include <string>
#include <vector>

#include "model/query_settings.h"
#include "remedy/edit.h"
#include "remedy/edited_folder.h"

namespace Vornik::Cli {

// One package of a folder that is evaluated for a query.
struct EditTarget {
  EditedFolder& folder;
  const QuerySettings& settings;
  const std::string& code;
  PropertySource source;  // where the filters find its properties; not null

  CopiedInstance& Instance() const { return folder.InstanceOf(source); }
  Edit Set(const char* property, std::vector<std::string> after) const {
    return EditOf(Instance(), source.File(), property, std::move(after));
  }
};

// Puts the machine at one position of the ordered lists. spare: only where it takes no other
// machine's place.
std::vector<Edits> PlatformWays(const EditTarget& target, bool spare);

std::vector<Edits> PayloadWays(const EditTarget& target);

std::vector<Edits> UpdateTypeWays(const EditTarget& target);

// Makes a pack that lists the package the one in use.
std::vector<Edits> PackWays(const EditTarget& target);

// query: evaluated, with a record of the code that is superseded.
std::vector<Edits> SupersedeWays(const EditTarget& target, const Evaluation& query);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_WAYS_WAYS_H
