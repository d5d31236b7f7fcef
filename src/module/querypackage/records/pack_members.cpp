#include "pack_members.h"

#include <utility>

#include "model/literals.h"
#include "text/paths.h"

namespace Vornik {

MemberOrder OrderMembers(const std::string& packPath,
                         const std::vector<std::string>& xmlFilenames) {
  std::vector<std::size_t> own;
  std::vector<std::size_t> others;
  for (std::size_t i = 0; i < xmlFilenames.size(); ++i) {
    (IsSelfInstance(packPath, xmlFilenames[i]) ? own : others).push_back(i);
  }
  MemberOrder order{{own.rbegin(), own.rend()}, own.size()};
  order.instances.insert(order.instances.end(), others.begin(), others.end());
  return order;
}

std::vector<PackageXmlEntry> MembersOfPack(const std::string& packPath,
                                           std::vector<SupXmlProperties> instances) {
  std::vector<std::string> xmlFilenames;
  xmlFilenames.reserve(instances.size());
  for (const SupXmlProperties& properties : instances) {
    xmlFilenames.push_back(GetPropertyValue(PropertyName::xmlFilename, properties));
  }
  std::vector<PackageXmlEntry> members;
  members.reserve(instances.size());
  for (const std::size_t i : OrderMembers(packPath, xmlFilenames).instances) {
    members.push_back({MemberPath(packPath, xmlFilenames[i]), std::move(instances[i])});
  }
  return members;
}

}  // namespace Vornik
