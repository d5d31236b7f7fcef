#include "remedy/platform_candidates.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <tuple>

#include "filters/platform.h"
#include "model/literals.h"
#include "model/query_parameters.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

using Codes = std::vector<std::uint32_t>;

// The numbers, in order and each once, that a property has anywhere in the repository. Not 0.
class NumberPool {
 public:
  explicit NumberPool(std::uint32_t first) { Add(first); }

  void AddOf(const char* property, const SupXmlProperties& properties) {
    for (const std::string& value : GetPropertyValues(property, properties)) {
      Add(static_cast<std::uint32_t>(ParseDecimal(value)));
    }
  }

  const Codes& Numbers() const { return numbers_; }

 private:
  void Add(std::uint32_t number) {
    if (number != anyCode && known_.insert(number).second) numbers_.push_back(number);
  }

  Codes numbers_;
  std::set<std::uint32_t> known_;
};

struct Pools {
  NumberPool systems;
  NumberPool architectures;

  void AddOf(const SupXmlProperties& properties) {
    systems.AddOf(PropertyName::orderedOSList, properties);
    systems.AddOf(PropertyName::applicableOperatingSystems, properties);
    architectures.AddOf(PropertyName::orderedOSArchitectureList, properties);
  }
};

Pools PoolsOf(const Repository& repository, const QuerySettings& settings) {
  Pools pools{NumberPool(static_cast<std::uint32_t>(settings.osValue)),
              NumberPool(static_cast<std::uint32_t>(settings.arcValue))};
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) {
    for (const PackageXmlEntry& member : pack.members) pools.AddOf(member.properties);
  }
  for (const PackageXmlEntry& entry : repository.packageXmlEntries()) pools.AddOf(entry.properties);
  return pools;
}

// The one number that an entry names, or all if it allows any.
template <typename Code>
Codes Allowed(Code listed, const NumberPool& pool) {
  return listed == Code::NotSet ? pool.Numbers() : Codes{static_cast<std::uint32_t>(listed)};
}

auto Key(const Machine& machine) {
  return std::tie(machine.machineType, machine.osValue, machine.arcValue);
}

}  // namespace

std::size_t Distance(const Machine& machine, const QuerySettings& settings) {
  return std::size_t{machine.machineType != settings.machineType} +
         std::size_t{machine.osValue != settings.osValue} +
         std::size_t{machine.arcValue != settings.arcValue};
}

std::vector<Machine> MatchingMachines(const SupXmlProperties& properties,
                                      const Repository& repository, const QuerySettings& settings) {
  const Pools pools = PoolsOf(repository, settings);
  std::vector<Machine> machines;
  for (const PlatformEntry& entry : ReadPlatformEntries(properties)) {
    if (!IsMachineType(entry.machineType)) continue;
    for (const std::uint32_t os : Allowed(entry.osValue, pools.systems)) {
      for (const std::uint32_t arc : Allowed(entry.arcValue, pools.architectures)) {
        machines.push_back(
            {entry.machineType, static_cast<OsValue>(os), static_cast<ArcValue>(arc)});
      }
    }
  }
  const auto rank = [&settings](const Machine& machine) {
    return std::make_tuple(Distance(machine, settings), machine.machineType != settings.machineType,
                           machine.osValue != settings.osValue);
  };
  std::sort(machines.begin(), machines.end(),
            [](const Machine& a, const Machine& b) { return Key(a) < Key(b); });
  machines.erase(std::unique(machines.begin(), machines.end(),
                             [](const Machine& a, const Machine& b) { return Key(a) == Key(b); }),
                 machines.end());
  std::stable_sort(machines.begin(), machines.end(),
                   [&rank](const Machine& a, const Machine& b) { return rank(a) < rank(b); });
  return machines;
}

}  // namespace Vornik::Cli
