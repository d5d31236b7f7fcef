#include "output/csv.h"

#include <string_view>

namespace Vornik::Cli {

namespace {

void AppendField(const std::string& field, std::string& line) {
  if (field.find_first_of(",\"\r\n") == std::string::npos) {
    line += field;
    return;
  }
  line += '"';
  for (const char c : field) {
    if (c == '"') line += '"';
    line += c;
  }
  line += '"';
}

}  // namespace

std::string CsvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i != 0) line += ',';
    AppendField(fields[i], line);
  }
  return line + '\n';
}

std::string AsPlainText(const std::string& text) {
  const bool isFormula =
      !text.empty() && std::string_view("=+-@").find(text.front()) != std::string_view::npos;
  return isFormula ? '\'' + text : text;
}

}  // namespace Vornik::Cli
