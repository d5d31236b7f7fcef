#include "lint/checks/shared_machines.h"

#include <algorithm>
#include <utility>

#include "model/query_parameters.h"

namespace Vornik::Cli {

namespace {

// For one machine type. More of them than any repository has; the limit keeps a hostile one from
// taking hours.
constexpr std::size_t maxPlatforms = 64;

bool IsSame(const PlatformEntry& a, const PlatformEntry& b) {
  return a.osValue == b.osValue && a.arcValue == b.arcValue;
}

// For one machine type. An entry that is for any system suits one that names a system, and the
// other way round.
bool Suit(const PlatformEntry& a, const PlatformEntry& b) {
  return EvaluatePlatformEntry(a, b.osValue, b.arcValue, b.machineType).IsMatch();
}

}  // namespace

SharedMachines::SharedMachines(std::vector<const LintPackage*> packages)
    : packages_(std::move(packages)), platforms_(packages_.size()) {}

bool SharedMachines::Have(std::size_t a, std::size_t b) {
  const Platforms& ofB = PlatformsOf(b);
  for (const auto& [machineType, entries] : PlatformsOf(a)) {
    const auto others = ofB.find(machineType);
    if (others == ofB.end()) continue;
    for (const PlatformEntry& entry : entries) {
      if (std::any_of(others->second.begin(), others->second.end(),
                      [&entry](const PlatformEntry& other) { return Suit(entry, other); })) {
        return true;
      }
    }
  }
  return false;
}

const SharedMachines::Platforms& SharedMachines::PlatformsOf(std::size_t package) {
  auto& platforms = platforms_[package];
  if (platforms) return *platforms;
  platforms.emplace();
  for (PlatformEntry& entry : ReadPlatformEntries(packages_[package]->Properties())) {
    if (!IsMachineType(entry.machineType)) continue;
    auto& entries = (*platforms)[entry.machineType];
    const bool isKnown =
        std::any_of(entries.begin(), entries.end(),
                    [&entry](const PlatformEntry& other) { return IsSame(entry, other); });
    if (!isKnown && entries.size() < maxPlatforms) entries.push_back(std::move(entry));
  }
  return *platforms;
}

}  // namespace Vornik::Cli
