// What the program knows about each filter, in one table: options, documents, tables, comparisons
// and explanations follow its rows.
#ifndef VORNIK_CLI_MODEL_FILTER_TABLE_H
#define VORNIK_CLI_MODEL_FILTER_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "QueryPackage.h"
#include "log_texts.h"
#include "model/query_settings.h"

namespace Vornik::Cli {

enum class FilterId {
  Duplicate,
  Platform,
  Kovu,
  Sep,
  PayloadExist,
  Supersede,
  IncludeId,
  ExcludeId,
  UpdateType,
};

inline constexpr std::size_t filterCount = 9;

// What a user sets of a filter: a switch, or a list that switches the filter off when it is empty.
struct FilterSetting {
  using Member = std::variant<bool QuerySettings::*, std::vector<std::string> QuerySettings::*,
                              std::vector<UpdateType> QuerySettings::*>;

  const char* name;  // in documents
  Member member;
  void (*apply)(const QuerySettings& settings, QueryPackage& query);
  const char* option;  // switches the filter off, or adds an item to the list
  const char* item;    // what the help calls an item; empty for a switch
  const char* help;
};

struct Filter {
  FilterId id;
  const char* name;                         // for programs and people
  const char* slotName;                     // empty: the duplicate filter has no slot
  std::uint32_t QueryPackageResult::*slot;  // null: the duplicate filter
  const char* column;                       // heading of its slot in a table
  const StageText& stage;                   // its lines in the log
  const char* rule;                         // one sentence
  const char* offBecause;                   // one sentence; null: it always runs
  std::optional<FilterSetting> setting;     // none: it always runs
};

// In the order in which they run.
const std::array<Filter, filterCount>& Filters();
const Filter& FilterOf(FilterId id);

// The filters' settings in the order of the options.
const std::vector<FilterSetting>& FilterSettings();

bool Runs(const Filter& filter, const QuerySettings& settings);
bool Runs(FilterId id, const QuerySettings& settings);

// Whether one of the filters does not match the record.
bool IsRefused(const QueryPackageResult& record);

// Every filter that ran matched the record.
bool IsMatchedByAll(const QueryPackageResult& record, const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_FILTER_TABLE_H
