// How many packages a query of each machine of a folder finds for it.
#ifndef VORNIK_CLI_LIST_PACKAGE_COUNTS_H
#define VORNIK_CLI_LIST_PACKAGE_COUNTS_H

#include <vector>

#include "list/folder_list.h"
#include "model/repository.h"

namespace Vornik::Cli {

// Writes the pack in use and the number of packages of each machine. A query returns the members of
// that pack and the individual descriptors.
void CountPackages(const Repository& repository, std::vector<ListedMachine>& machines);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LIST_PACKAGE_COUNTS_H
