#include "id_rules.h"

#include <numeric>

namespace Vornik {

IdSet::IdSet(const std::vector<std::string>& ids) : ids_(ids) { Fold(); }

bool IdSet::Contains(const std::string& code) {
  if (std::locale() != locale_) {
    locale_ = std::locale();
    Fold();
  }
  foldedCode_.clear();
  fold_.Append(code, foldedCode_);
  return folded_.count(foldedCode_) != 0;
}

void IdSet::Fold() {
  fold_ = LocaleFold(locale_);
  folded_.clear();
  foldedIds_.clear();
  // Its characters must not move while views of them are made.
  foldedIds_.reserve(
      std::accumulate(ids_.begin(), ids_.end(), std::size_t{0},
                      [](std::size_t size, const std::string& id) { return size + id.size(); }));
  folded_.reserve(ids_.size());
  for (const std::string& id : ids_) {
    const std::size_t begin = foldedIds_.size();
    fold_.Append(id, foldedIds_);
    folded_.insert(std::string_view(foldedIds_).substr(begin));
  }
}

}  // namespace Vornik
