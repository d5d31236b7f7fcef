// The platforms of a package as values: the entries of its three ordered lists that count.
#ifndef VORNIK_CLI_LINT_CHECKS_PLATFORM_ENTRIES_H
#define VORNIK_CLI_LINT_CHECKS_PLATFORM_ENTRIES_H

#include <cstdint>
#include <string>
#include <vector>

#include "model/properties.h"

namespace Vornik::Cli {

struct PlatformEntry {
  std::string machineType;
  std::uint32_t system = 0;        // 0: any
  std::uint32_t architecture = 0;  // 0: any
};

std::vector<PlatformEntry> PlatformEntriesOf(const SupXmlProperties& properties);

// Whether an entry is for a machine of its type with this system and architecture; 0 is any there
// too.
bool Suits(const PlatformEntry& entry, std::uint32_t system, std::uint32_t architecture);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_PLATFORM_ENTRIES_H
