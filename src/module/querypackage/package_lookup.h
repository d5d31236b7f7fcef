// Finding a package's properties by its identification code.
#ifndef VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H
#define VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string>
#include <string_view>
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
               const std::vector<PackageXmlEntry>& individuals);

  // Points into the lists, until they grow.
  const SupXmlProperties* Find(const std::string& code);

 private:
  struct MemberPlace {
    std::size_t pack;
    std::size_t member;
  };
  // How the C library folds a byte that codes are found by.
  struct Fold {
    unsigned char byte;
    int folded;
  };

  void Update();
  void Reserve();
  bool AreFoldsCurrent() const;
  void LearnFolds(std::string_view name);
  // The entry's code; "" if it has none.
  std::string_view Learn(const PackageXmlEntry& entry);

  const std::vector<KovuPackEntry>& packs_;
  const std::vector<PackageXmlEntry>& individuals_;
  std::vector<Fold> folds_;  // of every byte in a name that may be the code's
  std::array<bool, 256> isFoldKnown_{};
  std::size_t knownPacks_ = 0;
  std::size_t knownIndividuals_ = 0;
  // The codes stand in the entries' values, which do not move when the lists grow.
  std::pmr::monotonic_buffer_resource memory_;  // of the maps: their parts stand side by side
  std::pmr::unordered_map<std::string_view, MemberPlace> memberByCode_{&memory_};
  std::pmr::unordered_map<std::string_view, std::size_t> individualByCode_{&memory_};
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_PACKAGE_LOOKUP_H
