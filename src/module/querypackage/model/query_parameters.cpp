#include "query_parameters.h"

#include <algorithm>
#include <locale>
#include <set>
#include <string_view>

namespace Vornik {

namespace {

ParameterCheck CheckIdLists(const std::vector<std::string>& included,
                            const std::vector<std::string>& excluded) {
  const std::set<std::string_view> excludedSet(excluded.begin(), excluded.end());
  const auto shared = std::find_if(included.begin(), included.end(), [&](const std::string& id) {
    return excludedSet.count(id) != 0;
  });
  if (shared == included.end()) return {};
  return {ParameterFault::IdInBothLists, *shared};
}

}  // namespace

bool IsMachineType(const std::string& text) {
  constexpr std::size_t length = 4;
  const std::locale global;
  return text.size() == length && std::all_of(text.begin(), text.end(), [&global](char c) {
           return std::isdigit(c, global);
         });
}

ParameterCheck CheckParameters(const QueryParameters& parameters) {
  if (parameters.folder.empty()) return {ParameterFault::FolderNotSet, {}};
  if (!parameters.isDirectory) return {ParameterFault::FolderNotValid, {}};
  if (parameters.machineType.empty()) return {ParameterFault::MachineTypeNotSet, {}};
  if (!IsMachineType(parameters.machineType)) return {ParameterFault::MachineTypeInvalid, {}};
  if (parameters.osValue == OsValue::NotSet) return {ParameterFault::OsNotSet, {}};
  if (parameters.arcValue == ArcValue::NotSet) return {ParameterFault::ArcNotSet, {}};
  return CheckIdLists(parameters.includePackageIds, parameters.excludePackageIds);
}

}  // namespace Vornik
