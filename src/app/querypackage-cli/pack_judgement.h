// Why one pack of a folder is chosen for a machine and the others are not.
#ifndef VORNIK_CLI_PACK_JUDGEMENT_H
#define VORNIK_CLI_PACK_JUDGEMENT_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "pack_choice.h"
#include "properties.h"

namespace Vornik::Cli {

struct PackJudgement {
  PackVerdict verdict = PackVerdict::Applies;
  bool chosen = false;

  // Of a pack that applies and is not chosen: the pack (an index) that displaced it, or that it
  // failed to displace, and the version that this other one was compared with or by. The version
  // of the pack found first is not read: unset.
  std::optional<std::size_t> rival;
  bool displaced = false;  // it was the choice until the rival came
  std::optional<std::string> ownVersion;
  std::optional<std::string> rivalVersion;
};

// One per pack, in their order; at most one is chosen.
std::vector<PackJudgement> JudgePacks(const std::vector<KovuPackEntry>& packs,
                                      const std::string& machineType, OsValue osValue);

// Why the pack at an index is or is not chosen, in one sentence.
std::string TextOf(const std::vector<KovuPackEntry>& packs,
                   const std::vector<PackJudgement>& judgements, std::size_t index,
                   const std::string& machineType, OsValue osValue);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_PACK_JUDGEMENT_H
