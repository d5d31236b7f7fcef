#include "filters/platform.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/literals.h"
#include "text/decimal.h"

namespace Vornik {

namespace {

bool IsMissing(const std::vector<std::string>* list) { return list == nullptr || list->empty(); }

template <typename Code>
bool MatchesOrAny(const std::string& listed, Code target) {
  const std::int32_t code = ParseDecimal(listed);
  return code == anyCode || target == Code::NotSet || static_cast<Code>(code) == target;
}

}  // namespace

PlatformResult EvaluatePlatform(const SupXmlProperties& properties, OsValue osValue,
                                ArcValue arcValue, const std::string& machineType) {
  const auto* machineTypes = FindPropertyValues(PropertyName::orderedMachineTypeList, properties);
  if (IsMissing(machineTypes)) return {PlatformVerdict::NoMachineTypes};
  const auto* systems = FindPropertyValues(PropertyName::orderedOSList, properties);
  if (IsMissing(systems)) return {PlatformVerdict::NoOperatingSystems};
  const auto* architectures =
      FindPropertyValues(PropertyName::orderedOSArchitectureList, properties);
  if (IsMissing(architectures)) return {PlatformVerdict::NoArchitectures};

  const auto entries = std::min({machineTypes->size(), systems->size(), architectures->size()});
  for (std::size_t i = 0; i < entries; ++i) {
    if ((*machineTypes)[i] == machineType && MatchesOrAny((*systems)[i], osValue) &&
        MatchesOrAny((*architectures)[i], arcValue)) {
      return {PlatformVerdict::Matched, i};
    }
  }
  return {PlatformVerdict::NotMatched};
}

}  // namespace Vornik
