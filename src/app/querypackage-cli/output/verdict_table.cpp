#include "output/verdict_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "output/console_text.h"

namespace Vornik::Cli {

namespace {

enum class Paint { None, Good, Bad, Faint };

struct Cell {
  std::string text;
  Paint paint = Paint::None;
};

using Row = std::vector<Cell>;

struct Slot {
  const char* heading;
  std::uint32_t QueryPackageResult::*status;
};

constexpr std::array<Slot, 8> slots{{
    {"PLATFORM", &QueryPackageResult::platformFilterStatus},
    {"KOVU", &QueryPackageResult::kovuFilterStatus},
    {"SEP", &QueryPackageResult::sepFilterStatus},
    {"PAYLOAD", &QueryPackageResult::payloadExistFilterStatus},
    {"SUPERSEDE", &QueryPackageResult::supersedeFilterStatus},
    {"INCLUDE", &QueryPackageResult::includeIdFilterStatus},
    {"EXCLUDE", &QueryPackageResult::excludeIdFilterStatus},
    {"TYPE", &QueryPackageResult::updateTypeFilterStatus},
}};

// Wider texts do not widen their column.
constexpr std::size_t widestColumn = 64;

bool IsRefused(const QueryPackageResult& record) {
  return std::any_of(slots.begin(), slots.end(), [&record](const Slot& slot) {
    return record.*slot.status == FilterStatus::NotMatched;
  });
}

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
  for (const Slot& slot : slots) row.push_back({slot.heading});
  row.push_back({"REFUSED"});
  return row;
}

Row RecordRow(const QueryPackageResult& record) {
  Row row{TextCell(record.identificationCode, "(no code)"), TextCell(record.Version, "-"),
          TextCell(record.kovuName, "-")};
  for (const Slot& slot : slots) row.push_back(VerdictCell(record.*slot.status));
  row.push_back(IsRefused(record) ? Cell{"yes", Paint::Bad} : Cell{"no", Paint::Good});
  return row;
}

std::vector<std::size_t> ColumnWidths(const std::vector<Row>& rows) {
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::size_t width = CharacterCount(row[i].text);
      if (width <= widestColumn) widths[i] = std::max(widths[i], width);
    }
  }
  return widths;
}

std::string_view StartOf(Paint paint) {
  switch (paint) {
    case Paint::Good:
      return "\x1b[32m";
    case Paint::Bad:
      return "\x1b[31m";
    case Paint::Faint:
      return "\x1b[2m";
    case Paint::None:
      break;
  }
  return "";
}

void AppendRow(std::string& out, const Row& row, const std::vector<std::size_t>& widths,
               bool colour) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const Cell& cell = row[i];
    const std::string_view start = colour ? StartOf(cell.paint) : std::string_view();
    out += start;
    out += cell.text;
    if (!start.empty()) out += "\x1b[0m";
    if (i + 1 == row.size()) break;
    const std::size_t width = CharacterCount(cell.text);
    out.append(widths[i] > width ? widths[i] - width : 0, ' ');
    out += "  ";
  }
  out += '\n';
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
  const std::vector<std::size_t> widths = ColumnWidths(rows);
  std::string out;
  for (const Row& row : rows) AppendRow(out, row, widths, colour);
  return out + ClosingLine(records);
}

}  // namespace Vornik::Cli
