#include "id_rules.h"

#include <functional>
#include <numeric>

namespace Vornik {

namespace {

std::size_t HashOf(std::string_view folded) { return std::hash<std::string_view>()(folded); }

// Not the bits that choose the slot.
std::uint32_t TagOf(std::size_t hash) { return static_cast<std::uint32_t>(hash >> 32U); }

}  // namespace

IdSet::IdSet(const std::vector<std::string>& ids) : ids_(ids) { Fold(); }

bool IdSet::Contains(const std::string& code) {
  if (std::locale() != locale_) {
    locale_ = std::locale();
    Fold();
  }
  foldedCode_.clear();
  fold_.Append(code, foldedCode_);
  return SlotOf(foldedCode_, HashOf(foldedCode_)).number != 0;
}

std::string_view IdSet::TextOf(std::size_t number) const {
  return std::string_view(foldedIds_)
      .substr(begin_[number - 1], begin_[number] - begin_[number - 1]);
}

IdSet::Slot& IdSet::SlotOf(std::string_view folded, std::size_t hash) {
  for (std::size_t place = hash;; ++place) {
    Slot& slot = slots_[place & (slots_.size() - 1)];
    if (slot.number == 0) return slot;
    if (slot.tag == TagOf(hash) && TextOf(slot.number) == folded) return slot;
  }
}

void IdSet::Fold() {
  fold_ = LocaleFold(locale_);
  std::size_t slots = 2;
  while (slots < ids_.size() * 2) slots *= 2;
  slots_.assign(slots, Slot());
  begin_.assign(1, 0);
  begin_.reserve(ids_.size() + 1);
  foldedIds_.clear();
  foldedIds_.reserve(
      std::accumulate(ids_.begin(), ids_.end(), std::size_t{0},
                      [](std::size_t size, const std::string& id) { return size + id.size(); }));
  for (const std::string& id : ids_) {
    fold_.Append(id, foldedIds_);
    begin_.push_back(foldedIds_.size());
    const std::string_view folded = TextOf(begin_.size() - 1);
    const std::size_t hash = HashOf(folded);
    SlotOf(folded, hash) = {TagOf(hash), static_cast<std::uint32_t>(begin_.size() - 1)};
  }
}

}  // namespace Vornik
