#include "output/verdict_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "model/filter_table.h"
#include "output/columns.h"
#include "output/console_text.h"

namespace Vornik::Cli {

namespace {

Cell VerdictCell(std::uint32_t status) {
  switch (status) {
    case FilterStatus::Matched:
      return {"pass", Paint::Good};
    case FilterStatus::NotMatched:
      return {"fail", Paint::Bad};
    default:
      return {"none", Paint::Faint};
  }
}

Cell TextCell(const std::string& text, const char* ifEmpty) {
  return text.empty() ? Cell{ifEmpty, Paint::Faint} : Cell{Printable(text), Paint::None};
}

Row Heading() {
  Row row{{"CODE"}, {"VERSION"}, {"PACK"}};
  for (const Filter& filter : Filters()) {
    if (filter.slot != nullptr) row.push_back({filter.column});
  }
  row.push_back({"REFUSED"});
  return row;
}

Row RecordRow(const QueryPackageResult& record) {
  Row row{TextCell(record.identificationCode, "(no code)"), TextCell(record.Version, "-"),
          TextCell(record.kovuName, "-")};
  for (const Filter& filter : Filters()) {
    if (filter.slot != nullptr) row.push_back(VerdictCell(record.*filter.slot));
  }
  row.push_back(IsRefused(record) ? Cell{"yes", Paint::Bad} : Cell{"no", Paint::Good});
  return row;
}

std::string ClosingLine(const std::vector<QueryPackageResult>& records) {
  const auto refused =
      static_cast<std::size_t>(std::count_if(records.begin(), records.end(), IsRefused));
  return fmt::format(
      "{} package{}: {} refused by a filter, {} refused by none. Which of them to install is the "
      "host's decision.\n",
      records.size(), records.size() == 1 ? "" : "s", refused, records.size() - refused);
}

}  // namespace

std::string VerdictTable(const std::vector<QueryPackageResult>& records, bool colour) {
  std::vector<Row> rows{Heading()};
  for (const QueryPackageResult& record : records) rows.push_back(RecordRow(record));
  return InColumns(rows, colour) + ClosingLine(records);
}

}  // namespace Vornik::Cli
