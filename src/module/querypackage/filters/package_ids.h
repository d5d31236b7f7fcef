// Whether an identification code is in a host's list of package ids: compared whole, without regard
// to case, nothing trimmed. Case is folded by the global locale.
//
//   {"abc"} contains "ABC"; it does not contain "abcd" or "abc "
#ifndef VORNIK_QUERYPACKAGE_FILTERS_PACKAGE_IDS_H
#define VORNIK_QUERYPACKAGE_FILTERS_PACKAGE_IDS_H

#include <set>
#include <string>
#include <vector>

#include "text/letter_case.h"

namespace Vornik {

// One list for many look-ups, with the global locale of the moment at which it is made.
class IdSet {
 public:
  explicit IdSet(const std::vector<std::string>& ids);

  bool Contains(const std::string& code) const;

 private:
  LocaleFold fold_;
  std::set<std::string> foldedIds_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_PACKAGE_IDS_H
