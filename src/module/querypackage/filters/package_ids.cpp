#include "filters/package_ids.h"

namespace Vornik {

IdSet::IdSet(const std::vector<std::string>& ids) {
  for (const std::string& id : ids) foldedIds_.insert(fold_(id));
}

bool IdSet::Contains(const std::string& code) const { return foldedIds_.count(fold_(code)) != 0; }

}  // namespace Vornik
