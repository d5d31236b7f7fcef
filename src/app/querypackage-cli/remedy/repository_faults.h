// What in a repository keeps a package from passing, whatever the settings of a query are.
#ifndef VORNIK_CLI_REMEDY_REPOSITORY_FAULTS_H
#define VORNIK_CLI_REMEDY_REPOSITORY_FAULTS_H

#include <string>
#include <vector>

#include "model/query_model.h"
#include "model/query_settings.h"

namespace Vornik::Cli {

// One sentence each; of the filters that run alone.
std::vector<std::string> FindRepositoryFaults(QueryModel& model, const QuerySettings& settings,
                                              const std::string& code);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_REPOSITORY_FAULTS_H
