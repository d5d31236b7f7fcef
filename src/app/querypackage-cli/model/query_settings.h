// The filters of a query, and its settings as QueryPackage's setters take them.
#ifndef VORNIK_CLI_MODEL_QUERY_SETTINGS_H
#define VORNIK_CLI_MODEL_QUERY_SETTINGS_H

#include <cstddef>
#include <string>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Cli {

// In the order in which they run. What is known about each is in model/filter_table.h.
enum class FilterId {
  Duplicate,
  Platform,
  Kovu,
  Sep,
  PayloadExist,
  Supersede,
  IncludeId,
  ExcludeId,
  UpdateType,
};

inline constexpr std::size_t filterCount = static_cast<std::size_t>(FilterId::UpdateType) + 1;

struct QuerySettings {
  std::string folder;
  std::string machineType;
  OsValue osValue = OsValue::NotSet;
  ArcValue arcValue = ArcValue::NotSet;

  // Of the filters.
  std::vector<UpdateType> updateTypes;
  std::vector<std::string> includePackageIds;
  std::vector<std::string> excludePackageIds;
  bool kovuFilter = true;
  bool sepFilter = true;
  bool payloadExistFilter = true;
  bool supersedeFilter = true;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_QUERY_SETTINGS_H
