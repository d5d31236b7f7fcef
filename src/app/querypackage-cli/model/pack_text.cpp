#include "model/pack_text.h"

#include <fmt/format.h>

#include <cstdint>

#include "model/literals.h"
#include "output/wording.h"
#include "text/paths.h"

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

bool HasOwnInstance(const KovuPackEntry& pack) {
  return IsSelfInstance(pack.kovuXmlFile,
                        GetPropertyValue(PropertyName::xmlFilename, PackLevelProperties(pack)));
}

std::string ListText(const char* property, const KovuPackEntry& pack, const std::string& wanted) {
  const std::string list =
      HasOwnInstance(pack)
          ? fmt::format("its \"{}\"", property)
          : fmt::format(
                "it has no INSTANCE of its own, and the \"{}\" of the first member, which is "
                "taken for the pack,",
                property);
  return fmt::format("{} do not hold {}: {}", list, wanted,
                     QuotedList(GetPropertyValues(property, PackLevelProperties(pack))));
}

std::string MissingText(const char* property, const KovuPackEntry& pack) {
  return fmt::format("it has no {}\"{}\", so it never applies",
                     HasOwnInstance(pack) ? ""
                                          : "INSTANCE of its own, and the first member, which is "
                                            "taken for the pack, no ",
                     property);
}

}  // namespace

std::string TextOf(const std::vector<KovuPackEntry>& packs, const std::vector<PackResult>& results,
                   std::size_t index, const std::string& machineType, OsValue osValue) {
  const PackResult& result = results[index];
  switch (result.verdict) {
    case PackVerdict::NoMachineTypes:
      return MissingText(PropertyName::applicableMachineTypes, packs[index]);
    case PackVerdict::OtherMachineType:
      return ListText(PropertyName::applicableMachineTypes, packs[index],
                      "the machine type " + machineType);
    case PackVerdict::NoOperatingSystems:
      return MissingText(PropertyName::applicableOperatingSystems, packs[index]);
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
