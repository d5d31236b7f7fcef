#include "pack_choice.h"

#include <algorithm>

#include "bracketed_text.h"
#include "decimal.h"
#include "letter_case.h"
#include "literals.h"

namespace Vornik {

std::vector<std::string> ParseApplicableMachineTypes(const std::vector<std::string>& values) {
  std::vector<std::string> machineTypes;
  machineTypes.reserve(values.size());
  std::transform(values.begin(), values.end(), std::back_inserter(machineTypes), ExtractBracketed);
  return machineTypes;
}

PackVerdict JudgePack(const SupXmlProperties& pack, const std::string& machineType,
                      OsValue osValue) {
  if (!machineType.empty()) {
    const auto machineTypes =
        ParseApplicableMachineTypes(GetPropertyValues(PropertyName::applicableMachineTypes, pack));
    if (machineTypes.empty()) return PackVerdict::NoMachineTypes;
    if (std::find(machineTypes.begin(), machineTypes.end(), machineType) == machineTypes.end()) {
      return PackVerdict::OtherMachineType;
    }
  }
  if (osValue != OsValue::NotSet) {
    const auto systems = GetPropertyValues(PropertyName::applicableOperatingSystems, pack);
    if (systems.empty()) return PackVerdict::NoOperatingSystems;
    const bool listed = std::any_of(systems.begin(), systems.end(), [osValue](const auto& system) {
      const std::int32_t code = ParseDecimal(system);
      return code == anyCode || static_cast<OsValue>(code) == osValue;
    });
    if (!listed) return PackVerdict::OtherOperatingSystem;
  }
  return PackVerdict::Applies;
}

const SupXmlProperties& PackLevelProperties(const KovuPackEntry& pack) {
  static const SupXmlProperties none;
  return pack.members.empty() ? none : pack.members.front().properties;
}

void PackChooser::Offer(std::int32_t index, const SupXmlProperties& pack) {
  if (chosen_ == -1) {
    chosen_ = index;
    return;
  }
  std::string version = GetPropertyValue(PropertyName::Version, pack);
  if (FoldByGlobalLocale(version) > FoldByGlobalLocale(chosenVersion_)) {
    chosen_ = index;
    chosenVersion_ = std::move(version);
  }
}

}  // namespace Vornik
