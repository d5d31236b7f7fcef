// Which packages of a query replace which: by the lists in their descriptors, and by the versions
// of packages that deliver a driver file of the same name.
//
// Finding the record for a code means the first record, in order, whose code equals it without
// regard to case (folded by the global locale), also when a later one equals it exactly.
#ifndef VORNIK_QUERYPACKAGE_SUPERSEDE_RULES_H
#define VORNIK_QUERYPACKAGE_SUPERSEDE_RULES_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "QueryPackage.h"

namespace Vornik {

using SupersedeRecords = std::vector<QueryPackageResult>;
using CodeList = std::vector<std::string>;

// A superseding code and the codes that it supersedes, in byte order of the superseding ones.
using SupersedeMap = std::map<std::string, CodeList>;

// One element per record: the codes that its descriptor lists; empty or null where it lists none or
// does not take part. The lists are borrowed, and are not the records' own.
using ListPointers = std::vector<const CodeList*>;

// Codes that no record bears are left out; of two records of one code the later list counts.
SupersedeMap MapExplicitLists(const SupersedeRecords& records, const std::vector<CodeList>& lists);

// Codes that deliver driver files of one name, in the order in which they were met; each code once.
// A group is anchored on its earlier records: records that the platform filter refused take no
// part, and two groups are never merged.
std::vector<CodeList> GroupByDriverFile(const SupersedeRecords& records);

// The groups that are ranked: without the codes that the host excludes, and at least two strong.
std::vector<CodeList> RankedGroups(const SupersedeRecords& records,
                                   const std::vector<std::string>& excludedIds);

// A group's records, as indices, by ascending version: folded, then compared as C strings, so that
// 10 stands before 9. Equal versions come to stand where an exchange sort leaves them. Empty where
// fewer than two records bear a code of the group.
std::vector<std::size_t> RankByVersion(const SupersedeRecords& records, const CodeList& group);

// Writes supersedeFilterStatus, supersedesId and supersededById: first by the lists, in the order
// of the map, then by the groups, which override them.
void ResolveSupersedence(SupersedeRecords& records, const ListPointers& lists,
                         const std::vector<std::string>& excludedIds);
void ResolveSupersedence(SupersedeRecords& records, const std::vector<CodeList>& lists,
                         const std::vector<std::string>& excludedIds);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_SUPERSEDE_RULES_H
