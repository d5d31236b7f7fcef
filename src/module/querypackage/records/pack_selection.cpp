#include "records/pack_selection.h"

#include <algorithm>
#include <utility>

#include "model/literals.h"
#include "text/bracketed_text.h"
#include "text/decimal.h"
#include "text/letter_case.h"

namespace Vornik {

namespace {

std::string_view VersionOf(const SupXmlProperties& pack) {
  const std::string* version = FindPropertyValue(PropertyName::Version, pack);
  return version == nullptr ? std::string_view() : *version;
}

// Considers packs that apply, one after the other, and writes why each of them loses.
class PackChooser {
 public:
  explicit PackChooser(std::vector<PackResult>& results) : results_(results) {}

  void Consider(std::size_t index, const SupXmlProperties& pack) {
    if (!chosen_) {
      chosen_ = index;
      return;
    }
    const std::string_view version = VersionOf(pack);
    std::string folded = FoldByGlobalLocale(version);
    if (folded > foldedChosenVersion_) {
      Lose(*chosen_, index, true, chosenVersion_, version);
      chosen_ = index;
      chosenVersion_ = version;
      foldedChosenVersion_ = std::move(folded);
    } else {
      Lose(index, *chosen_, false, version, chosenVersion_);
    }
  }

  void Finish() {
    if (chosen_) results_[*chosen_].chosen = true;
  }

 private:
  void Lose(std::size_t loser, std::size_t rival, bool displaced,
            std::optional<std::string_view> ownVersion,
            std::optional<std::string_view> rivalVersion) {
    PackResult& result = results_[loser];
    result.rival = rival;
    result.displaced = displaced;
    result.ownVersion = ownVersion;
    result.rivalVersion = rivalVersion;
  }

  std::vector<PackResult>& results_;
  std::optional<std::size_t> chosen_;
  std::optional<std::string_view> chosenVersion_;  // unset for the first pack: it is never read
  std::string foldedChosenVersion_;                // folded once, not for each pack; empty as well
};

}  // namespace

std::vector<std::string> ParseApplicableMachineTypes(const std::vector<std::string>& values) {
  std::vector<std::string> machineTypes;
  machineTypes.reserve(values.size());
  std::transform(values.begin(), values.end(), std::back_inserter(machineTypes), ExtractBracketed);
  return machineTypes;
}

PackVerdict EvaluatePack(const SupXmlProperties& pack, const std::string& machineType,
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

std::vector<PackResult> ChoosePack(const std::vector<const SupXmlProperties*>& applyingPacks) {
  std::vector<PackResult> results(applyingPacks.size());
  PackChooser chooser(results);
  for (std::size_t i = 0; i < applyingPacks.size(); ++i) chooser.Consider(i, *applyingPacks[i]);
  chooser.Finish();
  return results;
}

std::vector<PackResult> EvaluatePacks(const std::vector<KovuPackEntry>& packs,
                                      const std::string& machineType, OsValue osValue) {
  std::vector<PackResult> results(packs.size());
  PackChooser chooser(results);
  for (std::size_t i = 0; i < packs.size(); ++i) {
    const SupXmlProperties& pack = PackLevelProperties(packs[i]);
    results[i].verdict = EvaluatePack(pack, machineType, osValue);
    if (results[i].verdict == PackVerdict::Applies) chooser.Consider(i, pack);
  }
  chooser.Finish();
  return results;
}

std::optional<std::size_t> ChosenPack(const std::vector<PackResult>& results) {
  const auto chosen = std::find_if(results.begin(), results.end(),
                                   [](const PackResult& result) { return result.chosen; });
  if (chosen == results.end()) return std::nullopt;
  return static_cast<std::size_t>(chosen - results.begin());
}

}  // namespace Vornik
