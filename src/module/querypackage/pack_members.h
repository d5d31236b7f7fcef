// The members of a pack, in the order in which results are built from them: the pack's own instance
// first, because the first member never becomes a result.
//
//   pack P.xml, instances naming m1.xml, P.xml, m2.xml  =>  P.xml, m1.xml, m2.xml
//   several own instances                               =>  the last of them first
#ifndef VORNIK_QUERYPACKAGE_PACK_MEMBERS_H
#define VORNIK_QUERYPACKAGE_PACK_MEMBERS_H

#include <string>
#include <utility>
#include <vector>

#include "properties.h"

namespace Vornik {

class PackMembers {
 public:
  explicit PackMembers(std::string packPath) : packPath_(std::move(packPath)) {}

  // The properties of the next instance; its "xmlFilename" decides path and place.
  void Add(SupXmlProperties properties);

  // Hands the members out and starts again with none.
  std::vector<PackageXmlEntry> Take();

 private:
  std::string packPath_;
  std::vector<PackageXmlEntry> own_;  // in document order
  std::vector<PackageXmlEntry> others_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_PACK_MEMBERS_H
