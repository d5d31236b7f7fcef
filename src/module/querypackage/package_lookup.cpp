#include "package_lookup.h"

#include <algorithm>

#include "literals.h"

namespace Vornik {

namespace {

const SupXmlProperties* FindIn(const std::vector<PackageXmlEntry>& entries,
                               const std::string& code) {
  const auto entry =
      std::find_if(entries.begin(), entries.end(), [&code](const PackageXmlEntry& candidate) {
        const std::string* value =
            FindPropertyValue(PropertyName::identificationCode, candidate.properties);
        return value == nullptr ? code.empty() : *value == code;
      });
  return entry == entries.end() ? nullptr : &entry->properties;
}

}  // namespace

const SupXmlProperties* FindByIdentificationCode(const std::string& code,
                                                 const std::vector<KovuPackEntry>& packs,
                                                 const std::vector<PackageXmlEntry>& individuals) {
  for (const KovuPackEntry& pack : packs) {
    if (const SupXmlProperties* found = FindIn(pack.members, code)) return found;
  }
  return FindIn(individuals, code);
}

}  // namespace Vornik
