// Which machines of a folder get a package that the query's machine does not get.
#ifndef VORNIK_CLI_REMEDY_OFFERED_MACHINES_H
#define VORNIK_CLI_REMEDY_OFFERED_MACHINES_H

#include <string>

#include "explain/explanation.h"
#include "model/machines.h"
#include "model/query_model.h"
#include "model/query_settings.h"
#include "output/sentence.h"

namespace Vornik::Cli {

// named: of the whole folder. model: of the folder, or of a part that gives the package the same
// answers.
OfferedMachines FindOfferedMachines(QueryModel& model, const NamedMachines& named,
                                    const QuerySettings& settings, const std::string& code);

// One sentence.
std::string TextOf(const OfferedMachines& offered, ListLength length);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_OFFERED_MACHINES_H
