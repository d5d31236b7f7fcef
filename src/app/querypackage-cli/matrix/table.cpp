#include <fmt/format.h>

#include <algorithm>

#include "matrix/output.h"
#include "output/columns.h"
#include "output/console_text.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxListed = 20;

// The first lines of a list below a heading, and how many more there are.
template <typename Items, typename MakeLine>
std::string Section(const std::string& heading, const Items& items, MakeLine lineOf) {
  if (items.empty()) return "";
  std::string text = fmt::format("{}: {}\n", heading, items.size());
  const std::size_t shown = std::min<std::size_t>(items.size(), maxListed);
  for (std::size_t i = 0; i < shown; ++i) text += "  " + Printable(lineOf(items[i])) + '\n';
  if (shown < items.size()) {
    text += fmt::format("  and {} more, which the other formats list\n", items.size() - shown);
  }
  return text;
}

std::string CodeOrNone(const std::string& code) { return code.empty() ? "(no code)" : code; }

Paint PaintOf(const MatrixCell& cell) {
  if (cell.IsOffered()) return Paint::Good;
  if (cell.IsAbsent()) return Paint::Faint;
  return cell.RefusedBy().empty() ? Paint::Warning : Paint::Bad;
}

Cell CellOf(const MatrixReport& report, const KindResult& kind, std::size_t package) {
  const MatrixCell& cell = kind.cells[package];
  if (report.onlyOffered && !cell.IsOffered()) return {"-", Paint::Faint};
  if (!report.withReasons || cell.IsOffered()) return {TextOf(cell), PaintOf(cell)};
  return {Printable(fmt::format("{}: {}", cell.Name(), kind.reasons[kind.reasonOf[package]])),
          PaintOf(cell)};
}

bool IsOfferedToAny(const MatrixReport& report, std::size_t package) {
  return std::any_of(report.matrix.kinds.begin(), report.matrix.kinds.end(),
                     [package](const KindResult& kind) { return kind.cells[package].IsOffered(); });
}

Row HeadingOf(const MatrixReport& report) {
  Row heading{{"CODE"}};
  for (const MachineKind& kind : report.machines.Kinds()) heading.push_back({kind.name});
  return heading;
}

std::vector<Row> RowsOf(const MatrixReport& report) {
  std::vector<Row> rows{HeadingOf(report)};
  for (std::size_t i = 0; i < report.matrix.packages.size(); ++i) {
    if (report.onlyOffered && !IsOfferedToAny(report, i)) continue;
    Row& row = rows.emplace_back();
    row.push_back({Printable(CodeOrNone(report.matrix.packages[i]))});
    for (const KindResult& kind : report.matrix.kinds) {
      row.push_back(CellOf(report, kind, i));
    }
  }
  return rows;
}

}  // namespace

std::string MatrixSummaryText(const MatrixReport& report) {
  const std::vector<MachineKind>& kinds = report.machines.Kinds();
  const std::vector<std::string>& packages = report.matrix.packages;
  const MatrixSummary& summary = report.summary;
  std::string text = fmt::format("{} of {}, {}\n", Count(summary.machines, "machine"),
                                 Count(kinds.size(), "kind"), Count(packages.size(), "package"));
  text += Section("Kinds of machines that get nothing", summary.nothing, [&](const auto& one) {
    return fmt::format("{}  {}", kinds[one.kind].name,
                       TextOf(report.matrix.kinds[one.kind], one.commonest));
  });
  text += Section("Packages that no machine gets", summary.unreachable, [&](const auto& one) {
    return fmt::format("{}  {}: {}", CodeOrNone(packages[one.package]),
                       Count(one.commonest.count, "machine"), TextOf(one.commonest.cell));
  });
  text += Section("Packages that every machine gets", summary.everywhere,
                  [&](std::size_t package) { return CodeOrNone(packages[package]); });
  return text;
}

std::string MatrixTable(const MatrixReport& report, bool colour) {
  return InColumns(RowsOf(report), colour);
}

std::size_t MatrixTableWidth(const MatrixReport& report, std::size_t limit) {
  const std::size_t heading = WidthInColumns({HeadingOf(report)});
  return heading > limit ? heading : WidthInColumns(RowsOf(report));
}

}  // namespace Vornik::Cli
