// A matrix as a person or a program reads it: its summary first, then its machines and cells.
#ifndef VORNIK_CLI_MATRIX_OUTPUT_H
#define VORNIK_CLI_MATRIX_OUTPUT_H

#include <functional>
#include <string>

#include "matrix/matrix.h"
#include "matrix/summary.h"

namespace Vornik::Cli {

struct MatrixReport {
  const QuerySettings& settings;  // without a machine
  const MachineList& machines;
  const Matrix& matrix;
  const MatrixSummary& summary;
  bool onlyOffered = false;  // of the cells
  bool withReasons = false;
  bool withRecords = false;  // in JSON
};

// Takes some whole lines, or a piece of a document. False: nothing more is wanted.
using MatrixSink = std::function<bool(const std::string& text)>;

// These write piece by piece, a kind of machine at a time. Texts of descriptors and of the list of
// machines are as they are; in CSV none is a formula.
void WriteMatrixCsv(const MatrixReport& report, const MatrixSink& sink);
void WriteMatrixJson(const MatrixReport& report, const MatrixSink& sink);
void WriteMatrixJsonLines(const MatrixReport& report, const MatrixSink& sink);

// For a person: texts go through Printable, and long lists are cut.
std::string MatrixSummaryText(const MatrixReport& report);

// A line for each package and a column for each kind of machine.
std::string MatrixTable(const MatrixReport& report, bool colour);

// Characters in the longest line of the table; of its heading, where that is over the limit.
std::size_t MatrixTableWidth(const MatrixReport& report, std::size_t limit);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MATRIX_OUTPUT_H
