#include "pack_judgement.h"

#include <fmt/format.h>

#include <cstdint>

#include "letter_case.h"
#include "literals.h"
#include "wording.h"

namespace Vornik::Cli {

namespace {

// What the chooser does with the packs that apply, and why.
class PackContest {
 public:
  PackContest(const std::vector<KovuPackEntry>& packs, std::vector<PackJudgement>& judgements)
      : packs_(packs), judgements_(judgements) {}

  void Offer(std::size_t index) {
    const std::int32_t before = chooser_.Chosen();
    chooser_.Offer(static_cast<std::int32_t>(index), PackLevelProperties(packs_[index]));
    if (before != -1) Settle(static_cast<std::size_t>(before), index);
  }

  std::int32_t Chosen() const { return chooser_.Chosen(); }

 private:
  void Settle(std::size_t holder, std::size_t challenger) {
    const std::optional<std::string> holderVersion = versionIsRead_ ? VersionOf(holder) : Unread();
    const bool displaced = chooser_.Chosen() == static_cast<std::int32_t>(challenger);
    const std::size_t loser = displaced ? holder : challenger;
    PackJudgement& lost = judgements_[loser];
    lost.rival = displaced ? challenger : holder;
    lost.displaced = displaced;
    lost.ownVersion = displaced ? holderVersion : VersionOf(challenger);
    lost.rivalVersion = displaced ? VersionOf(challenger) : holderVersion;
    versionIsRead_ = versionIsRead_ || displaced;
  }

  static std::optional<std::string> Unread() { return std::nullopt; }

  std::optional<std::string> VersionOf(std::size_t index) const {
    return GetPropertyValue(PropertyName::Version, PackLevelProperties(packs_[index]));
  }

  const std::vector<KovuPackEntry>& packs_;
  std::vector<PackJudgement>& judgements_;
  PackChooser chooser_;
  bool versionIsRead_ = false;  // of the pack that is the choice
};

std::string ContestText(const std::vector<KovuPackEntry>& packs, const PackJudgement& judgement) {
  const std::string rival = FileNameOf(packs[*judgement.rival].kovuXmlFile);
  if (judgement.displaced && !judgement.ownVersion) {
    return fmt::format(
        "it applies and was found first, but the version of the pack found first is never "
        "compared: {} with the version \"{}\" displaced it",
        rival, *judgement.rivalVersion);
  }
  if (judgement.displaced) {
    return fmt::format("it applies, but {} displaced it: compared as text, its version {} is {}",
                       rival, AsCompared(*judgement.ownVersion),
                       "smaller than " + AsCompared(*judgement.rivalVersion));
  }
  if (!judgement.rivalVersion) {
    return fmt::format("it applies, but without a \"Version\" it cannot displace {}, found before",
                       rival);
  }
  return fmt::format(
      "it applies, but did not displace {}: compared as text, its version {} is not greater than "
      "{}",
      rival, AsCompared(*judgement.ownVersion), AsCompared(*judgement.rivalVersion));
}

std::string ListText(const char* property, const KovuPackEntry& pack, const std::string& wanted) {
  return fmt::format("its \"{}\" do not hold {}: {}", property, wanted,
                     QuotedList(GetPropertyValues(property, PackLevelProperties(pack))));
}

}  // namespace

std::vector<PackJudgement> JudgePacks(const std::vector<KovuPackEntry>& packs,
                                      const std::string& machineType, OsValue osValue) {
  std::vector<PackJudgement> judgements(packs.size());
  PackContest contest(packs, judgements);
  for (std::size_t i = 0; i < packs.size(); ++i) {
    judgements[i].verdict = JudgePack(PackLevelProperties(packs[i]), machineType, osValue);
    if (judgements[i].verdict == PackVerdict::Applies) contest.Offer(i);
  }
  if (contest.Chosen() != -1) {
    judgements[static_cast<std::size_t>(contest.Chosen())].chosen = true;
  }
  return judgements;
}

std::string TextOf(const std::vector<KovuPackEntry>& packs,
                   const std::vector<PackJudgement>& judgements, std::size_t index,
                   const std::string& machineType, OsValue osValue) {
  const PackJudgement& judgement = judgements[index];
  switch (judgement.verdict) {
    case PackVerdict::NoMachineTypes:
      return "it has no \"applicableMachineTypes\", so it never applies";
    case PackVerdict::OtherMachineType:
      return ListText(PropertyName::applicableMachineTypes, packs[index],
                      "the machine type " + machineType);
    case PackVerdict::NoOperatingSystems:
      return "it has no \"applicableOperatingSystems\", so it never applies";
    case PackVerdict::OtherOperatingSystem:
      return ListText(
          PropertyName::applicableOperatingSystems, packs[index],
          fmt::format("the operating system {} or 0", static_cast<std::uint32_t>(osValue)));
    case PackVerdict::Applies:
      break;
  }
  return judgement.chosen ? "it is the one chosen for the machine" : ContestText(packs, judgement);
}

}  // namespace Vornik::Cli
