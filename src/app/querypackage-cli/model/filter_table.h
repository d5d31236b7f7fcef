// The filters of a query, in the order in which they run.
#ifndef VORNIK_CLI_MODEL_FILTER_TABLE_H
#define VORNIK_CLI_MODEL_FILTER_TABLE_H

#include <array>
#include <cstdint>

#include "QueryPackage.h"
#include "commands/options.h"
#include "log_texts.h"

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

struct Filter {
  FilterId id;
  const char* name;                         // for programs and people
  const char* slotName;                     // empty: the duplicate filter has no slot
  std::uint32_t QueryPackageResult::*slot;  // null: the duplicate filter
  const char* rule;                         // one sentence
  const char* offBecause;                   // one sentence; null: it always runs
  StageText stage;                          // its lines in the log
};

inline constexpr std::size_t filterCount = 9;

const std::array<Filter, filterCount>& Filters();
const Filter& FilterOf(FilterId id);

bool Runs(FilterId id, const QuerySettings& settings);

// Every filter that ran matched the record.
bool IsMatchedByAll(const QueryPackageResult& record, const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_FILTER_TABLE_H
