#include "commands/query_command.h"

#include <iterator>
#include <memory>
#include <optional>
#include <utility>

#include "QueryPackage.h"
#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/help_texts.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "commands/query_view_options.h"
#include "model/folder_reading.h"
#include "model/library_run.h"
#include "output/progress.h"
#include "output/terminal.h"
#include "query/output.h"
#include "query/warnings.h"

namespace Vornik::Cli {

namespace {

struct QueryOptions {
  QuerySettings query;
  QueryViewOptions view;
  DisplayOptions display;
  LogOptions log;
  bool trust = false;
};

std::vector<std::string> WarningsOf(const QuerySettings& settings, const ListingFacts& facts,
                                    const LibraryRun& run) {
  std::vector<std::string> warnings = OrderTexts(settings, facts, run.records);
  if (run.code != QueryCode::Completed) return warnings;
  std::vector<std::string> ids = WarnOfUnknownIds(settings, run.records);
  warnings.insert(warnings.end(), std::make_move_iterator(ids.begin()),
                  std::make_move_iterator(ids.end()));
  return warnings;
}

std::string Render(const QueryOptions& options, const QueryAnswer& answer) {
  const QueryViewOptions& view = options.view;
  if (view.format == QueryFormat::Json) return QueryJson(answer, view.view);
  if (answer.returnCode != QueryCode::Completed) return "";
  switch (view.format) {
    case QueryFormat::JsonLines:
      return QueryJsonLines(answer, view.view);
    case QueryFormat::Csv:
      return QueryCsv(answer, view.view);
    default:
      return QueryTable(answer, view.view, options.display.quiet,
                        WantsColour(options.display.colour));
  }
}

int Query(const QueryOptions& options, const ListingFacts& facts,
          std::optional<FolderContents> contents) {
  const LibraryRun run = RunLibrary(options.query, std::move(contents));
  if (!options.display.quiet) ReportLostLogRecords();
  const QueryAnswer answer{options.query, run.code, run.records, facts.pack,
                           WarningsOf(options.query, facts, run)};
  if (!Print(Render(options, answer))) return FailToPrint();
  if (!options.display.quiet) {
    for (const std::string& warning : answer.warnings) PrintNotice("warning: " + warning);
  }
  if (run.code == QueryCode::Completed) return ExitStatus::success;
  if (run.code == QueryCode::NoResults) return Fail(run.code, NoResultsAdvice(answer));
  return Fail(run.code, Advice(run.code, options.query));
}

int RefuseHazard(const QueryOptions& options, const Hazard& hazard) {
  if (options.view.format == QueryFormat::Json && !Print(HazardJson(options.query, hazard))) {
    return FailToPrint();
  }
  return FailOnHazard(hazard);
}

FolderContents ReadWithProgress(const QueryOptions& options) {
  Progress progress("files", !options.display.quiet);
  return ReadContentsOf(options.query, [&progress](std::size_t done, std::size_t total) {
    progress.Show(done, total);
  });
}

int QueryFolder(const QueryOptions& options) {
  FolderContents contents = ReadWithProgress(options);
  if (!options.trust) {
    if (const auto hazard = FindHazard(options.query, contents)) {
      return RefuseHazard(options, *hazard);
    }
  }
  const ListingFacts facts = ListingFactsOf(contents, options.query);
  // A query that is trusted reads the folder by itself, so that its log names the file at which it
  // hangs.
  if (options.trust) return Query(options, facts, std::nullopt);
  return Query(options, facts, std::move(contents));
}

int RunQueryCommand(const QueryOptions& options) {
  if (const auto refusal = DirectLog(options.log, options.query)) return *refusal;
  return StatusOfRun([&options] { return QueryFolder(options); });
}

}  // namespace

void AddQueryCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command = app.add_subcommand("query", "Judge the packages of a folder for one machine");
  const auto options = std::make_shared<QueryOptions>();
  AddQuerySettings(*command, options->query);
  AddQueryView(*command, options->view);
  AddDisplay(*command, options->display);
  AddLogOptions(*command, options->log);
  AddTrust(*command, options->trust);
  command->footer(HelpText::query);
  command->callback([options, &chosen] {
    CheckView(options->view);
    chosen = [options] { return RunQueryCommand(*options); };
  });
}

}  // namespace Vornik::Cli
