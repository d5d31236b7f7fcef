// The queries that differ from a given one in the fewest settings and that a package passes.
//
// A setting is the machine type, the operating system, the architecture, one of the four switches
// or one of the three lists as a whole. New values are those of the repository: the machines of the
// folder, the package's own code and type, and the codes of the packages that it is ranked with.
#ifndef VORNIK_CLI_REMEDY_REMEDIES_H
#define VORNIK_CLI_REMEDY_REMEDIES_H

#include <string>

#include "explain/explanation.h"
#include "model/query_model.h"

namespace Vornik::Cli {

// Each of the queries has been evaluated; none would hang or abort the process.
// model: of a part of the folder on which the package depends. machines: of the whole folder.
Remedies FindRemedies(QueryModel& model, const NamedMachines& machines,
                      const QuerySettings& settings, const std::string& code);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_REMEDIES_H
