// Which packs apply to a machine, and which one of them is chosen.
//
// The first pack that applies is taken without its version being read, so the next one with any
// version displaces it; from then on the greater version wins, compared as text (10.1 is smaller
// than 9.0) without regard to case.
//
//   versions 2.0, 1.0, 1.5  =>  the third is chosen: 1.0 displaces the first, 1.5 displaces 1.0
//   versions 1.0, 2.0, 1.5  =>  the second is chosen: it displaces the first, 1.5 is not greater
#ifndef VORNIK_QUERYPACKAGE_RECORDS_PACK_SELECTION_H
#define VORNIK_QUERYPACKAGE_RECORDS_PACK_SELECTION_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "QueryPackage.h"
#include "model/repository.h"

namespace Vornik {

//   {"Desk 3 [1234]", "5678", ""}  =>  {"1234", "5678", ""}
std::vector<std::string> ParseApplicableMachineTypes(const std::vector<std::string>& values);

enum class PackVerdict {
  Applies,
  NoMachineTypes,        // "applicableMachineTypes" is missing or empty
  OtherMachineType,      // none of its items equals the machine type
  NoOperatingSystems,    // "applicableOperatingSystems" is missing or empty
  OtherOperatingSystem,  // none of its numbers is 0 or the operating system
};

// pack: the properties of the pack's own instance. An empty machine type and an operating system
// that is not set skip their tests.
PackVerdict EvaluatePack(const SupXmlProperties& pack, const std::string& machineType,
                         OsValue osValue);

// The properties by which a pack is evaluated: its own instance's, or none for a pack without
// members.
const SupXmlProperties& PackLevelProperties(const KovuPackEntry& pack);

// Why a pack is chosen or not.
struct PackResult {
  PackVerdict verdict = PackVerdict::Applies;
  bool chosen = false;

  // Of a pack that applies and is not chosen: the index of the pack that displaced it or that it
  // failed to displace, and the two versions that were compared. The version of the first pack that
  // applies is never read while that one is the choice: unset. Both are borrowed from the packs'
  // properties.
  std::optional<std::size_t> rival;
  bool displaced = false;  // it was the choice until the rival was considered
  std::optional<std::string_view> ownVersion;
  std::optional<std::string_view> rivalVersion;
};

// One result for each pack, in their order; at most one is chosen. For the packs' own properties
// that apply to one machine, and for packs of which some may not.
std::vector<PackResult> ChoosePack(const std::vector<const SupXmlProperties*>& applyingPacks);
std::vector<PackResult> EvaluatePacks(const std::vector<KovuPackEntry>& packs,
                                      const std::string& machineType, OsValue osValue);

// The index of the chosen pack, if there is one.
std::optional<std::size_t> ChosenPack(const std::vector<PackResult>& results);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_RECORDS_PACK_SELECTION_H
