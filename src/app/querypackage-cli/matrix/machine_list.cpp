#include "matrix/machine_list.h"

#include <fmt/format.h>

#include <utility>

namespace Vornik::Cli {

namespace {

template <typename Code>
std::string CodeText(Code code, bool isNamed) {
  return isNamed ? std::to_string(static_cast<std::uint32_t>(code)) : "other";
}

}  // namespace

void MachineList::Add(const Machine& machine, std::string name, std::uint64_t count) {
  const auto [known, isNew] =
      kindOf_.try_emplace({machine.machineType, machine.osValue, machine.arcValue}, kinds_.size());
  if (isNew) kinds_.push_back({machine, NameOf(machine), 0});
  MachineKind& kind = kinds_[known->second];
  kind.machines += count;
  machines_.push_back({name.empty() ? kind.name : std::move(name), count, known->second});
}

std::string NameOf(const Machine& machine) {
  return fmt::format("{}/{}/{}", machine.machineType, CodeText(machine.osValue, machine.osIsNamed),
                     CodeText(machine.arcValue, machine.arcIsNamed));
}

}  // namespace Vornik::Cli
