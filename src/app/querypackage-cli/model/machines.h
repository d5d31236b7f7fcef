// The machines that a folder's packages are for, from their ordered lists.
//
//   lists {1234, 1234} {10, 0} {9, 9}  =>  1234/10/9, and 1234/other/9
//
// An operating system or architecture of 0 means each one that the folder names for the machine
// type, and one that it does not name. The systems of packs count as named.
#ifndef VORNIK_CLI_MODEL_MACHINES_H
#define VORNIK_CLI_MODEL_MACHINES_H

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "QueryPackage.h"
#include "filters/platform.h"
#include "model/repository.h"

namespace Vornik::Cli {

// The systems and architectures of entries for one machine type; 0: any.
using Platforms = std::set<std::pair<OsValue, ArcValue>>;

// Whether one of the entries matches a system and an architecture other than 0.
bool Match(const Platforms& platforms, OsValue osValue, ArcValue arcValue);

// A machine that a query can be about.
struct Machine {
  std::string machineType;
  OsValue osValue = OsValue::NotSet;
  ArcValue arcValue = ArcValue::NotSet;

  // Of a machine of a folder, whether the folder names the value for the machine type; if not, it
  // represents all that the folder does not name.
  bool osIsNamed = true;
  bool arcIsNamed = true;
};

// A folder can name more machines than it has bytes; no more than this many are collected.
inline constexpr std::size_t maxMachines = 10'000;

struct FolderMachines {
  std::vector<Machine> machines;       // by machine type, system, architecture; unnamed ones last
  std::vector<PlatformEntry> invalid;  // entries whose machine type no query can have, each once
  bool isComplete = true;              // false: there are more than maxMachines
};

// What the packages and packs of a folder name for each machine type. Packages are those that a
// query can return and whose properties it finds by their codes.
class NamedMachines {
 public:
  explicit NamedMachines(const Repository& repository);

  // An unnamed value is the smallest number.
  FolderMachines All() const;

  // Those that the platform filter matches to a package of the folder; invalid stays empty. A value
  // of preferred that the folder does not name for a machine type is the unnamed one.
  FolderMachines MatchedBy(const SupXmlProperties& package, const Machine& preferred) const;

 private:
  struct Codes {
    Platforms entries;
    std::set<OsValue> systems;  // without 0, as the next one
    std::set<ArcValue> architectures;
  };

  void AddEntries(const SupXmlProperties& package);
  void AddSystemsOf(const KovuPackEntry& pack);
  // Whether all of them could be added.
  bool AddMachines(const std::string& type, const Platforms& entries, const Machine& preferred,
                   std::vector<Machine>& machines) const;

  std::map<std::string, Codes> types_;
  std::set<std::tuple<std::string, OsValue, ArcValue>> invalid_;
};

// The identification code; empty: it has none.
std::string CodeOf(const PackageXmlEntry& entry);

// The codes that a query of the folder can return, each once, in byte order: those of individual
// descriptors and of the members of packs, except the first ones. A package without a code has
// none.
std::vector<std::string> CodesOf(const Repository& repository);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_MACHINES_H
