#include "remedy/offered_machines.h"

#include <fmt/format.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "output/wording.h"
#include "remedy/trials.h"

namespace Vornik::Cli {

namespace {

template <typename Code>
std::string CodeText(Code code, bool isNamed) {
  return isNamed ? fmt::format("{}", static_cast<std::uint32_t>(code)) : "other";
}

// As the rows of the listing.
std::string TextOf(const Machine& machine) {
  return fmt::format("{}/{}/{}", machine.machineType, CodeText(machine.osValue, machine.osIsNamed),
                     CodeText(machine.arcValue, machine.arcIsNamed));
}

}  // namespace

OfferedMachines FindOfferedMachines(QueryModel& model, const NamedMachines& named,
                                    const QuerySettings& settings, const std::string& code) {
  OfferedMachines offered;
  const PropertySource source = model.SourceOf(code);
  if (source.entry == nullptr) return offered;
  FolderMachines candidates = named.MatchedBy(source.entry->properties, {});
  Trials trials(model, code);
  QuerySettings query = settings;
  for (Machine& machine : candidates.machines) {
    query.machineType = machine.machineType;
    query.osValue = machine.osValue;
    query.arcValue = machine.arcValue;
    if (trials.Passes(query)) offered.machines.push_back(std::move(machine));
  }
  offered.isComplete = candidates.isComplete && !trials.HasReachedLimit();
  return offered;
}

std::string TextOf(const OfferedMachines& offered, ListLength length) {
  std::vector<std::string> machines;
  machines.reserve(offered.machines.size());
  for (const Machine& machine : offered.machines) machines.push_back(TextOf(machine));
  if (machines.empty()) {
    return offered.isComplete
               ? "With the other settings as they are, no machine of the folder gets it."
               : "With the other settings as they are, no machine of the folder was found that "
                 "gets "
                 "it; not all were tried.";
  }
  return fmt::format("With the other settings as they are, {}{} of the folder {} it: {}{}.",
                     offered.isComplete ? "" : "at least ", Count(machines.size(), "machine"),
                     machines.size() == 1 ? "gets" : "get", PlainList(machines, length),
                     offered.isComplete ? "" : "; not all were tried");
}

}  // namespace Vornik::Cli
