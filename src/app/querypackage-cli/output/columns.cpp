#include "output/columns.h"

#include <algorithm>

#include "output/cell_width.h"

namespace Vornik::Cli {

namespace {

// Wider texts do not widen their column.
constexpr std::size_t maxColumnWidth = 64;

std::string Blanks(const std::string& text, std::size_t width) {
  const std::size_t length = CellCount(text);
  return std::string(width > length ? width - length : 0, ' ');
}

std::vector<std::size_t> ColumnWidths(const std::vector<Row>& rows) {
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::size_t width = CellCount(row[i].text);
      if (width <= maxColumnWidth) widths[i] = std::max(widths[i], width);
    }
  }
  return widths;
}

}  // namespace

std::string InColumns(const std::vector<Row>& rows, bool colour) {
  const std::vector<std::size_t> widths = ColumnWidths(rows);
  std::string out;
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      out += Painted(row[i].text, row[i].paint, colour);
      if (i + 1 < row.size()) out += Blanks(row[i].text, widths[i]) + "  ";
    }
    out += '\n';
  }
  return out;
}

std::size_t WidthInColumns(const std::vector<Row>& rows) {
  const std::vector<std::size_t> widths = ColumnWidths(rows);
  std::size_t longest = 0;
  for (const Row& row : rows) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::size_t text = CellCount(row[i].text);
      length += i + 1 < row.size() ? std::max(text, widths[i]) + 2 : text;
    }
    longest = std::max(longest, length);
  }
  return longest;
}

std::string Padded(const std::string& text, std::size_t width) {
  return text + Blanks(text, width);
}

}  // namespace Vornik::Cli
