// The ordered lists: one position has to have the machine.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "model/literals.h"
#include "remedy/ways/ways.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxWays = 3;

using Texts = std::vector<std::string>;

struct OrderedList {
  const char* property;
  Texts values;
  std::string wanted;
  bool isNumber;

  bool Fits(std::size_t position) const {
    if (position >= values.size()) return false;
    if (!isNumber) return values[position] == wanted;
    const auto number = static_cast<std::uint32_t>(ParseDecimal(values[position]));
    return number == anyCode || fmt::format("{}", number) == wanted;
  }

  // A list that is too short gets the wanted value at all positions before, too.
  Texts With(std::size_t position) const {
    Texts changed = values;
    if (changed.size() <= position) changed.resize(position + 1, wanted);
    changed[position] = wanted;
    return changed;
  }
};

using Lists = std::array<OrderedList, 3>;

Lists ListsOf(const EditTarget& target) {
  const SupXmlProperties& properties = target.source.entry->properties;
  const auto values = [&properties](const char* name) {
    return GetPropertyValues(name, properties);
  };
  const auto number = [](auto code) { return fmt::format("{}", static_cast<std::uint32_t>(code)); };
  const QuerySettings& settings = target.settings;
  return {{{PropertyName::orderedMachineTypeList, values(PropertyName::orderedMachineTypeList),
            settings.machineType, false},
           {PropertyName::orderedOSList, values(PropertyName::orderedOSList),
            number(settings.osValue), true},
           {PropertyName::orderedOSArchitectureList,
            values(PropertyName::orderedOSArchitectureList), number(settings.arcValue), true}}};
}

// One position that can get the machine.
struct Position {
  std::size_t index;
  std::size_t edits;        // lists to change
  bool takesNothing;        // no other machine has it
  std::size_t fittingType;  // 0: the machine type fits
};

std::vector<Position> PositionsOf(const Lists& lists, bool spare) {
  const auto shorter = [](const OrderedList& a, const OrderedList& b) {
    return a.values.size() < b.values.size();
  };
  const std::size_t reached = std::min_element(lists.begin(), lists.end(), shorter)->values.size();
  const std::size_t longest = std::max_element(lists.begin(), lists.end(), shorter)->values.size();
  std::vector<Position> positions;
  // With a position after the first that is not reached, others before it would be reached, too.
  for (std::size_t i = spare ? reached : 0; i <= (spare ? reached : longest); ++i) {
    const auto edits = static_cast<std::size_t>(std::count_if(
        lists.begin(), lists.end(), [i](const OrderedList& list) { return !list.Fits(i); }));
    positions.push_back({i, edits, i == reached, lists[0].Fits(i) ? 0U : 1U});
  }
  return positions;
}

Edits EditsFor(const EditTarget& target, const Lists& lists, std::size_t position) {
  Edits edits;
  for (const OrderedList& list : lists) {
    if (!list.Fits(position)) edits.push_back(target.Set(list.property, list.With(position)));
  }
  return edits;
}

}  // namespace

std::vector<Edits> PlatformWays(const EditTarget& target, bool spare) {
  const Lists lists = ListsOf(target);
  std::vector<Position> positions = PositionsOf(lists, spare);
  std::stable_sort(positions.begin(), positions.end(), [](const Position& a, const Position& b) {
    if (a.edits != b.edits) return a.edits < b.edits;
    if (a.takesNothing != b.takesNothing) return a.takesNothing;
    return a.fittingType < b.fittingType;
  });
  std::vector<Edits> ways;
  for (const Position& position : positions) {
    if (ways.size() == maxWays || position.edits != positions.front().edits) break;
    ways.push_back(EditsFor(target, lists, position.index));
  }
  return ways;
}

}  // namespace Vornik::Cli
