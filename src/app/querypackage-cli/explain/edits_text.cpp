#include "explain/edits_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "model/filter_table.h"
#include "output/wording.h"
#include "remedy/edit_text.h"

namespace Vornik::Cli {

namespace {

std::string TextOf(const Machine& machine) {
  return fmt::format("{}/{}/{}", machine.machineType, static_cast<std::uint32_t>(machine.osValue),
                     static_cast<std::uint32_t>(machine.arcValue));
}

std::string TextOf(const OfferChanges& changes) {
  std::string text;
  if (!changes.withdrawn.empty()) text = "withdraws " + CodeList(changes.withdrawn);
  if (changes.offered.empty()) return text;
  return text + (text.empty() ? "" : " and ") + "offers " + CodeList(changes.offered);
}

// One that loses a package is the better example.
const MachineChanges& ExampleOf(const std::vector<MachineChanges>& machines) {
  const auto withdraws =
      std::find_if(machines.begin(), machines.end(),
                   [](const MachineChanges& each) { return !each.changes.withdrawn.empty(); });
  return withdraws == machines.end() ? machines.front() : *withdraws;
}

std::string TextOf(const std::vector<MachineChanges>& machines) {
  const MachineChanges& example = ExampleOf(machines);
  const std::string machine = TextOf(example.machine);
  return machines.size() == 1
             ? fmt::format("On 1 other machine, {}, it {}.", machine, TextOf(example.changes))
             : fmt::format("On {} other machines, such as {}, it {}.", machines.size(), machine,
                           TextOf(example.changes));
}

void AddRemedy(const std::string& title, const RepositoryRemedy& remedy,
               std::vector<std::string>& lines) {
  lines.push_back(title + ':');
  for (const std::string& line : LinesOf(remedy.edits)) lines.push_back("  " + line);
  const std::string effects = TextOf(remedy.effects);
  if (!effects.empty()) lines.push_back("  " + effects);
}

std::string SizeOf(const RepositoryRemedy& remedy) { return Count(remedy.edits.size(), "edit"); }

// Of the remedies that are not shown.
std::string OthersText(const RepositoryRemedies& remedies) {
  const std::size_t others = remedies.smallest.size() - 1 + (remedies.sparing ? 1 : 0);
  if (others == 0) return "";
  return fmt::format(" ({} more with --verbose{})", others,
                     remedies.sparing ? ", one without a loss" : "");
}

}  // namespace

std::string TextOf(const EditEffects& effects) {
  std::string text;
  const auto add = [&text](const std::string& sentence) {
    text += (text.empty() ? "" : " ") + sentence;
  };
  if (!effects.changes.IsEmpty()) add("It also " + TextOf(effects.changes) + '.');
  if (!effects.machines.empty()) add(TextOf(effects.machines));
  if (!effects.isComplete) add("Not every machine was evaluated.");
  return text;
}

std::string NoEditText(const RepositoryRemedies& remedies) {
  if (remedies.state == RemedyState::Unknown) {
    return "No edit of the repository was found; not all were tried.";
  }
  if (!remedies.obstacle) return "No edit of the repository makes every filter match.";
  const char* filter = FilterOf(*remedies.obstacle).name;
  if (remedies.isFixed) {
    return fmt::format(
        "No edit of the repository helps: the {} filter goes by the code and the settings.",
        filter);
  }
  return fmt::format("No edit of the repository was found that makes the {} filter match.", filter);
}

std::vector<std::string> EditLines(const RepositoryRemedies& remedies, EditDetail detail) {
  if (remedies.smallest.empty()) return {NoEditText(remedies)};
  const bool isBrief = detail == EditDetail::Brief;
  std::vector<std::string> lines;
  const RepositoryRemedy& first = remedies.smallest.front();
  AddRemedy("In the repository, " + SizeOf(first) + (isBrief ? OthersText(remedies) : ""), first,
            lines);
  if (!isBrief) {
    for (std::size_t i = 1; i < remedies.smallest.size(); ++i) {
      AddRemedy("or, " + SizeOf(remedies.smallest[i]), remedies.smallest[i], lines);
    }
    if (remedies.sparing) {
      AddRemedy("or, without a loss, " + SizeOf(*remedies.sparing), *remedies.sparing, lines);
    }
  }
  if (remedies.searchEnded) lines.emplace_back("Not all edits were tried.");
  return lines;
}

}  // namespace Vornik::Cli
