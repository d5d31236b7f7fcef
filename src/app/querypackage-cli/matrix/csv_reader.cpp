#include "matrix/csv_reader.h"

#include <algorithm>
#include <utility>

namespace Vornik::Cli {

namespace {

// Without the line feed and the carriage return before it.
std::string_view WithoutEnd(std::string_view line) {
  if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace

bool CsvReader::Next(CsvRecord& record) {
  while (ReadAhead(1)) {
    std::size_t lines = 1;
    record.fields.clear();
    record.line = line_;
    const bool isEmpty = WithoutEnd(ahead_.front()).empty();
    record.fault = isEmpty ? nullptr : Parse(record, lines);
    if (record.fault != nullptr) lines = 1;
    ahead_.erase(ahead_.begin(), ahead_.begin() + static_cast<std::ptrdiff_t>(lines));
    line_ += lines;
    if (!isEmpty) return true;
  }
  return false;
}

bool CsvReader::ReadAhead(std::size_t count) {
  while (ahead_.size() < count) {
    std::string line;
    if (!std::getline(stream_, line)) return false;
    if (!stream_.eof()) line += '\n';
    if (!hasBegun_ && line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
    hasBegun_ = true;
    ahead_.push_back(std::move(line));
  }
  return true;
}

const char* CsvReader::Parse(CsvRecord& record, std::size_t& lines) {
  std::string_view rest = WithoutEnd(ahead_.front());
  for (;;) {
    std::string& field = record.fields.emplace_back();
    if (rest.empty() || rest.front() != '"') {
      const std::size_t end = std::min(rest.find(','), rest.size());
      field = rest.substr(0, end);
      if (field.find('"') != std::string::npos) return "a quotation mark is inside a field";
      rest.remove_prefix(end);
    } else if (const char* fault = TakeQuoted(rest, field, lines)) {
      return fault;
    }
    if (rest.empty()) return nullptr;
    if (rest.front() != ',') return "text follows the quotation mark that ends a field";
    rest.remove_prefix(1);
  }
}

// rest: begins with the quotation mark; afterwards what follows the one that ends the field.
const char* CsvReader::TakeQuoted(std::string_view& rest, std::string& field, std::size_t& lines) {
  rest.remove_prefix(1);
  for (;;) {
    const std::size_t mark = rest.find('"');
    if (mark == std::string_view::npos) {
      const std::string& whole = ahead_[lines - 1];
      field += std::string_view(whole).substr(static_cast<std::size_t>(rest.data() - whole.data()));
      if (!ReadAhead(lines + 1)) return "a quotation mark is not closed";
      rest = WithoutEnd(ahead_[lines++]);
      continue;
    }
    field += rest.substr(0, mark);
    rest.remove_prefix(mark + 1);
    if (rest.empty() || rest.front() != '"') return nullptr;
    field += '"';
    rest.remove_prefix(1);
  }
}

}  // namespace Vornik::Cli
