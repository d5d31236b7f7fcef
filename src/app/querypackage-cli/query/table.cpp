#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "output/console_text.h"
#include "output/csv.h"
#include "output/wording.h"
#include "query/output.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t narrowWidth = 80;

std::vector<ResultColumn> ChosenColumns(const std::vector<std::string>& names,
                                        const QuerySettings& settings) {
  const std::vector<ResultColumn> all = AllColumns(settings);
  std::vector<ResultColumn> chosen;
  chosen.reserve(names.size());
  for (const std::string& name : names) {
    chosen.push_back(*std::find_if(all.begin(), all.end(), [&name](const ResultColumn& column) {
      return column.name == name;
    }));
  }
  return chosen;
}

Cell TableCell(const ResultColumn& column, const ResultRow& row) {
  Cell cell = column.cell(row);
  if (cell.text.empty()) return {column.ifEmpty, Paint::Faint};
  return {Printable(cell.text), cell.paint};
}

std::vector<Row> TableRows(const std::vector<ResultColumn>& columns,
                           const std::vector<ResultRow>& rows) {
  std::vector<Row> table(1);
  table.reserve(rows.size() + 1);
  for (const ResultColumn& column : columns) table.front().push_back({column.heading});
  for (const ResultRow& row : rows) {
    Row& cells = table.emplace_back();
    cells.reserve(columns.size());
    for (const ResultColumn& column : columns) cells.push_back(TableCell(column, row));
  }
  return table;
}

std::string TableOf(const QueryAnswer& answer, const QueryView& view,
                    const std::vector<ResultRow>& rows, bool colour) {
  if (!view.columns.empty()) {
    return InColumns(TableRows(ChosenColumns(view.columns, answer.settings), rows), colour);
  }
  const auto wide = TableRows(UsualColumns(answer.settings, false), rows);
  if (WidthInColumns(wide) <= narrowWidth) return InColumns(wide, colour);
  return InColumns(TableRows(UsualColumns(answer.settings, true), rows), colour);
}

std::string ClosingLine(const QueryAnswer& answer) {
  std::array<std::size_t, 3> counts{};
  for (const QueryPackageResult& record : answer.records) {
    ++counts[static_cast<std::size_t>(AnswerFor(record, answer.settings).answer)];
  }
  return fmt::format(
      "{}: {} offered, {} refused, {} undecided. Which of them to install is the host's "
      "decision.\n",
      Count(answer.records.size(), "package"), counts[static_cast<std::size_t>(Answer::Offered)],
      counts[static_cast<std::size_t>(Answer::Refused)],
      counts[static_cast<std::size_t>(Answer::Undecided)]);
}

// Offered ones first, then those that are undecided.
int RankOf(Answer answer) {
  if (answer == Answer::Offered) return 0;
  return answer == Answer::Undecided ? 1 : 2;
}

void Sort(const std::string& name, const QuerySettings& settings, std::vector<ResultRow>& rows) {
  if (name == "offered") {
    std::stable_sort(rows.begin(), rows.end(), [](const ResultRow& a, const ResultRow& b) {
      return RankOf(a.answer.answer) < RankOf(b.answer.answer);
    });
    return;
  }
  const ResultColumn column = ChosenColumns({name}, settings).front();
  std::vector<std::pair<std::string, std::size_t>> keys;
  for (std::size_t i = 0; i < rows.size(); ++i) keys.emplace_back(column.cell(rows[i]).text, i);
  std::sort(keys.begin(), keys.end());
  std::vector<ResultRow> sorted;
  sorted.reserve(rows.size());
  for (const auto& key : keys) sorted.push_back(std::move(rows[key.second]));
  rows = std::move(sorted);
}

}  // namespace

std::vector<ResultRow> RowsOf(const QueryAnswer& answer, const QueryView& view) {
  std::vector<ResultRow> rows;
  rows.reserve(answer.records.size());
  for (const QueryPackageResult& record : answer.records) {
    PackageAnswer one = AnswerFor(record, answer.settings);
    if (view.onlyOffered && one.answer != Answer::Offered) continue;
    rows.push_back({&record, std::move(one)});
  }
  if (!view.sortBy.empty()) Sort(view.sortBy, answer.settings, rows);
  return rows;
}

std::string QueryTable(const QueryAnswer& answer, const QueryView& view, bool quiet, bool colour) {
  std::string table = TableOf(answer, view, RowsOf(answer, view), colour);
  if (quiet) return table;
  return table + Printable(TextOf(answer.pack, answer.settings)) + '\n' + ClosingLine(answer);
}

std::string NoResultsAdvice(const QueryAnswer& answer) {
  const std::string start = "the folder has no package for this machine: ";
  if (answer.pack.packs == 0) {
    return start +
           "it needs package descriptors whose file names end in \".xml\"; \"querypackage-cli "
           "lint\" "
           "says what is wrong with the files";
  }
  if (!answer.pack.file.empty()) {
    return fmt::format(
        "{}it has no individual descriptor, and {}, the pack in use, lists no package", start,
        answer.pack.file);
  }
  return start + "it has no individual descriptor. " + TextOf(answer.pack, answer.settings);
}

std::string QueryCsv(const QueryAnswer& answer, const QueryView& view) {
  const std::vector<ResultColumn> columns = view.columns.empty()
                                                ? UsualColumns(answer.settings, false)
                                                : ChosenColumns(view.columns, answer.settings);
  std::vector<std::string> fields;
  fields.reserve(columns.size());
  for (const ResultColumn& column : columns) fields.push_back(column.name);
  std::string text = CsvLine(fields);
  for (const ResultRow& row : RowsOf(answer, view)) {
    fields.clear();
    for (const ResultColumn& column : columns) fields.push_back(column.cell(row).text);
    text += CsvLine(fields);
  }
  return text;
}

}  // namespace Vornik::Cli
