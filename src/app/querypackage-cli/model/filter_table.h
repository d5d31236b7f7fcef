// What the program knows about each filter, in one table: options, documents, tables, comparisons
// and explanations follow its rows.
#ifndef VORNIK_CLI_MODEL_FILTER_TABLE_H
#define VORNIK_CLI_MODEL_FILTER_TABLE_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "QueryPackage.h"
#include "log_texts.h"
#include "model/query_settings.h"

namespace Vornik {
class QueryPackageImp;
struct PropertySource;
}  // namespace Vornik

namespace Vornik::Cli {

struct FilterExplanation;
struct FilterInput;
struct PackageContext;

// Whether the verdict depends on the package and the filter's own setting alone, so that a remedy
// may change that setting without a look at the others.
enum class Dependence { Independent, Interdependent };

// What a user sets of a filter: a switch, or a list that switches the filter off when it is empty.
struct FilterSetting {
  using Member = std::variant<bool QuerySettings::*, std::vector<std::string> QuerySettings::*,
                              std::vector<UpdateType> QuerySettings::*>;

  const char* name;  // in documents
  Member member;
  void (*apply)(const QuerySettings& settings, QueryPackageImp& query);
  const char* option;  // switches the filter off, or adds an item to the list
  const char* help;
  const char* offBecause;  // one sentence
  Dependence dependence;
  const char* item = "";  // what the help calls an item of a list
  // Adds to an independent list what the package itself has.
  void (*addOwn)(const PropertySource& package, QuerySettings& settings) = nullptr;
};

// A line that is logged for a reason of a FilterExplanation.
struct ReasonLine {
  const char* reason = nullptr;
  const char* line = nullptr;
};

// What a filter logs about one package.
struct FilterLines {
  const char* matched = nullptr;  // after the code; null: the verdict is not logged
  const char* notMatched = nullptr;
  const char* noProperties = nullptr;  // null: it does not look them up
  std::array<ReasonLine, 3> errors{};  // unused ones are null
};

struct Filter {
  FilterId id = FilterId::Duplicate;
  const char* name = "";                              // for programs and people
  const char* slotName = "";                          // empty: the duplicate filter has no slot
  std::uint32_t QueryPackageResult::*slot = nullptr;  // null: the duplicate filter
  const char* column = "";                            // heading of its slot in a table
  const StageText& stage;                             // its first and last line in the log
  FilterLines lines;
  const char* rule = "";  // one sentence
  // The slot's value where the filter runs; null: it depends on the other packages.
  std::uint32_t (*evaluate)(const FilterInput& input) = nullptr;
  FilterExplanation (*explain)(const PackageContext& package) = nullptr;
  std::optional<FilterSetting> setting = std::nullopt;  // none: it always runs
  // Without it there is no verdict; null: needs none, or several.
  const char* neededProperty = nullptr;
};

// In the order in which they run.
const std::array<Filter, filterCount>& Filters();
const Filter& FilterOf(FilterId id);

// Those with a setting, in the order of the options.
const std::vector<const Filter*>& FiltersWithSetting();

bool Runs(const Filter& filter, const QuerySettings& settings);
bool Runs(FilterId id, const QuerySettings& settings);

// Whether one of the filters does not match the record.
bool IsRefused(const QueryPackageResult& record);

// Every filter that ran matched the record.
bool IsMatchedByAll(const QueryPackageResult& record, const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_FILTER_TABLE_H
