#include "model/pack_text.h"

#include <fmt/format.h>

#include <cstdint>

#include "model/literals.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

std::string RivalText(const std::vector<KovuPackEntry>& packs, const PackResult& result) {
  const std::string rival = FileNameOf(packs[*result.rival].kovuXmlFile);
  if (result.displaced && !result.ownVersion) {
    return fmt::format(
        "it applies and was found first, but the version of the pack found first is never "
        "compared: {} with the version \"{}\" displaced it",
        rival, *result.rivalVersion);
  }
  if (result.displaced) {
    return fmt::format("it applies, but {} displaced it: compared as text, its version {} is {}",
                       rival, AsCompared(std::string(*result.ownVersion)),
                       "smaller than " + AsCompared(std::string(*result.rivalVersion)));
  }
  if (!result.rivalVersion) {
    return fmt::format("it applies, but without a \"Version\" it cannot displace {}, found before",
                       rival);
  }
  return fmt::format(
      "it applies, but did not displace {}: compared as text, its version {} is not greater than "
      "{}",
      rival, AsCompared(std::string(*result.ownVersion)),
      AsCompared(std::string(*result.rivalVersion)));
}

std::string ListText(const char* property, const KovuPackEntry& pack, const std::string& wanted) {
  return fmt::format("its \"{}\" do not hold {}: {}", property, wanted,
                     QuotedList(GetPropertyValues(property, PackLevelProperties(pack))));
}

}  // namespace

std::string TextOf(const std::vector<KovuPackEntry>& packs, const std::vector<PackResult>& results,
                   std::size_t index, const std::string& machineType, OsValue osValue) {
  const PackResult& result = results[index];
  switch (result.verdict) {
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
  return result.chosen ? "it is the one chosen for the machine" : RivalText(packs, result);
}

}  // namespace Vornik::Cli
