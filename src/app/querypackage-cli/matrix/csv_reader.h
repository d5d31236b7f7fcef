// Reads comma-separated values as RFC 4180 has them, with CRLF or line feeds.
#ifndef VORNIK_CLI_MATRIX_CSV_READER_H
#define VORNIK_CLI_MATRIX_CSV_READER_H

#include <cstddef>
#include <deque>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace Vornik::Cli {

struct CsvRecord {
  std::vector<std::string> fields;
  std::size_t line = 0;         // at which it begins, from 1
  const char* fault = nullptr;  // what is wrong with it, as the end of a sentence; null: nothing
};

// After a faulty record the next one begins in the line after the one in which that began, so that
// a quotation mark that is not closed costs one line.
class CsvReader {
 public:
  // Borrowed. A byte order mark of UTF-8 at its beginning is passed over.
  explicit CsvReader(std::istream& stream) : stream_(stream) {}

  // The next record; false at the end. Empty lines are passed over.
  bool Next(CsvRecord& record);

 private:
  // Whether there are so many lines that are not yet passed.
  bool ReadAhead(std::size_t count);
  // These return what is wrong. lines: how many the record takes.
  const char* Parse(CsvRecord& record, std::size_t& lines);
  const char* TakeQuoted(std::string_view& rest, std::string& field, std::size_t& lines);

  std::istream& stream_;
  std::deque<std::string> ahead_;  // lines that are read and not yet passed, with their line feeds
  std::size_t line_ = 1;           // number of the first of them
  bool hasBegun_ = false;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MATRIX_CSV_READER_H
