// Finding a package's properties by its identification code.
#ifndef VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H
#define VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H

#include <string>
#include <vector>

#include "properties.h"

namespace Vornik {

// The first package of exactly that code: the members of all packs in order, the packs' own
// instances included, then the individual descriptors. Null if there is none. It points into the
// lists.
const SupXmlProperties* FindByIdentificationCode(const std::string& code,
                                                 const std::vector<KovuPackEntry>& packs,
                                                 const std::vector<PackageXmlEntry>& individuals);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H
