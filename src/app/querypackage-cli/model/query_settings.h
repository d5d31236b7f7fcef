// The settings of a query, as QueryPackage's setters take them.
#ifndef VORNIK_CLI_MODEL_QUERY_SETTINGS_H
#define VORNIK_CLI_MODEL_QUERY_SETTINGS_H

#include <string>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Cli {

struct QuerySettings {
  std::string folder;
  std::string machineType;
  OsValue osValue = OsValue::NotSet;
  ArcValue arcValue = ArcValue::NotSet;

  // Of the filters: see model/filter_table.h.
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
