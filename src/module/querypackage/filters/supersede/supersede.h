// Which packages of a query replace which: by the "supersede" lists of their descriptors, and by
// the versions of packages that deliver a driver file with the same name.
//
//   a: list {"B"}, b                          =>  b is superseded by a; a supersedes "B"
//   a: version "10", file "x"; b: "9", "X"    =>  a is superseded by b: 9 is the greater text
//
// The record for a code is the first one whose code is equal without regard to case, also where a
// later one is exactly equal.
#ifndef VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_H
#define VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "code_index.h"
#include "driver_groups.h"

namespace Vornik {

using CodeList = std::vector<std::string>;

// What the rule reads, borrowed.
struct SupersedeInput {
  const std::vector<QueryPackageResult>& records;
  // Of each record; none where it is not read, because the platform filter refused the record or
  // its properties were not found.
  const std::vector<std::optional<CodeList>>& lists;
  const std::vector<std::string>& excludedIds;
  const LocaleFold& fold;  // of the locale at the start of the stage
};

struct ListedCode {
  std::size_t position;  // in its list
  RecordIndex record;    // for the code
};

struct AppliedList {
  RecordIndex owner;
  RecordIndex kept;               // the record for the owner's code
  std::vector<ListedCode> codes;  // for which there is a record; at least one
};

// What supersedes what. Verdicts and reasons are derived from it.
struct Supersedence {
  CodeIndex codes;
  RecordsByDriverFile byFile;
  std::vector<bool> isExcluded;       // each record: by its id
  std::vector<AppliedList> lists;     // in byte order of the owners' codes, each code once
  std::vector<RecordGroup> rankings;  // the records for each group's codes, by ascending version
};

Supersedence ResolveSupersedence(const SupersedeInput& input);

// What is written into one record. The texts are borrowed from the input; null: the slot keeps what
// it has.
struct SupersedeVerdict {
  bool isSuperseded = false;
  const std::string* supersedesId = nullptr;
  const std::string* supersededById = nullptr;
};

// Applies the lists one after the other, then the rankings, which override them.
std::vector<SupersedeVerdict> ApplySupersedence(const Supersedence& supersedence,
                                                const SupersedeInput& input);

void WriteVerdict(const SupersedeVerdict& verdict, QueryPackageResult& record);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_H
