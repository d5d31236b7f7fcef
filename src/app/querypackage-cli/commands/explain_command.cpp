#include "commands/explain_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/help_texts.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "explain/explain.h"
#include "explain/json.h"
#include "explain/package_ids.h"
#include "explain/text.h"
#include "model/answer.h"
#include "model/folder_reading.h"
#include "model/library_run.h"
#include "model/query_model.h"
#include "output/terminal.h"
#include "output/wording.h"
#include "query/pack_summary.h"
#include "query/warnings.h"

namespace Vornik::Cli {

namespace {

struct ExplainOptions {
  QuerySettings query;
  PackageIds ids;
  Format format = Format::Table;
  TextDetail detail = TextDetail::Brief;
  LogOptions log{0, "", false};
  DisplayOptions display;
  bool refused = false;
  bool trust = false;
  bool exitCode = false;
};

// The warnings about the packages of an explanation, or about the pack where there is none.
std::vector<std::string> WarningsFor(const Explanation& explanation, const OrderWarnings& all) {
  std::vector<std::string> warnings;
  if (!IsKnown(explanation)) return warnings;
  for (const OrderWarning& one : all) {
    const bool concerns = std::any_of(
        explanation.packages.begin(), explanation.packages.end(),
        [&one](const auto& package) { return one.Concerns(package.record.identificationCode); });
    if (concerns || one.codes.empty()) warnings.push_back(one.text);
  }
  return warnings;
}

std::vector<std::string> IdsOf(const ExplainOptions& options, const EvaluatedQuery& query) {
  std::vector<std::string> ids;
  if (options.ids.exact) ids.push_back(*options.ids.exact);
  for (std::string& id : ResolveIds(query, options.ids.asked)) {
    if (id != options.ids.exact) ids.push_back(std::move(id));
  }
  return ids;
}

// In the query's order, but for those that are explained already.
void AddRefused(const EvaluatedQuery& query, const std::vector<std::string>& known,
                std::vector<Explanation>& explanations) {
  const std::set<std::string> codes(known.begin(), known.end());
  const std::vector<QueryPackageResult>& records = query.run.records;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (AnswerFor(records[i], query.settings).answer != Answer::Refused) continue;
    if (codes.count(records[i].identificationCode) != 0) continue;
    explanations.push_back(ExplainRecord(query, i));
  }
}

std::vector<Explanation> ExplainAll(const ExplainOptions& options, const EvaluatedQuery& query,
                                    const ListingFacts& facts) {
  const std::string packText = TextOf(facts.pack, options.query);
  const OrderWarnings warnings = WarnOfOrder(options.query, facts, query.run.records);
  const std::vector<std::string> ids = IdsOf(options, query);
  std::vector<Explanation> explanations;
  explanations.reserve(ids.size());
  for (const std::string& id : ids) {
    explanations.push_back(Explain(query, id));
    if (!IsKnown(explanations.back())) explanations.back().nearest = NearestCodes(query, id);
  }
  if (options.refused) AddRefused(query, ids, explanations);
  for (Explanation& explanation : explanations) {
    explanation.packText = packText;
    explanation.warnings = WarningsFor(explanation, warnings);
  }
  return explanations;
}

// One id has a document of its own.
bool IsForOne(const ExplainOptions& options) {
  const PackageIds& ids = options.ids;
  if (options.refused) return false;
  if (ids.exact) return ids.asked.empty();
  return ids.asked.size() == 1 && !IsPattern(ids.asked.front());
}

bool PrintExplanations(const ExplainOptions& options,
                       const std::vector<Explanation>& explanations) {
  if (options.format == Format::Json) {
    return Print(IsForOne(options) ? ExplanationJson(explanations.front())
                                   : ExplanationsJson(explanations));
  }
  if (explanations.empty()) return Print("The query refuses no package.\n");
  std::string text;
  for (const Explanation& explanation : explanations) {
    if (!IsExplained(explanation.returnCode)) return true;
    if (!text.empty()) text += '\n';
    text += ExplanationText(explanation, options.detail, WantsColour(options.display.colour));
  }
  return Print(text);
}

int StatusOf(Conclusion conclusion) {
  switch (conclusion) {
    case Conclusion::NotRun:
    case Conclusion::Offered:
      break;
    case Conclusion::Refused:
      return ExitStatus::refused;
    case Conclusion::Undecided:
      return ExitStatus::undecided;
    case Conclusion::Absent:
      return ExitStatus::absent;
    case Conclusion::Unknown:
      return ExitStatus::unknown;
  }
  return ExitStatus::success;
}

std::string UnknownText(const Explanation& explanation) {
  const std::string text =
      fmt::format("nothing in the folder is known as \"{}\"", explanation.packageId);
  return explanation.nearest.empty()
             ? text + ": check the spelling; \"querypackage-cli list\" lists the packages"
             : text + "; the nearest: " + BriefList(explanation.nearest);
}

int StatusOf(const ExplainOptions& options, const std::vector<Explanation>& explanations) {
  int status = ExitStatus::success;
  for (const Explanation& explanation : explanations) {
    const int code = explanation.returnCode;
    if (!IsExplained(code)) return Fail(code, Advice(code, explanation.query));
    if (options.exitCode) status = std::max(status, StatusOf(ConclusionOf(explanation)));
    if (IsKnown(explanation)) continue;
    const int failure = Fail(ExitStatus::negative, UnknownText(explanation));
    if (!options.exitCode) status = failure;
  }
  return status;
}

int ExplainPackages(const ExplainOptions& options) {
  FolderContents contents = ReadContentsOf(options.query);
  if (!options.trust) {
    if (const auto refusal = RefuseHazard(options.query, contents)) return *refusal;
  }
  const ListingFacts facts = ListingFactsOf(contents, options.query);
  const LibraryRun run = RunLibrary(options.query, contents);
  if (!options.display.quiet) ReportLostLogRecords();

  const FolderReading folder = Load(std::move(contents));
  QueryModel model(folder, options.query.folder);
  const Evaluation evaluation = model.Evaluate(options.query);
  // The folder may be gone since the query.
  if (IsExplained(run.code) && !evaluation.canRun) return FailOnFolder(options.query.folder);
  const EvaluatedQuery query{options.query, run, model, evaluation};
  if (const auto failure = FailOnDisagreement(query)) return *failure;
  if (!IsExplained(run.code) && !options.ids.exact && options.ids.asked.empty()) {
    if (options.format == Format::Json && !Print(ExplanationsJson({}))) return FailToPrint();
    return Fail(run.code, Advice(run.code, options.query));
  }
  const std::vector<Explanation> explanations = ExplainAll(options, query, facts);
  return PrintExplanations(options, explanations) ? StatusOf(options, explanations) : FailToPrint();
}

int RunExplainCommand(const ExplainOptions& options) {
  if (!options.ids.exact && options.ids.asked.empty() && !options.refused) {
    return Fail(
        ExitStatus::usage,
        "explain needs an ID, --package or --refused; see \"querypackage-cli explain --help\"");
  }
  if (const auto refusal = DirectLog(options.log, options.query)) return *refusal;
  return StatusOfRun([&options] { return ExplainPackages(options); });
}

}  // namespace

std::optional<int> FailOnDisagreement(const EvaluatedQuery& query) {
  const std::optional<std::string> disagreement = FindDisagreement(query);
  if (!disagreement) return std::nullopt;
  return Fail(ExitStatus::internalError, "internal error: " + *disagreement + ": please report it");
}

namespace {

void AddDetail(CLI::App& command, TextDetail& detail) {
  command.add_flag_callback(
      "--verbose", [&detail] { detail = TextDetail::Full; },
      "Print every filter, its rule and the properties as read");
}

}  // namespace

void AddExplainCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command =
      app.add_subcommand("explain", "Say why a package of a folder is offered or not");
  const auto options = std::make_shared<ExplainOptions>();
  AddQuerySettings(*command, options->query);
  AddPackageIds(*command, options->ids);
  command->add_flag("--refused", options->refused, "Explain all packages that the query refuses");
  AddDetail(*command, options->detail);
  command->add_flag(
      "--exit-code", options->exitCode,
      "End with 0 for an offered package, 10 for a refused\none, 11 for an undecided, "
      "12 for an absent, 13 for\nan unknown one; of several the greatest");
  AddFormat(*command, options->format);
  AddLogOptions(*command, options->log);
  AddDisplay(*command, options->display);
  AddTrust(*command, options->trust);
  command->footer(HelpText::explain);
  command->callback(
      [options, &chosen] { chosen = [options] { return RunExplainCommand(*options); }; });
}

}  // namespace Vornik::Cli
