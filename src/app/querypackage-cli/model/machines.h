// The machines that a folder's packages are for, from their ordered lists.
//
//   lists {1234, 1234} {10, 0} {9, 9}  =>  1234/10/9, and 1234/other/9
//
// An operating system or architecture of 0 means each one that the folder names for the machine
// type, and one that it does not name. The systems of packs count as named.
#ifndef VORNIK_CLI_MODEL_MACHINES_H
#define VORNIK_CLI_MODEL_MACHINES_H

#include <set>
#include <string>
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

// Each value can be given to a query.
struct FolderMachine {
  std::string machineType;
  OsValue osValue = OsValue::NotSet;
  ArcValue arcValue = ArcValue::NotSet;

  // Whether the folder names the value for the machine type; if not, it is the smallest number that
  // the folder does not name, for all of them.
  bool osIsNamed = true;
  bool arcIsNamed = true;
};

// A folder can name more machines than it has bytes; no more than this many are collected.
inline constexpr std::size_t maxMachines = 10'000;

struct FolderMachines {
  std::vector<FolderMachine> machines;  // by machine type, system, architecture; unnamed ones last
  std::vector<PlatformEntry> invalid;   // entries whose machine type no query can have, each once
  bool isComplete = true;               // false: there are more than maxMachines
};

// Of the packages that a query can return and whose properties it finds by their codes.
FolderMachines MachinesOf(const Repository& repository);

// The identification code; empty: it has none.
std::string CodeOf(const PackageXmlEntry& entry);

// The codes that a query of the folder can return, each once, in byte order: those of individual
// descriptors and of the members of packs, except the first ones. A package without a code has
// none.
std::vector<std::string> CodesOf(const Repository& repository);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_MACHINES_H
