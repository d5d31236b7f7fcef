#include "commands/explain_command.h"

#include <fmt/format.h>

#include <memory>
#include <string>

#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "explain/explain.h"
#include "explain/json.h"
#include "explain/text.h"
#include "model/captured_log.h"
#include "model/library_run.h"
#include "output/terminal.h"

namespace Vornik::Cli {

namespace {

struct ExplainOptions {
  QuerySettings query;
  std::string package;
  Format format = Format::Table;
  LogOptions log;
  bool trust = false;
};

// Whether the library lets the package through.
bool Passes(const QuerySettings& settings, const std::string& code, const LogOptions& log) {
  const LogPause pause(log);
  const LibraryRun run = RunLibrary(settings, Format::Json);
  const std::size_t index = IndexOf(run.records, code);
  return run.code == QueryCode::Completed && index < run.records.size() &&
         IsMatchedByAll(run.records[index], settings);
}

Explanation RunAndExplain(const ExplainOptions& options) {
  LogCapture capture(options.log);
  const LibraryRun run = RunLibrary(options.query, options.format);
  const LogLines log = capture.End();
  return Explain(options.query, options.package, run, log,
                 [&options](const QuerySettings& settings, const std::string& code) {
                   return Passes(settings, code, options.log);
                 });
}

bool PrintExplanation(const ExplainOptions& options, const Explanation& explanation) {
  if (options.format == Format::Json) return Print(ExplanationJson(explanation));
  const bool explained = explanation.returnCode == QueryCode::Completed ||
                         explanation.returnCode == QueryCode::NoResults;
  return !explained || Print(ExplanationText(explanation, WantsColour()));
}

int StatusOf(const Explanation& explanation) {
  const int code = explanation.returnCode;
  if (code != QueryCode::Completed && code != QueryCode::NoResults) {
    return Fail(code, Advice(code, explanation.query));
  }
  if (IsKnown(explanation)) return ExitStatus::success;
  return Fail(ExitStatus::negative,
              fmt::format("nothing in the folder is known as \"{}\": check the spelling; "
                          "\"querypackage-cli query\" lists the packages",
                          explanation.packageId));
}

int ExplainPackage(const ExplainOptions& options) {
  const Explanation explanation = RunAndExplain(options);
  ReportLostLogRecords();
  return PrintExplanation(options, explanation) ? StatusOf(explanation) : FailToPrint();
}

int RunExplainCommand(const ExplainOptions& options) {
  if (const auto refusal = RefuseBefore(options.query, options.log, options.trust)) return *refusal;
  return StatusOfRun([&options] { return ExplainPackage(options); });
}

}  // namespace

void AddExplainCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command =
      app.add_subcommand("explain", "Say why a package of a folder is offered or not");
  const auto options = std::make_shared<ExplainOptions>();
  AddQuerySettings(*command, options->query);
  AddPackage(*command, options->package);
  AddFormat(*command, options->format);
  AddLogOptions(*command, options->log);
  AddTrust(*command, options->trust);
  command->callback(
      [options, &chosen] { chosen = [options] { return RunExplainCommand(*options); }; });
}

}  // namespace Vornik::Cli
