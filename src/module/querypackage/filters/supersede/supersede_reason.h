// Why a package is kept or superseded, and what was left out on the way; derived on request.
//
//   a: list {"b", "none"}, version "1"; b: version "2"; both: driver file "x"
//   a  =>  its list keeps it; place 0 of {a, b}, "1" and "2", for "x"; unknown code at 1
//   b  =>  a's list names it at 0; place 1 of the same ranking, which decides
#ifndef VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_REASON_H
#define VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_REASON_H

#include <set>

#include "supersede.h"

namespace Vornik {

struct ListReason {
  RecordIndex owner = noRecord;
  std::optional<std::size_t> position;  // where the list names the package; none: the list keeps it
};

struct RankingReason {
  RecordGroup records;
  std::size_t place = 0;                 // of the package; the last one if it has two
  std::vector<std::string> versions;     // as compared
  std::vector<std::string> driverFiles;  // folded; each is of two or more of the records
};

// The last ranking decides; without rankings the last list; without either the package is kept.
struct SupersedeReason {
  std::vector<ListReason> lists;        // in the order in which they are applied
  std::vector<RankingReason> rankings;  // in the order in which they are applied

  // What was left out. A refused or excluded rival shares a driver file with the package.
  bool isRefused = false;                 // by the platform filter: it has no list and no rank
  bool isExcluded = false;                // by its id: it has no rank
  bool hasNoProperties = false;           // and so no list
  RecordIndex listCounted = noRecord;     // of the records with its code; noRecord: none
  RecordIndex marked = noRecord;          // the record for its code, whatever the package's own
  std::vector<std::size_t> unknownCodes;  // in its list; there is no record for them
  std::set<RecordIndex> refusedRivals;    // by the platform filter
  std::set<RecordIndex> excludedRivals;   // by their ids
};

SupersedeReason ReasonFor(RecordIndex record, const Supersedence& supersedence,
                          const SupersedeInput& input);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_SUPERSEDE_REASON_H
