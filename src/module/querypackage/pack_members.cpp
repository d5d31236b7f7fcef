#include "pack_members.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "literals.h"
#include "package_paths.h"

namespace Vornik {

void PackMembers::Add(SupXmlProperties properties) {
  const std::string xmlFilename = GetPropertyValue(PropertyName::xmlFilename, properties);
  std::string xmlFile = MemberPath(packPath_, xmlFilename);
  auto& list = IsPacksOwnInstance(packPath_, xmlFilename) ? own_ : others_;
  list.push_back({std::move(xmlFile), std::move(properties)});
}

std::vector<PackageXmlEntry> PackMembers::Take() {
  std::vector<PackageXmlEntry> members = std::move(own_);
  std::reverse(members.begin(), members.end());
  members.insert(members.end(), std::make_move_iterator(others_.begin()),
                 std::make_move_iterator(others_.end()));
  own_.clear();
  others_.clear();
  return members;
}

}  // namespace Vornik
