// Packages that deliver driver files with the same name, in any case.
//
//   a: {"x"}, b: {"y"}, c: {"X", "y"}   =>  {a, c}, {b, c}: groups that share a package stay two
//   a: {"x"}, b: {"x", "y"}, c: {"y"}   =>  {a, b, c}: b, in a group already, brings c into it
#ifndef VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_DRIVER_GROUPS_H
#define VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_DRIVER_GROUPS_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "code_index.h"

namespace Vornik {

// The driver files of a query's records as numbers: one for each folded name.
struct RecordsByDriverFile {
  RecordsByDriverFile(const std::vector<QueryPackageResult>& records, const LocaleFold& fold);
  void Add(const std::string& foldedName, RecordIndex record);

  std::map<std::string, std::size_t> numbers;     // by folded name
  std::vector<std::vector<RecordIndex>> records;  // that deliver each, in order, each once
  std::vector<std::vector<std::size_t>> files;    // of each record
};

bool IsNotRefused(const QueryPackageResult& record);  // by the platform filter

// Codes in the order in which they were added, each as the first record with exactly that code.
using RecordGroup = std::vector<RecordIndex>;

// Without the records that are refused. A code may be in a group more than once.
std::vector<RecordGroup> GroupByDriverFile(const std::vector<QueryPackageResult>& records,
                                           const CodeIndex& codes,
                                           const RecordsByDriverFile& byFile);

// The groups that are ranked: without excluded and repeated codes, and with at least two members.
std::vector<RecordGroup> CleanGroups(const std::vector<RecordGroup>& groups,
                                     const std::vector<bool>& isExcluded);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_DRIVER_GROUPS_H
