#include "remedy/settings_change.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

namespace Vornik::Cli {

namespace {

using Changes = std::vector<SettingChange>;

std::string TextOf(const std::string& id) { return fmt::format("\"{}\"", id); }
std::string TextOf(UpdateType type) { return fmt::format("{}", static_cast<std::int32_t>(type)); }

template <typename Item>
std::string ItemsMissingIn(const std::vector<Item>& items, const std::vector<Item>& other,
                           const char* option) {
  std::string text;
  for (const Item& item : items) {
    if (std::find(other.begin(), other.end(), item) != other.end()) continue;
    if (!text.empty()) text += ' ';
    text += fmt::format("{} {}", option, TextOf(item));
  }
  return text;
}

template <typename Item>
void CompareLists(const std::vector<Item>& before, const std::vector<Item>& after,
                  const char* setting, const char* option, Changes& changes) {
  if (before == after) return;
  if (after.empty()) {
    changes.push_back({setting, fmt::format("no {} at all", option)});
    return;
  }
  const std::string added = ItemsMissingIn(after, before, option);
  const std::string removed = ItemsMissingIn(before, after, option);
  std::string text = added.empty() ? "" : "add " + added;
  if (!removed.empty()) text += (text.empty() ? "" : ", and ") + ("leave out " + removed);
  changes.push_back({setting, text});
}

template <typename Code>
void CompareCodes(Code before, Code after, const char* setting, const char* option,
                  Changes& changes) {
  if (before == after) return;
  changes.push_back(
      {setting, fmt::format("{} {} instead of {}", option, static_cast<std::uint32_t>(after),
                            static_cast<std::uint32_t>(before))});
}

void CompareSwitches(bool before, bool after, const char* setting, const char* option,
                     Changes& changes) {
  if (before == after) return;
  changes.push_back({setting, fmt::format("{} {}", after ? "leave out" : "add", option)});
}

void AddRepeated(std::vector<std::string>& arguments, const char* option,
                 const std::vector<std::string>& values) {
  for (const std::string& value : values) arguments.insert(arguments.end(), {option, value});
}

void AddSwitches(std::vector<std::string>& arguments, const QuerySettings& settings) {
  if (!settings.kovuFilter) arguments.emplace_back("--no-kovu-filter");
  if (!settings.sepFilter) arguments.emplace_back("--no-sep-filter");
  if (!settings.payloadExistFilter) arguments.emplace_back("--no-payload-exist-filter");
  if (!settings.supersedeFilter) arguments.emplace_back("--no-supersede-filter");
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
  CompareLists(before.updateTypes, after.updateTypes, "updateTypes", "--update-type", changes);
  CompareLists(before.includePackageIds, after.includePackageIds, "includePackageIds", "--include",
               changes);
  CompareLists(before.excludePackageIds, after.excludePackageIds, "excludePackageIds", "--exclude",
               changes);
  CompareSwitches(before.kovuFilter, after.kovuFilter, "kovuFilter", "--no-kovu-filter", changes);
  CompareSwitches(before.sepFilter, after.sepFilter, "sepFilter", "--no-sep-filter", changes);
  CompareSwitches(before.payloadExistFilter, after.payloadExistFilter, "payloadExistFilter",
                  "--no-payload-exist-filter", changes);
  CompareSwitches(before.supersedeFilter, after.supersedeFilter, "supersedeFilter",
                  "--no-supersede-filter", changes);
  return changes;
}

std::vector<std::string> QueryArguments(const QuerySettings& settings) {
  std::vector<std::string> arguments{
      "query",
      "--machine-type",
      settings.machineType,
      "--os",
      fmt::format("{}", static_cast<std::uint32_t>(settings.osValue)),
      "--arch",
      fmt::format("{}", static_cast<std::uint32_t>(settings.arcValue))};
  for (const UpdateType type : settings.updateTypes) {
    arguments.insert(arguments.end(),
                     {"--update-type", fmt::format("{}", static_cast<std::int32_t>(type))});
  }
  AddRepeated(arguments, "--include", settings.includePackageIds);
  AddRepeated(arguments, "--exclude", settings.excludePackageIds);
  AddSwitches(arguments, settings);
  // Behind the dashes a folder may begin with one.
  arguments.insert(arguments.end(), {"--", settings.folder});
  return arguments;
}

}  // namespace Vornik::Cli
