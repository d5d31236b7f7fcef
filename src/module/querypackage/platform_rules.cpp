#include "platform_rules.h"

#include <algorithm>

#include "decimal.h"
#include "literals.h"

namespace Vornik {

namespace {

template <typename Code>
bool MeetsCode(const std::string& listed, Code target) {
  const std::int32_t code = ParseDecimal(listed);
  return code == anyCode || target == Code::NotSet || static_cast<Code>(code) == target;
}

}  // namespace

PlatformJudgement JudgePlatform(const SupXmlProperties& properties, OsValue osValue,
                                ArcValue arcValue, const std::string& machineType) {
  const auto machineTypes = GetPropertyValues(PropertyName::orderedMachineTypeList, properties);
  if (machineTypes.empty()) return {PlatformVerdict::NoMachineTypes};
  const auto systems = GetPropertyValues(PropertyName::orderedOSList, properties);
  if (systems.empty()) return {PlatformVerdict::NoOperatingSystems};
  const auto architectures = GetPropertyValues(PropertyName::orderedOSArchitectureList, properties);
  if (architectures.empty()) return {PlatformVerdict::NoArchitectures};

  const auto entries = std::min({machineTypes.size(), systems.size(), architectures.size()});
  for (std::size_t i = 0; i < entries; ++i) {
    if (machineTypes[i] == machineType && MeetsCode(systems[i], osValue) &&
        MeetsCode(architectures[i], arcValue)) {
      return {PlatformVerdict::Matched, i};
    }
  }
  return {PlatformVerdict::NotMatched};
}

}  // namespace Vornik
