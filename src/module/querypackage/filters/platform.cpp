#include "filters/platform.h"

#include <algorithm>

#include "model/literals.h"
#include "text/decimal.h"

namespace Vornik {

namespace {

using Texts = std::vector<std::string>;

const Texts& ListOf(const char* name, const SupXmlProperties& properties) {
  static const Texts none;
  const Texts* list = FindPropertyValues(name, properties);
  return list == nullptr ? none : *list;
}

// Borrowed; empty where missing.
struct OrderedLists {
  explicit OrderedLists(const SupXmlProperties& properties)
      : machineTypes(ListOf(PropertyName::orderedMachineTypeList, properties)),
        systems(ListOf(PropertyName::orderedOSList, properties)),
        architectures(ListOf(PropertyName::orderedOSArchitectureList, properties)) {}

  std::size_t Size() const {
    return std::min({machineTypes.size(), systems.size(), architectures.size()});
  }

  PlatformEntry Entry(std::size_t i) const {
    return {machineTypes[i], static_cast<OsValue>(ParseDecimal(systems[i])),
            static_cast<ArcValue>(ParseDecimal(architectures[i]))};
  }

  const Texts& machineTypes;
  const Texts& systems;
  const Texts& architectures;
};

template <typename Code>
bool MatchesOrAny(Code listed, Code target) {
  return listed == Code::NotSet || target == Code::NotSet || listed == target;
}

}  // namespace

PlatformResult EvaluatePlatform(const SupXmlProperties& properties, OsValue osValue,
                                ArcValue arcValue, const std::string& machineType) {
  const OrderedLists lists(properties);
  if (lists.machineTypes.empty()) return {PlatformVerdict::NoMachineTypes};
  if (lists.systems.empty()) return {PlatformVerdict::NoOperatingSystems};
  if (lists.architectures.empty()) return {PlatformVerdict::NoArchitectures};
  const std::size_t size = lists.Size();
  for (std::size_t i = 0; i < size; ++i) {
    // Most entries are of other machine types; their numbers are not read.
    if (lists.machineTypes[i] != machineType) continue;
    if (EvaluatePlatformEntry(lists.Entry(i), osValue, arcValue, machineType).IsMatch()) {
      return {PlatformVerdict::Matched, i};
    }
  }
  return {PlatformVerdict::NotMatched};
}

std::vector<PlatformEntry> ReadPlatformEntries(const SupXmlProperties& properties) {
  const OrderedLists lists(properties);
  std::vector<PlatformEntry> entries;
  for (std::size_t i = 0; i < lists.Size(); ++i) entries.push_back(lists.Entry(i));
  return entries;
}

PlatformFit EvaluatePlatformEntry(const PlatformEntry& entry, OsValue osValue, ArcValue arcValue,
                                  const std::string& machineType) {
  return {entry.machineType == machineType, MatchesOrAny(entry.osValue, osValue),
          MatchesOrAny(entry.arcValue, arcValue)};
}

std::vector<PlatformFit> EvaluatePlatformEntries(const SupXmlProperties& properties,
                                                 OsValue osValue, ArcValue arcValue,
                                                 const std::string& machineType) {
  std::vector<PlatformFit> fits;
  for (const PlatformEntry& entry : ReadPlatformEntries(properties)) {
    fits.push_back(EvaluatePlatformEntry(entry, osValue, arcValue, machineType));
  }
  return fits;
}

}  // namespace Vornik
