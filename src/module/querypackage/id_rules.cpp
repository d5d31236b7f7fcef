#include "id_rules.h"

#include "letter_case.h"

namespace Vornik {

IdSet::IdSet(const std::vector<std::string>& ids) : ids_(ids) { Fold(); }

bool IdSet::Contains(const std::string& code) {
  if (std::locale() != locale_) {
    locale_ = std::locale();
    Fold();
  }
  return folded_.count(FoldByGlobalLocale(code)) != 0;
}

void IdSet::Fold() {
  folded_.clear();
  folded_.reserve(ids_.size());
  for (const std::string& id : ids_) folded_.insert(FoldByGlobalLocale(id));
}

}  // namespace Vornik
