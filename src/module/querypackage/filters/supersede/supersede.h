// Which packages of a query replace which: by the "supersede" lists of their descriptors, and by
// the versions of packages that deliver a driver file with the same name.
//
//   a: list {"B"}, b                          =>  b is superseded by a; a supersedes "B"
//   a: version "10", file "x"; b: "9", "X"    =>  a is superseded by b: 9 is the greater text
//
// The record for a code is the first one whose code is equal without regard to case, also where a
// later one is exactly equal. The steps of the rule:
//
//   1. Each package is kept.
//   2. Of each list the codes for which there is a record count.
//   3. The lists are applied in byte order of their owners' codes: what a list names is superseded,
//      then its owner is kept.
//   4. Packages that deliver driver files with the same name form groups.
//   5. Excluded codes leave their groups; groups of fewer than two are dropped.
//   6. The groups are applied in their order: the greatest version is kept, and each other package
//      is superseded by the next one.
#ifndef VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_H
#define VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_H

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "code_index.h"
#include "driver_groups.h"
#include "filters/package_ids.h"

namespace Vornik {

using Records = std::vector<QueryPackageResult>;
using CodeList = std::vector<std::string>;

// What the rule reads, borrowed.
struct SupersedeInput {
  const Records& records;
  // Of each record; none where it is not read, because the platform filter refused the record or
  // its properties were not found.
  const std::vector<std::optional<CodeList>>& lists;
  const std::vector<std::string>& excludedIds;
  const LocaleFold& fold;  // of the locale at the start of the stage
};

// By the platform filter.
inline bool IsNotRefused(const QueryPackageResult& record) {
  return record.platformFilterStatus != FilterStatus::NotMatched;
}

struct ListedCode {
  std::size_t position;  // in its list
  RecordIndex record;    // for the code
};

struct AppliedList {
  RecordIndex owner = noRecord;
  RecordIndex kept = noRecord;    // the record for the owner's code
  std::vector<ListedCode> codes;  // for which there is a record; at least one
};

// By the owner's code, in byte order.
using ListsInOrder = std::map<std::string, AppliedList>;

// What supersedes what. Verdicts and reasons are derived from it.
struct Supersedence {
  CodeIndex codes;
  RecordsByDriverFile byFile;
  IdSet excludedIds;
  ListsInOrder lists = {};

  // Of each record.
  std::vector<bool> takesPart = {};        // in groups: it is not refused
  std::vector<bool> isExcluded = {};       // by its code
  std::vector<std::size_t> versions = {};  // as numbers in their order; equal ones are equal
  std::vector<RecordGroup> groups = {};    // as anchors: see driver_groups.h
};

Supersedence ResolveSupersedence(const SupersedeInput& input);

// Step 5 for one group. Fewer than two codes: it is dropped.
RecordGroup CleanGroup(RecordGroup codes, const std::vector<bool>& isExcluded);

// Step 6: visits the rankings in their order, each as the records for the codes of a group, by
// ascending version.
using VisitRanking = std::function<void(const RecordGroup& ranking)>;
void ForEachRanking(const Supersedence& supersedence, const VisitRanking& visit);

// What is written into one record. The texts are borrowed from the input; null: the slot keeps what
// it has.
struct SupersedeVerdict {
  bool isSuperseded = false;
  const std::string* supersedesId = nullptr;
  const std::string* supersededById = nullptr;
};

// Steps 3 and 6.
std::vector<SupersedeVerdict> ApplySupersedence(const Supersedence& supersedence,
                                                const SupersedeInput& input);

void WriteVerdict(const SupersedeVerdict& verdict, QueryPackageResult& record);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_H
