// The machines of a folder that a package's ordered lists match.
#ifndef VORNIK_CLI_REMEDY_PLATFORM_CANDIDATES_H
#define VORNIK_CLI_REMEDY_PLATFORM_CANDIDATES_H

#include <cstddef>
#include <vector>

#include "model/machines.h"
#include "model/properties.h"
#include "model/query_settings.h"

namespace Vornik::Cli {

// How many of the three settings differ: 0 to 3.
std::size_t Distance(const Machine& machine, const QuerySettings& settings);

// Every machine of the folder that the platform filter matches, each once, the nearest to the
// settings first; among equals one with the same machine type, then one with the same operating
// system, comes first.
std::vector<Machine> MatchingMachines(const SupXmlProperties& properties,
                                      const NamedMachines& named, const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_PLATFORM_CANDIDATES_H
