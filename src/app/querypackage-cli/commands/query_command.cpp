#include "commands/query_command.h"

#include <memory>
#include <optional>
#include <utility>

#include "QueryPackage.h"
#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "model/folder_reading.h"
#include "model/library_run.h"
#include "output/query_json.h"
#include "output/terminal.h"
#include "output/verdict_table.h"

namespace Vornik::Cli {

namespace {

struct QueryOptions {
  QuerySettings query;
  Format format = Format::Table;
  LogOptions log;
  bool trust = false;
};

bool PrintOutcome(const QueryOptions& options, const LibraryRun& run) {
  if (options.format == Format::Json) {
    return Print(JsonText(QueryDocument(options.query, run.code, run.records)));
  }
  return run.code != QueryCode::Completed || Print(VerdictTable(run.records, WantsColour()));
}

int Query(const QueryOptions& options, std::optional<FolderContents> contents) {
  const LibraryRun run = RunLibrary(options.query, options.format, std::move(contents));
  ReportLostLogRecords();
  if (!PrintOutcome(options, run)) return FailToPrint();
  if (run.code == QueryCode::Completed) return ExitStatus::success;
  return Fail(run.code, Advice(run.code, options.query));
}

int RunQueryCommand(const QueryOptions& options) {
  if (const auto refusal = DirectLog(options.log)) return *refusal;
  std::optional<FolderContents> contents;
  if (!options.trust) {
    contents = ReadContentsOf(options.query);
    if (const auto refusal = RefuseHazard(options.query, *contents)) return *refusal;
  }
  return StatusOfRun([&] { return Query(options, std::move(contents)); });
}

}  // namespace

void AddQueryCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command = app.add_subcommand("query", "Judge the packages of a folder for one machine");
  const auto options = std::make_shared<QueryOptions>();
  AddQuerySettings(*command, options->query);
  AddFormat(*command, options->format);
  AddLogOptions(*command, options->log);
  AddTrust(*command, options->trust);
  command->callback(
      [options, &chosen] { chosen = [options] { return RunQueryCommand(*options); }; });
}

}  // namespace Vornik::Cli
