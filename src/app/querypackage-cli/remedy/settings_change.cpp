#include "remedy/settings_change.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <variant>

#include "model/filter_table.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

using Changes = std::vector<SettingChange>;

std::string TextOf(const std::string& id) { return id; }
std::string TextOf(UpdateType type) { return fmt::format("{}", static_cast<std::int32_t>(type)); }

// As it appears in a sentence.
std::string Shown(const std::string& id) { return Quoted(id); }
std::string Shown(UpdateType type) { return TextOf(type); }

// More than these are not spelled out.
constexpr std::size_t maxSpelledOut = 5;

template <typename Item>
std::vector<Item> MissingIn(const std::vector<Item>& items, const std::vector<Item>& other) {
  std::vector<Item> missing;
  std::copy_if(items.begin(), items.end(), std::back_inserter(missing), [&other](const Item& item) {
    return std::find(other.begin(), other.end(), item) == other.end();
  });
  return missing;
}

// what: of many items, what they are.
template <typename Item>
std::string OptionsFor(const std::vector<Item>& items, const char* option, const char* what) {
  if (items.size() > maxSpelledOut) {
    return fmt::format("{} for {} {} (--format json has them)", option, items.size(), what);
  }
  std::string text;
  for (const Item& item : items) {
    text += fmt::format("{}{} {}", text.empty() ? "" : " ", option, Shown(item));
  }
  return text;
}

template <typename Item>
std::string ChangeOf(const std::vector<Item>& before, const std::vector<Item>& after,
                     const char* option) {
  if (after.empty()) return fmt::format("no {} at all", option);
  // Only packages that the one in question is ranked with are many.
  const std::string added =
      OptionsFor(MissingIn(after, before), option, "packages that it is ranked with");
  const std::string removed = OptionsFor(MissingIn(before, after), option, "of its values");
  std::string text = added.empty() ? "" : "add " + added;
  if (!removed.empty()) text += (text.empty() ? "" : ", and ") + ("leave out " + removed);
  return text;
}

std::string ChangeOf(bool /*before*/, bool after, const char* option) {
  return fmt::format("{} {}", after ? "leave out" : "add", option);
}

template <typename Value>
void CompareFilterSetting(const Value& before, const Value& after, const FilterSetting& setting,
                          Changes& changes) {
  if (before == after) return;
  changes.push_back({setting.name, ChangeOf(before, after, setting.option)});
}

template <typename Code>
void CompareCodes(Code before, Code after, const char* setting, const char* option,
                  Changes& changes) {
  if (before == after) return;
  changes.push_back(
      {setting, fmt::format("{} {} instead of {}", option, static_cast<std::uint32_t>(after),
                            static_cast<std::uint32_t>(before))});
}

using Arguments = std::vector<std::string>;

void AddArguments(Arguments& arguments, const char* option, bool filter) {
  if (!filter) arguments.emplace_back(option);
}

template <typename Item>
void AddArguments(Arguments& arguments, const char* option, const std::vector<Item>& list) {
  for (const Item& item : list) arguments.insert(arguments.end(), {option, TextOf(item)});
}

}  // namespace

std::vector<SettingChange> ChangesBetween(const QuerySettings& before, const QuerySettings& after) {
  Changes changes;
  if (before.machineType != after.machineType) {
    changes.push_back({"machineType", fmt::format("--machine-type {} instead of {}",
                                                  after.machineType, before.machineType)});
  }
  CompareCodes(before.osValue, after.osValue, "osValue", "--os", changes);
  CompareCodes(before.arcValue, after.arcValue, "arcValue", "--arch", changes);
  for (const Filter* filter : FiltersWithSetting()) {
    const FilterSetting& setting = filter->setting.value();
    std::visit(
        [&](auto member) { CompareFilterSetting(before.*member, after.*member, setting, changes); },
        setting.member);
  }
  return changes;
}

std::vector<std::string> QueryArguments(const QuerySettings& settings) {
  Arguments arguments{"query",
                      "--machine-type",
                      settings.machineType,
                      "--os",
                      fmt::format("{}", static_cast<std::uint32_t>(settings.osValue)),
                      "--arch",
                      fmt::format("{}", static_cast<std::uint32_t>(settings.arcValue))};
  for (const Filter* filter : FiltersWithSetting()) {
    const FilterSetting& setting = filter->setting.value();
    std::visit([&](auto member) { AddArguments(arguments, setting.option, settings.*member); },
               setting.member);
  }
  // After the dashes a folder may begin with one.
  arguments.insert(arguments.end(), {"--", settings.folder});
  return arguments;
}

}  // namespace Vornik::Cli
