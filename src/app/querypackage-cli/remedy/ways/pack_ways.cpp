// The pack in use: it has to list the package.
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <optional>

#include "model/literals.h"
#include "output/wording.h"
#include "records/pack_selection.h"
#include "remedy/ways/ways.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

using Texts = std::vector<std::string>;
using Packs = std::vector<KovuPackEntry>;

Texts With(Texts values, const std::string& value) {
  values.push_back(value);
  return values;
}

class Ways {
 public:
  explicit Ways(const EditTarget& target)
      : target_(target),
        settings_(target.settings),
        packs_(target.folder.Model().Packages().kovuPackEntries()),
        results_(target.folder.Model().Packs(settings_.machineType, settings_.osValue)),
        chosen_(target.folder.Model().ChosenPackFor(settings_)) {}

  std::vector<Edits> Collect() {
    for (std::size_t pack = 0; pack < packs_.size(); ++pack) {
      if (packs_[pack].members.empty()) continue;
      if (IsFirstAndLost(pack)) AddOwnInstance(pack);
      if (pack != chosen_ && Lists(pack)) Add(MakeChosen(pack), Edits());
      if (pack == chosen_) AddListing(Edits(), pack);
      if (!chosen_ && !Lists(pack)) AddListing(MakeChosen(pack), pack);
    }
    return std::move(ways_);
  }

 private:
  bool Lists(std::size_t pack) const {
    const auto& members = packs_[pack].members;
    return std::any_of(members.begin() + 1, members.end(),
                       [this](const auto& member) { return CodeOf(member) == target_.code; });
  }

  static bool IsOwn(const PackageXmlEntry& member, const std::string& pack) {
    return IsSelfInstance(pack, GetPropertyValue(PropertyName::xmlFilename, member.properties));
  }

  // The pack has no instance of its own, and the package is taken for it.
  bool IsFirstAndLost(std::size_t pack) const {
    const PackageXmlEntry& first = packs_[pack].members.front();
    return CodeOf(first) == target_.code && !IsOwn(first, packs_[pack].kovuXmlFile);
  }

  void Add(const std::optional<Edits>& before, const Edits& after) {
    if (!before) return;
    Edits way = *before;
    way.insert(way.end(), after.begin(), after.end());
    if (!way.empty()) ways_.push_back(std::move(way));
  }

  // As the filters find the package, and as other descriptors have it.
  void AddListing(const std::optional<Edits>& before, std::size_t pack) {
    const FolderCopy& folder = target_.folder.Copy();
    const CopiedInstance& source = target_.Instance();
    Add(before, ListIn(pack, source, target_.source.File()));
    const auto addOthers = [&](const std::vector<CopiedInstance>& instances,
                               const std::string* file) {
      for (const CopiedInstance& other : instances) {
        if (other.id == source.id || CodeOf(other.entry) != target_.code) continue;
        Add(before, ListIn(pack, other, file == nullptr ? other.entry.xmlFile : *file));
      }
    };
    addOthers(folder.individuals, nullptr);
    for (const CopiedPack& each : folder.packs) addOthers(each.members, &each.file);
  }

  // Without a file name of its own it would be the pack itself.
  Edits ListIn(std::size_t pack, const CopiedInstance& instance, const std::string& file) const {
    const KovuPackEntry& to = packs_[pack];
    CopiedInstance listed = instance;
    Edits edits;
    if (IsOwn(listed.entry, to.kovuXmlFile)) {
      edits.push_back(EditOf(listed, file, PropertyName::xmlFilename, {FileNameOf(file)}));
      SetValues(listed.entry.properties, PropertyName::xmlFilename, edits.front().after);
    }
    Edit entry;
    entry.kind = EditKind::AddPackEntry;
    entry.file = to.kovuXmlFile;
    entry.instance.pack = pack;
    entry.properties = std::move(listed.entry.properties);
    edits.push_back(std::move(entry));
    return edits;
  }

  Edit SetInPack(std::size_t pack, const char* property, Texts values) const {
    const CopiedInstance& own = target_.folder.Copy().packs[pack].members.front();
    return EditOf(own, packs_[pack].kovuXmlFile, property, std::move(values));
  }

  Texts SystemsWith(const SupXmlProperties& pack) const {
    const auto number = static_cast<std::uint32_t>(settings_.osValue);
    return With(GetPropertyValues(PropertyName::applicableOperatingSystems, pack),
                fmt::format("{}", number));
  }

  Texts TypesWith(const SupXmlProperties& pack) const {
    return With(GetPropertyValues(PropertyName::applicableMachineTypes, pack),
                settings_.machineType);
  }

  bool HasType(const SupXmlProperties& pack) const {
    const Texts types =
        ParseApplicableMachineTypes(GetPropertyValues(PropertyName::applicableMachineTypes, pack));
    return std::find(types.begin(), types.end(), settings_.machineType) != types.end();
  }

  bool HasSystem(const SupXmlProperties& pack) const {
    const PackVerdict verdict = EvaluatePack(pack, "", settings_.osValue);
    return verdict == PackVerdict::Applies;
  }

  // None: no version of the pack makes it the one in use.
  std::optional<Edits> MakeChosen(std::size_t pack) const {
    const SupXmlProperties& own = PackLevelProperties(packs_[pack]);
    Edits edits;
    if (!HasType(own)) {
      edits.push_back(SetInPack(pack, PropertyName::applicableMachineTypes, TypesWith(own)));
    }
    if (!HasSystem(own)) {
      edits.push_back(SetInPack(pack, PropertyName::applicableOperatingSystems, SystemsWith(own)));
    }
    if (IsChosenWith(edits, pack)) return edits;
    edits.push_back(SetInPack(pack, PropertyName::Version, {GreatestVersion() + ".1"}));
    if (IsChosenWith(edits, pack)) return edits;
    return std::nullopt;
  }

  bool IsChosenWith(const Edits& edits, std::size_t pack) const {
    FolderCopy packs;
    packs.packs = target_.folder.Copy().packs;
    for (const Edit& edit : edits) Apply(edit, packs);
    const FolderReading reading = packs.Reading();
    return ChosenPack(EvaluatePacks(reading.repository.kovuPackEntries(), settings_.machineType,
                                    settings_.osValue)) == pack;
  }

  // As text, of the packs that apply.
  std::string GreatestVersion() const {
    std::string greatest;
    for (std::size_t i = 0; i < packs_.size(); ++i) {
      if (results_[i].verdict != PackVerdict::Applies) continue;
      const std::string version =
          GetPropertyValue(PropertyName::Version, PackLevelProperties(packs_[i]));
      if (FoldByGlobalLocale(version) > FoldByGlobalLocale(greatest)) greatest = version;
    }
    return greatest.empty() ? "1" : greatest;
  }

  // A new own instance that applies to the machine and is chosen.
  void AddOwnInstance(std::size_t pack) {
    const SupXmlProperties& first = PackLevelProperties(packs_[pack]);
    Edit edit;
    edit.kind = EditKind::AddPackEntry;
    edit.file = packs_[pack].kovuXmlFile;
    edit.instance.pack = pack;
    edit.properties = {
        {PropertyName::xmlFilename, "string", {FileNameOf(packs_[pack].kovuXmlFile)}},
        {PropertyName::applicableMachineTypes, "string",
         HasType(first) ? GetPropertyValues(PropertyName::applicableMachineTypes, first)
                        : TypesWith(first)},
        {PropertyName::applicableOperatingSystems, "string",
         HasSystem(first) ? GetPropertyValues(PropertyName::applicableOperatingSystems, first)
                          : SystemsWith(first)},
        {PropertyName::Version, "string", {GreatestVersion() + ".1"}}};
    if (IsChosenWith({edit}, pack)) ways_.push_back({edit});
  }

  const EditTarget& target_;
  const QuerySettings& settings_;
  const Packs& packs_;
  const std::vector<PackResult>& results_;
  const std::optional<std::size_t> chosen_;
  std::vector<Edits> ways_;
};

}  // namespace

std::vector<Edits> PackWays(const EditTarget& target) { return Ways(target).Collect(); }

}  // namespace Vornik::Cli
