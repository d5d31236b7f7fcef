// The machines that a package's ordered lists name.
#ifndef VORNIK_CLI_REMEDY_PLATFORM_CANDIDATES_H
#define VORNIK_CLI_REMEDY_PLATFORM_CANDIDATES_H

#include <cstddef>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/properties.h"
#include "model/query_model.h"
#include "model/query_settings.h"

namespace Vornik::Cli {

struct Machine {
  std::string machineType;
  OsValue osValue = OsValue::NotSet;
  ArcValue arcValue = ArcValue::NotSet;
};

// How many of the three settings differ: 0 to 3.
std::size_t Distance(const Machine& machine, const QuerySettings& settings);

// Every machine that a query may be about and that the platform filter matches, each once, the
// nearest to the settings first; among equals one with the same machine type, then one with the
// same operating system, comes first. Where a list allows any number, the numbers that other
// descriptors and packs name are tried.
std::vector<Machine> MatchingMachines(const SupXmlProperties& properties,
                                      const Repository& repository, const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_PLATFORM_CANDIDATES_H
