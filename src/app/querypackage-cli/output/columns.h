// Texts in columns.
#ifndef VORNIK_CLI_OUTPUT_COLUMNS_H
#define VORNIK_CLI_OUTPUT_COLUMNS_H

#include <cstddef>
#include <string>
#include <vector>

#include "output/paint.h"

namespace Vornik::Cli {

struct Cell {
  std::string text;  // from Printable, or without anything to escape
  Paint paint = Paint::None;
};

using Row = std::vector<Cell>;

// One line for each row; all rows have the same number of cells. A column is as wide as its widest
// text, but a very long one is printed whole and moves the columns of its own line only.
std::string InColumns(const std::vector<Row>& rows, bool colour);

// The number of cells of the longest line.
std::size_t WidthInColumns(const std::vector<Row>& rows);

// The text, with blanks after it up to a number of cells.
std::string Padded(const std::string& text, std::size_t width);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_COLUMNS_H
