#include "remedy/platform_candidates.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Vornik::Cli {

std::size_t Distance(const Machine& machine, const QuerySettings& settings) {
  return std::size_t{machine.machineType != settings.machineType} +
         std::size_t{machine.osValue != settings.osValue} +
         std::size_t{machine.arcValue != settings.arcValue};
}

std::vector<Machine> MatchingMachines(const SupXmlProperties& properties,
                                      const NamedMachines& named, const QuerySettings& settings) {
  std::vector<Machine> machines =
      named.MatchedBy(properties, {settings.machineType, settings.osValue, settings.arcValue})
          .machines;
  const auto rank = [&settings](const Machine& machine) {
    return std::make_tuple(Distance(machine, settings), machine.machineType != settings.machineType,
                           machine.osValue != settings.osValue);
  };
  std::stable_sort(machines.begin(), machines.end(),
                   [&rank](const Machine& a, const Machine& b) { return rank(a) < rank(b); });
  return machines;
}

}  // namespace Vornik::Cli
