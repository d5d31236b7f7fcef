// Whether a code stands in a host's list of package ids: whole, without regard to case, nothing
// trimmed. Case is folded by the global locale.
//
//   {"abc"} holds "ABC"; it does not hold "abcd" or "abc "
#ifndef VORNIK_QUERYPACKAGE_ID_RULES_H
#define VORNIK_QUERYPACKAGE_ID_RULES_H

#include <cstddef>
#include <cstdint>
#include <locale>
#include <string>
#include <string_view>
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
  // An id of the list: bits of its hash that tell most others apart, and its number, counted from
  // 1; 0 in a free slot. Small, because what a question costs is the memory that it touches.
  struct Slot {
    std::uint32_t tag = 0;
    std::uint32_t number = 0;
  };

  void Fold();
  std::string_view TextOf(std::size_t number) const;
  // The slot of a folded id, or the free one where it would stand.
  Slot& SlotOf(std::string_view folded, std::size_t hash);

  const std::vector<std::string>& ids_;
  std::locale locale_;
  LocaleFold fold_;
  std::string foldedIds_;           // one behind the other
  std::vector<std::size_t> begin_;  // where each begins, and where the last one ends
  std::vector<Slot> slots_;         // a power of two, at least half of them free
  std::string foldedCode_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_ID_RULES_H
