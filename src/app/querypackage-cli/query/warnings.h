// What a query's answer depends on without its user knowing: ids that no package has, and the order
// in which the system lists the folder.
#ifndef VORNIK_CLI_QUERY_WARNINGS_H
#define VORNIK_CLI_QUERY_WARNINGS_H

#include <map>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/query_settings.h"
#include "query/pack_summary.h"
#include "reading/folder_contents.h"

namespace Vornik::Cli {

// Each of these returns sentences without a full stop. Few: the rest is counted in the last one.

// Include and exclude ids that no record has, with the nearest codes.
std::vector<std::string> WarnOfUnknownIds(const QuerySettings& settings,
                                          const std::vector<QueryPackageResult>& records);

// Packs of which another one may be used.
std::vector<std::string> WarnOfPacks(const PackSummary& summary);

// Files that contain one code with different properties, by code; by name.
using RepeatedCodes = std::map<std::string, std::vector<std::string>>;

// Codes of which the first descriptor in the listing counts: those of individual descriptors, if no
// pack has the code, and those of several packs.
RepeatedCodes FindRepeatedCodes(const FolderContents& contents);
std::vector<std::string> WarnOfRepeatedCodes(const RepeatedCodes& codes,
                                             const std::vector<QueryPackageResult>& records);

// Packages of which the one that is kept is not decided by their versions, since they are equal.
std::vector<std::string> WarnOfEqualVersions(const QuerySettings& settings,
                                             const std::vector<QueryPackageResult>& records);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_QUERY_WARNINGS_H
