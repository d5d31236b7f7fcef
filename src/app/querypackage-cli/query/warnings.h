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

// Each of these texts is a sentence without a full stop.

// Include and exclude ids that no record has, with the nearest codes. Few: the rest is counted in
// the last one.
std::vector<std::string> WarnOfUnknownIds(const QuerySettings& settings,
                                          const std::vector<QueryPackageResult>& records);

// Why an answer depends on the order in which the system lists the folder.
struct OrderWarning {
  std::string text;
  std::vector<std::string> codes;  // of the packages whose answers depend on it; none: all

  bool Concerns(const std::string& code) const;
};

using OrderWarnings = std::vector<OrderWarning>;

// Packs of which another one may be used.
OrderWarnings WarnOfPacks(const PackSummary& summary);

// Files that contain one code with different properties, by code; by name.
using RepeatedCodes = std::map<std::string, std::vector<std::string>>;

// Codes of which the first descriptor in the listing counts: those of individual descriptors, if no
// pack has the code, and those of several packs.
RepeatedCodes FindRepeatedCodes(const FolderContents& contents);
OrderWarnings WarnOfRepeatedCodes(const RepeatedCodes& codes,
                                  const std::vector<QueryPackageResult>& records);

// Packages of which the one that is kept is not decided by their versions, since they are equal.
OrderWarnings WarnOfEqualVersions(const QuerySettings& settings,
                                  const std::vector<QueryPackageResult>& records);

// What of a folder its listing's order decides, taken before a query consumes what was read.
struct ListingFacts {
  PackSummary pack;
  RepeatedCodes repeatedCodes;
};

ListingFacts ListingFactsOf(const FolderContents& contents, const QuerySettings& settings);

// All warnings of the order, for the records of a query. Of one kind few, if they are for a list.
OrderWarnings WarnOfOrder(const QuerySettings& settings, const ListingFacts& facts,
                          const std::vector<QueryPackageResult>& records);
std::vector<std::string> OrderTexts(const QuerySettings& settings, const ListingFacts& facts,
                                    const std::vector<QueryPackageResult>& records);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_QUERY_WARNINGS_H
