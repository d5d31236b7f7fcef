// The descriptors that the queries of one object have loaded, and the look-up of a package's
// properties by its identification code.
#ifndef VORNIK_QUERYPACKAGE_MODEL_REPOSITORY_H
#define VORNIK_QUERYPACKAGE_MODEL_REPOSITORY_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "model/properties.h"
#include "text/letter_case.h"

namespace Vornik {

// One loaded descriptor: an individual one, or one member of a pack.
struct PackageXmlEntry {
  std::string xmlFile;
  SupXmlProperties properties;
};

// One loaded pack.
struct KovuPackEntry {
  std::string kovuXmlFile;
  std::vector<PackageXmlEntry> members;  // the pack's own instance first
};

// Where a package's properties are. Valid until an entry is added to the repository.
struct PropertySource {
  const PackageXmlEntry* entry = nullptr;  // null: there is none
  const KovuPackEntry* pack = nullptr;     // null: an individual descriptor
  std::size_t member = 0;                  // the entry's index among the pack's members

  // The file that was loaded.
  const std::string& File() const { return pack == nullptr ? entry->xmlFile : pack->kovuXmlFile; }
};

class Repository {
 public:
  void Add(PackageXmlEntry entry);
  void Add(KovuPackEntry entry);

  // In the order in which they were added.
  const std::vector<PackageXmlEntry>& packageXmlEntries() const { return packageXmlEntries_; }
  const std::vector<KovuPackEntry>& kovuPackEntries() const { return kovuPackEntries_; }
  bool IsEmpty() const { return packageXmlEntries_.empty() && kovuPackEntries_.empty(); }

  // The properties of the first package with exactly that code: the members of all packs, the
  // packs' own instances included, come before the individual descriptors. Null if there is none;
  // otherwise valid until an entry is added. A package without a code has the code "".
  //
  //   pack {own, a}, individuals {a, b}:  "a"  =>  the pack's member
  //                                       "A"  =>  null
  const SupXmlProperties* Find(const std::string& code) const;

  // The same, with the place of the package.
  PropertySource FindSource(const std::string& code) const;

  // Makes look-ups follow the C library's locale as it is now: the name of the property that
  // contains a code is compared in it. A stage calls this when it begins.
  void SampleLocale();

 private:
  struct Location {
    std::size_t pack;  // noPack for an individual descriptor
    std::size_t entry;
  };
  static constexpr std::size_t noPack = static_cast<std::size_t>(-1);

  // By code, the first package that has it. Ordered, because the descriptors choose the codes: no
  // folder can slow it down as it could a hash table.
  using Index = std::map<std::string, Location>;

  Index BuildIndex() const;

  std::vector<PackageXmlEntry> packageXmlEntries_;
  std::vector<KovuPackEntry> kovuPackEntries_;
  ByteFold fold_ = CLibraryFold();
  mutable std::optional<Index> index_;  // built at the first look-up; unset when an entry is added
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_MODEL_REPOSITORY_H
