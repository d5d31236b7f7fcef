// Finding a package's properties by its identification code.
#ifndef VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H
#define VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H

#include <array>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "properties.h"

namespace Vornik {

// The first package of exactly that code: the members of all packs in order, the packs' own
// instances included, then the individual descriptors. Null if there is none. It points into the
// lists.
const SupXmlProperties* FindByIdentificationCode(const std::string& code,
                                                 const std::vector<KovuPackEntry>& packs,
                                                 const std::vector<PackageXmlEntry>& individuals);

// The same answers for many questions, without a walk for each. The lists are borrowed; they may
// grow at their ends, and the C library's locale may change, between two questions.
class PackageIndex {
 public:
  PackageIndex(const std::vector<KovuPackEntry>& packs,
               const std::vector<PackageXmlEntry>& individuals)
      : packs_(packs), individuals_(individuals) {}

  // Points into the lists, until they grow.
  const SupXmlProperties* Find(const std::string& code);

 private:
  struct MemberPlace {
    std::size_t pack;
    std::size_t member;
  };
  // How the C library folds each byte; codes are found by property names that are folded so.
  using FoldTable = std::array<unsigned char, 256>;

  static FoldTable CurrentFolds();
  void Update();

  const std::vector<KovuPackEntry>& packs_;
  const std::vector<PackageXmlEntry>& individuals_;
  FoldTable folds_{};
  std::size_t knownPacks_ = 0;
  std::size_t knownIndividuals_ = 0;
  std::unordered_map<std::string, MemberPlace> memberByCode_;
  std::unordered_map<std::string, std::size_t> individualByCode_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H
