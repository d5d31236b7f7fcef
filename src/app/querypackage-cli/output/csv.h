// Comma-separated values as RFC 4180 has them, with line feeds.
#ifndef VORNIK_CLI_OUTPUT_CSV_H
#define VORNIK_CLI_OUTPUT_CSV_H

#include <string>
#include <vector>

namespace Vornik::Cli {

// One line. A field with a comma, a quotation mark or a line end is quoted; its bytes stay as they
// are.
//
//   {"a", "b,c", "d\"e"}  =>  a,"b,c","d""e"
std::string CsvLine(const std::vector<std::string>& fields);

// A text that a spreadsheet would take for a formula gets an apostrophe in front: one that begins
// with =, +, - or @.
//
//   "=1+1"  =>  "'=1+1"
std::string AsPlainText(const std::string& text);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_CSV_H
