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
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "code_index.h"
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

// Which records deliver which driver files. Each driver file has a number.
struct RecordsByDriverFile {
  RecordsByDriverFile(const Records& all, const LocaleFold& fold);

  std::map<std::string, std::size_t> numbers;     // by folded name
  std::vector<std::vector<RecordIndex>> records;  // that deliver each, in order, each once
  std::vector<std::vector<std::size_t>> files;    // of each record
};

// Of step 4: codes, each as the first record with exactly that code. Of step 6: the records for
// them, by ascending version.
using RecordGroup = std::vector<RecordIndex>;
using RecordGroups = std::vector<RecordGroup>;

// What supersedes what. Verdicts and reasons are derived from it.
struct Supersedence {
  CodeIndex codes;
  RecordsByDriverFile byFile;
  IdSet excludedIds;
  ListsInOrder lists = {};
  RecordGroups rankings = {};
};

Supersedence ResolveSupersedence(const SupersedeInput& input);

// Step 4. Without the records that are refused. A code may be in a group more than once.
RecordGroups GroupByDriverFile(const Records& records, const CodeIndex& codes,
                               const RecordsByDriverFile& byFile);

// Step 5. Without excluded and repeated codes.
RecordGroups CleanGroups(const RecordGroups& groups, const Records& records,
                         const IdSet& excludedIds);

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
