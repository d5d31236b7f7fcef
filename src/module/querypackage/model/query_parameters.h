// What a query's settings must be before anything is read.
//
//   folder "/pkgs", a directory, machine 12a4/10/9  =>  MachineTypeInvalid
//   {"A", "B"} included, {"B", "b"} excluded        =>  IdInBothLists, "B"
#ifndef VORNIK_QUERYPACKAGE_MODEL_QUERY_PARAMETERS_H
#define VORNIK_QUERYPACKAGE_MODEL_QUERY_PARAMETERS_H

#include <string>
#include <vector>

#include "QueryPackage.h"

namespace Vornik {

struct QueryParameters {
  const std::string& folder;
  bool isDirectory;  // what the folder names; of no account where it is not set
  const std::string& machineType;
  OsValue osValue;
  ArcValue arcValue;
  const std::vector<std::string>& includePackageIds;
  const std::vector<std::string>& excludePackageIds;
};

// In the order in which they are looked for.
enum class ParameterFault {
  None,
  FolderNotSet,
  FolderNotValid,  // no directory of that name
  MachineTypeNotSet,
  MachineTypeInvalid,
  OsNotSet,
  ArcNotSet,
  IdInBothLists,  // spelled alike
};

struct ParameterCheck {
  ParameterFault fault = ParameterFault::None;
  std::string id;  // IdInBothLists: the first include id that is also excluded
};

ParameterCheck CheckParameters(const QueryParameters& parameters);

// Four characters that the ctype facet of the global locale, as it is now, calls digits.
//
//   "0123"                  =>  true
//   "12a4", "123", "12345"  =>  false
bool IsMachineType(const std::string& text);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_MODEL_QUERY_PARAMETERS_H
