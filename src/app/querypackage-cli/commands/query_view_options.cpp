#include "commands/query_view_options.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "commands/parser.h"
#include "model/edit_distance.h"

namespace Vornik::Cli {

namespace {

const std::string& CheckColumn(const std::string& option, const std::string& name) {
  const std::vector<std::string> known = ColumnNames();
  if (std::find(known.begin(), known.end(), name) != known.end()) return name;
  const std::vector<std::string> nearest = NearestNames(name, known);
  throw CLI::ValidationError(
      option,
      nearest.empty()
          ? fmt::format("\"{}\" is not a column: {}", name, fmt::join(known, ", "))
          : fmt::format("\"{}\" is not a column; did you mean \"{}\"?", name, nearest.front()));
}

std::vector<std::string> ColumnsIn(const std::string& text) {
  std::vector<std::string> columns;
  std::istringstream stream(text);
  for (std::string name; std::getline(stream, name, ',');) {
    columns.push_back(CheckColumn("--columns", name));
  }
  if (columns.empty()) throw CLI::ValidationError("--columns", "names no column");
  return columns;
}

QueryFormat FormatNamed(const std::string& name) {
  if (name == "json") return QueryFormat::Json;
  if (name == "jsonl") return QueryFormat::JsonLines;
  return name == "csv" ? QueryFormat::Csv : QueryFormat::Table;
}

}  // namespace

void AddQueryView(CLI::App& command, QueryViewOptions& options) {
  command
      .add_option_function<std::string>(
          "--format", [&options](const std::string& name) { options.format = FormatNamed(name); },
          "table (default), json: one document, jsonl: a record in each\nline, or csv")
      ->check(CLI::IsMember({"table", "json", "jsonl", "csv"}))
      ->type_name("NAME");
  command
      .add_option_function<std::string>(
          "--columns",
          [&options](const std::string& text) { options.view.columns = ColumnsIn(text); },
          "Columns of a table or of csv, separated by commas:\n" +
              fmt::format("{}", fmt::join(ColumnNames(), ", ")))
      ->type_name("NAME,...");
  command
      .add_option_function<std::string>(
          "--sort",
          [&options](const std::string& name) {
            options.view.sortBy = CheckColumn("--sort", name);
          },
          "Column to sort the packages by, as text; without it they are\nin the query's order")
      ->type_name("NAME");
  command.add_flag("--offered", options.view.onlyOffered, "Only the packages that are offered");
}

void CheckView(const QueryViewOptions& options) {
  const bool hasColumns =
      options.format == QueryFormat::Table || options.format == QueryFormat::Csv;
  if (!options.view.columns.empty() && !hasColumns) {
    throw CLI::ValidationError("--columns", "a JSON document has all members of a record");
  }
}

}  // namespace Vornik::Cli
