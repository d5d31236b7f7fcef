// The members of a pack, in the order in which results are built from them: the pack's own instance
// first, because the first member never becomes a result.
//
//   pack P.xml, instances naming m1.xml, P.xml, m2.xml  =>  P.xml, m1.xml, m2.xml
//   several own instances                               =>  the last of them first
#ifndef VORNIK_QUERYPACKAGE_RECORDS_PACK_MEMBERS_H
#define VORNIK_QUERYPACKAGE_RECORDS_PACK_MEMBERS_H

#include <cstddef>
#include <string>
#include <vector>

#include "model/repository.h"

namespace Vornik {

struct MemberOrder {
  std::vector<std::size_t> instances;  // indices
  std::size_t ownInstances = 0;        // how many of the first ones are the pack's own
};

// xmlFilenames: of each instance, in document order.
MemberOrder OrderMembers(const std::string& packPath, const std::vector<std::string>& xmlFilenames);

// instances: the properties of each instance, in document order. "xmlFilename" decides the path,
// too.
std::vector<PackageXmlEntry> MembersOfPack(const std::string& packPath,
                                           std::vector<SupXmlProperties> instances);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_RECORDS_PACK_MEMBERS_H
