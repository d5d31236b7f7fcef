#include "query/columns.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "model/filter_table.h"
#include "output/wording.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

using Record = QueryPackageResult;

struct TextColumn {
  const char* name;
  const char* heading;
  const char* ifEmpty;
  std::string Record::*text;
};

constexpr std::array<TextColumn, 4> textColumns{{
    {"code", "CODE", "(no code)", &Record::identificationCode},
    {"version", "VERSION", "-", &Record::Version},
    {"type", "TYPE", "-", &Record::type},
    {"pack", "PACK", "-", &Record::kovuName},
}};

Cell VerdictCell(std::uint32_t status, bool runs) {
  switch (status) {
    case FilterStatus::Matched:
      return {"pass", Paint::Good};
    case FilterStatus::NotMatched:
      return {"fail", Paint::Bad};
    default:
      return {runs ? "none" : "off", Paint::Faint};
  }
}

Cell OfferedCell(Answer answer) {
  switch (answer) {
    case Answer::Offered:
      return {"yes", Paint::Good};
    case Answer::Refused:
      return {"no", Paint::Bad};
    case Answer::Undecided:
      break;
  }
  return {"undecided", Paint::Warning};
}

// By their headings, in lower case.
std::string NamesOf(const std::vector<FilterId>& filters) {
  std::string names;
  for (const FilterId filter : filters) {
    if (!names.empty()) names += ", ";
    names += FoldByGlobalLocale(FilterOf(filter).column);
  }
  return names;
}

// Where none refuses, those that lack their data.
Cell RefusedByCell(const PackageAnswer& answer) {
  if (answer.answer == Answer::Undecided) {
    return {"none: " + NamesOf(answer.undecidedBy), Paint::Warning};
  }
  return {NamesOf(answer.refusedBy), Paint::None};
}

ResultColumn FilterColumn(const Filter& filter, bool runs) {
  return {filter.name, filter.column, "", [slot = filter.slot, runs](const ResultRow& row) {
            return VerdictCell(row.record->*slot, runs);
          }};
}

bool IsUsual(const std::string& name, const QuerySettings& settings, bool narrow) {
  if (name == "file" || name == "type") return false;
  if (name == "refusedBy") return narrow;
  if (name == "pack") return !narrow;
  const auto filter = std::find_if(Filters().begin(), Filters().end(),
                                   [&name](const Filter& one) { return name == one.name; });
  return filter == Filters().end() || (!narrow && Runs(*filter, settings));
}

}  // namespace

std::vector<ResultColumn> AllColumns(const QuerySettings& settings) {
  std::vector<ResultColumn> columns;
  columns.reserve(textColumns.size() + Filters().size() + 2);
  for (const TextColumn& column : textColumns) {
    columns.push_back(
        {column.name, column.heading, column.ifEmpty, [text = column.text](const ResultRow& row) {
           return Cell{row.record->*text, Paint::None};
         }});
  }
  columns.push_back({"file", "FILE", "-", [](const ResultRow& row) {
                       return Cell{FileNameOf(row.record->packageXmlFile), Paint::None};
                     }});
  for (const Filter& filter : Filters()) {
    if (filter.slot != nullptr) columns.push_back(FilterColumn(filter, Runs(filter, settings)));
  }
  columns.push_back({"refusedBy", "REFUSED BY", "-",
                     [](const ResultRow& row) { return RefusedByCell(row.answer); }});
  columns.push_back({"offered", "OFFERED", "",
                     [](const ResultRow& row) { return OfferedCell(row.answer.answer); }});
  return columns;
}

std::vector<ResultColumn> UsualColumns(const QuerySettings& settings, bool narrow) {
  std::vector<ResultColumn> usual;
  for (ResultColumn& column : AllColumns(settings)) {
    if (IsUsual(column.name, settings, narrow)) usual.push_back(std::move(column));
  }
  return usual;
}

std::vector<std::string> ColumnNames() {
  std::vector<std::string> names;
  for (const ResultColumn& column : AllColumns({})) names.push_back(column.name);
  return names;
}

}  // namespace Vornik::Cli
