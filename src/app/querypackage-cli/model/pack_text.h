// Why one pack of a folder is chosen for a machine and the others are not.
#ifndef VORNIK_CLI_MODEL_PACK_TEXT_H
#define VORNIK_CLI_MODEL_PACK_TEXT_H

#include <cstddef>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/properties.h"
#include "records/pack_selection.h"

namespace Vornik::Cli {

// Why the pack at an index is or is not chosen, in one sentence.
std::string TextOf(const std::vector<KovuPackEntry>& packs, const std::vector<PackResult>& results,
                   std::size_t index, const std::string& machineType, OsValue osValue);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_PACK_TEXT_H
