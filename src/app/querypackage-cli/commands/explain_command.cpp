#include "commands/explain_command.h"

#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/help_texts.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "explain/explain.h"
#include "explain/json.h"
#include "explain/text.h"
#include "model/folder_reading.h"
#include "model/library_run.h"
#include "model/query_model.h"
#include "output/terminal.h"

namespace Vornik::Cli {

namespace {

struct ExplainOptions {
  QuerySettings query;
  std::string package;
  Format format = Format::Table;
  LogOptions log;
  DisplayOptions display;
  bool trust = false;
};

bool PrintExplanation(const ExplainOptions& options, const Explanation& explanation) {
  if (options.format == Format::Json) return Print(ExplanationJson(explanation));
  return !IsExplained(explanation.returnCode) ||
         Print(ExplanationText(explanation, WantsColour(options.display.colour)));
}

int StatusOf(const Explanation& explanation) {
  const int code = explanation.returnCode;
  if (!IsExplained(code)) return Fail(code, Advice(code, explanation.query));
  if (IsKnown(explanation)) return ExitStatus::success;
  return Fail(ExitStatus::negative,
              fmt::format("nothing in the folder is known as \"{}\": check the spelling; "
                          "\"querypackage-cli query\" lists the packages",
                          explanation.packageId));
}

int ExplainPackage(const ExplainOptions& options) {
  const std::vector<FolderEntry> before = ListEntries(options.query.folder);
  FolderContents contents = ReadContentsOf(options.query);
  if (!options.trust) {
    if (const auto refusal = RefuseHazard(options.query, contents)) return *refusal;
  }
  const LibraryRun run = RunLibrary(options.query, contents);
  if (!options.display.quiet) ReportLostLogRecords();

  const FolderReading folder = Load(std::move(contents));
  QueryModel model(folder, options.query.folder);
  const Evaluation evaluation = model.Evaluate(options.query);
  const EvaluatedQuery query{options.query, run, model, evaluation,
                             ListEntries(options.query.folder) != before};
  if (const auto failure = FailOnDisagreement(query)) return *failure;
  const Explanation explanation = Explain(query, options.package);
  return PrintExplanation(options, explanation) ? StatusOf(explanation) : FailToPrint();
}

int RunExplainCommand(const ExplainOptions& options) {
  if (const auto refusal = DirectLog(options.log, options.query)) return *refusal;
  return StatusOfRun([&options] { return ExplainPackage(options); });
}

}  // namespace

std::optional<int> FailOnDisagreement(const EvaluatedQuery& query) {
  const std::optional<std::string> disagreement = FindDisagreement(query);
  if (!disagreement) return std::nullopt;
  return Fail(ExitStatus::internalError,
              "internal error: " + *disagreement +
                  ", although no file of the folder changed: please report it");
}

void AddExplainCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command =
      app.add_subcommand("explain", "Say why a package of a folder is offered or not");
  const auto options = std::make_shared<ExplainOptions>();
  AddQuerySettings(*command, options->query);
  AddPackage(*command, options->package);
  AddFormat(*command, options->format);
  AddLogOptions(*command, options->log);
  AddDisplay(*command, options->display);
  AddTrust(*command, options->trust);
  command->footer(HelpText::explain);
  command->callback(
      [options, &chosen] { chosen = [options] { return RunExplainCommand(*options); }; });
}

}  // namespace Vornik::Cli
