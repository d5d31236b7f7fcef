#include "query/pack_summary.h"

#include <fmt/format.h>

#include <algorithm>

#include "model/literals.h"
#include "model/repository.h"
#include "output/wording.h"
#include "records/pack_members.h"
#include "records/pack_selection.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

// The packs with their first members only.
std::vector<KovuPackEntry> OwnInstances(const FolderContents& contents) {
  std::vector<KovuPackEntry> packs;
  for (const auto& [path, reading] : contents.files) {
    if (reading.fault != DescriptorFault::None || reading.kind != DescriptorKind::Pack) continue;
    std::vector<std::string> names;
    for (const SupXmlProperties& properties : reading.properties) {
      names.push_back(GetPropertyValue(PropertyName::xmlFilename, properties));
    }
    KovuPackEntry& pack = packs.emplace_back(KovuPackEntry{path, {}});
    const MemberOrder order = OrderMembers(path, names);
    if (order.instances.empty()) continue;
    pack.members.push_back({path, reading.properties[order.instances.front()]});
  }
  return packs;
}

std::string VersionOf(const KovuPackEntry& pack) {
  return GetPropertyValue(PropertyName::Version, PackLevelProperties(pack));
}

void AddNames(const KovuPackEntry& pack, const QuerySettings& settings, PackSummary& summary) {
  const SupXmlProperties& own = PackLevelProperties(pack);
  const auto types =
      ParseApplicableMachineTypes(GetPropertyValues(PropertyName::applicableMachineTypes, own));
  summary.machineTypes.insert(types.begin(), types.end());
  if (std::find(types.begin(), types.end(), settings.machineType) == types.end()) return;
  for (const std::string& system :
       GetPropertyValues(PropertyName::applicableOperatingSystems, own)) {
    summary.systems.insert(static_cast<std::uint32_t>(ParseDecimal(system)));
  }
}

// The version of the first pack that applies is never read. So the pack in use is the same in every
// order only if it is the one with a version, or the only one that applies.
bool DependsOnOrder(const std::vector<const KovuPackEntry*>& applying) {
  const auto versions = std::count_if(applying.begin(), applying.end(),
                                      [](const auto* pack) { return !VersionOf(*pack).empty(); });
  return applying.size() > 1 && versions != 1;
}

template <typename Items>
std::vector<std::string> Texts(const Items& items) {
  std::vector<std::string> texts;
  texts.reserve(items.size());
  for (const auto& item : items) texts.push_back(fmt::format("{}", item));
  return texts;
}

}  // namespace

PackSummary SummarizePacks(const FolderContents& contents, const QuerySettings& settings) {
  const std::vector<KovuPackEntry> packs = OwnInstances(contents);
  PackSummary summary;
  summary.packs = packs.size();
  const auto results = EvaluatePacks(packs, settings.machineType, settings.osValue);
  std::vector<const KovuPackEntry*> applying;
  for (std::size_t i = 0; i < packs.size(); ++i) {
    AddNames(packs[i], settings, summary);
    if (results[i].verdict == PackVerdict::Applies) applying.push_back(&packs[i]);
  }
  const auto chosen = ChosenPack(results);
  if (!chosen) return summary;
  summary.file = FileNameOf(packs[*chosen].kovuXmlFile);
  summary.version = VersionOf(packs[*chosen]);
  if (!DependsOnOrder(applying)) return summary;
  for (const KovuPackEntry* pack : applying) {
    if (pack != &packs[*chosen]) summary.rivals.push_back(FileNameOf(pack->kovuXmlFile));
  }
  std::sort(summary.rivals.begin(), summary.rivals.end());
  return summary;
}

std::string TextOf(const PackSummary& summary, const QuerySettings& settings) {
  if (!summary.file.empty()) {
    return summary.version.empty()
               ? fmt::format("Pack in use: {}, without a version.", summary.file)
               : fmt::format("Pack in use: {}, version {}.", summary.file, summary.version);
  }
  if (summary.packs == 0) return "No pack is used: the folder has none.";
  if (summary.machineTypes.count(settings.machineType) == 0) {
    return summary.machineTypes.empty()
               ? "No pack is used: those of the folder name no machine type."
               : fmt::format("No pack is used: those of the folder name the machine types {}.",
                             PlainList(Texts(summary.machineTypes), ListLength::Short));
  }
  if (summary.systems.empty()) {
    return fmt::format("No pack is used: those for machine type {} name no operating system.",
                       settings.machineType);
  }
  return fmt::format("No pack is used: those for machine type {} name the operating systems {}.",
                     settings.machineType, PlainList(Texts(summary.systems), ListLength::Short));
}

}  // namespace Vornik::Cli
