// Whether a package applies to a machine, and which parts of its entries fit.
//
// Entry i of "orderedMachineTypeList", "orderedOSList" and "orderedOSArchitectureList" together
// name one machine; the shortest list ends the walk. The machine type is compared exactly; an
// operating system or architecture of 0, on either side, is any.
//
//   lists {1234, 1234} {10, 11} {9, 0}, machine 1234/11/5  =>  Matched at entry 1
//                                                              entry 0 fits in its machine type
//                                                              only
//   lists {1234} {10} {9}, machine 1234/11/9               =>  NotMatched
#ifndef VORNIK_QUERYPACKAGE_FILTERS_PLATFORM_H
#define VORNIK_QUERYPACKAGE_FILTERS_PLATFORM_H

#include <cstddef>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/properties.h"

namespace Vornik {

enum class PlatformVerdict {
  Matched,
  NotMatched,
  NoMachineTypes,      // "orderedMachineTypeList" is missing or empty
  NoOperatingSystems,  // "orderedOSList" is missing or empty
  NoArchitectures,     // "orderedOSArchitectureList" is missing or empty
};

struct PlatformResult {
  PlatformVerdict verdict = PlatformVerdict::NotMatched;
  std::size_t entry = 0;  // Matched: the first entry that matches
};

PlatformResult EvaluatePlatform(const SupXmlProperties& properties, OsValue osValue,
                                ArcValue arcValue, const std::string& machineType);

// One entry of the three lists.
struct PlatformEntry {
  std::string machineType;
  OsValue osValue = OsValue::NotSet;     // NotSet: any
  ArcValue arcValue = ArcValue::NotSet;  // NotSet: any
};

// The entries that the walk can reach; none if a list is missing or empty.
std::vector<PlatformEntry> ReadPlatformEntries(const SupXmlProperties& properties);

// Which parts of an entry fit a machine.
struct PlatformFit {
  bool machineType = false;
  bool osValue = false;
  bool arcValue = false;

  bool IsMatch() const { return machineType && osValue && arcValue; }
};

PlatformFit EvaluatePlatformEntry(const PlatformEntry& entry, OsValue osValue, ArcValue arcValue,
                                  const std::string& machineType);

// The same for each entry that the walk can reach.
std::vector<PlatformFit> EvaluatePlatformEntries(const SupXmlProperties& properties,
                                                 OsValue osValue, ArcValue arcValue,
                                                 const std::string& machineType);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_PLATFORM_H
