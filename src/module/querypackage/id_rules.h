// Whether a code stands in a host's list of package ids: whole, without regard to case, nothing
// trimmed. Case is folded by the global locale.
//
//   {"abc"} holds "ABC"; it does not hold "abcd" or "abc "
#ifndef VORNIK_QUERYPACKAGE_ID_RULES_H
#define VORNIK_QUERYPACKAGE_ID_RULES_H

#include <locale>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "letter_case.h"

namespace Vornik {

// The list for many questions. ids is borrowed and must not change while this lives; the global
// locale may, and then the list is folded anew.
class IdSet {
 public:
  explicit IdSet(const std::vector<std::string>& ids);

  bool Contains(const std::string& code);

 private:
  void Fold();

  const std::vector<std::string>& ids_;
  std::locale locale_;
  LocaleFold fold_;
  std::string foldedIds_;  // one behind the other
  std::unordered_set<std::string_view> folded_;
  std::string foldedCode_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_ID_RULES_H
