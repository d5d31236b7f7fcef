#include "commands/lint_command.h"

#include <fmt/format.h>

#include <memory>
#include <string>

#include "QueryPackage.h"
#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "lint/json.h"
#include "lint/lint.h"
#include "lint/text.h"
#include "output/terminal.h"

namespace Vornik::Cli {

namespace {

enum class LintFormat { Text, Json, Sarif };

struct LintOptions {
  LintSettings lint;
  LintFormat format = LintFormat::Text;
  Severity failOn = Severity::Error;
  const LintRule* explained = nullptr;
};

std::string Render(const LintResult& result, LintFormat format) {
  switch (format) {
    case LintFormat::Json:
      return LintJson(result);
    case LintFormat::Sarif:
      return LintSarif(result);
    case LintFormat::Text:
      break;
  }
  return LintText(result, WantsColour());
}

bool Fails(const LintCounts& counts, Severity failOn) {
  return counts.errors != 0 || (failOn == Severity::Warning && counts.warnings != 0);
}

int StatusOf(const LintResult& result, Severity failOn) {
  if (result.walkFailure) return FailOnWalk(*result.walkFailure);
  const LintCounts counts = CountBySeverity(result.findings);
  if (!Fails(counts, failOn)) return ExitStatus::success;
  return Fail(ExitStatus::negative,
              fmt::format("the folder has {}: mend them, or leave out a finding with --ignore",
                          CountsText(counts)));
}

int LintFolderOf(const LintOptions& options) {
  if (!IsFolder(options.lint.folder)) return FailOnFolder(options.lint.folder);
  const LintResult result = Lint(options.lint);
  return Print(Render(result, options.format)) ? StatusOf(result, options.failOn) : FailToPrint();
}

int RunLintCommand(const LintOptions& options) {
  if (options.explained != nullptr) {
    return Print(RuleText(*options.explained)) ? ExitStatus::success : FailToPrint();
  }
  return StatusOfRun([&options] { return LintFolderOf(options); });
}

// The parser puts the option's name before what is thrown.
const LintRule& ParseRule(const std::string& name) {
  if (const LintRule* rule = FindLintRule(name)) return *rule;
  throw CLI::ValidationError(fmt::format("\"{}\" is not the id of a finding", name));
}

void AddLintFormat(CLI::App& command, LintFormat& format) {
  command
      .add_option_function<std::string>(
          "--format",
          [&format](const std::string& name) {
            if (name == "json") format = LintFormat::Json;
            if (name == "sarif") format = LintFormat::Sarif;
          },
          "text (default), json, or sarif: SARIF 2.1.0")
      ->check(CLI::IsMember({"text", "json", "sarif"}))
      ->type_name("NAME");
}

void AddTarget(CLI::App& command, LintTarget& target) {
  command
      .add_option_function<std::string>(
          "--target",
          [&target](const std::string& name) {
            target = name == "posix" ? LintTarget::Posix : LintTarget::Windows;
          },
          "windows (default) or posix: the system whose names, separators\nand text mode count")
      ->check(CLI::IsMember({"windows", "posix"}))
      ->type_name("NAME");
}

void AddFailOn(CLI::App& command, Severity& failOn) {
  command
      .add_option_function<std::string>(
          "--fail-on",
          [&failOn](const std::string& name) {
            failOn = name == "warning" ? Severity::Warning : Severity::Error;
          },
          "error (default) or warning: the least severity of a finding\nthat makes the exit status "
          "1")
      ->check(CLI::IsMember({"warning", "error"}))
      ->type_name("NAME");
}

void AddIgnored(CLI::App& command, std::set<LintId>& ignored) {
  AddRepeated(
      command, "--ignore", "ID",
      [&ignored](const std::string& name) { ignored.insert(ParseRule(name).id); },
      "Id of a finding to leave out. Repeatable");
}

void AddExplained(CLI::App& command, const LintRule*& explained) {
  command
      .add_option_function<std::string>(
          "--explain", [&explained](const std::string& name) { explained = &ParseRule(name); },
          "Say what a finding means and what to do, and end; FOLDER is\nnot needed")
      ->type_name("ID");
}

}  // namespace

void AddLintCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command = app.add_subcommand("lint", "Say what is wrong with a folder of descriptors");
  const auto options = std::make_shared<LintOptions>();
  CLI::Option* folder = AddFolder(*command, options->lint.folder);
  folder->required(false);
  AddLintFormat(*command, options->format);
  AddTarget(*command, options->lint.target);
  AddFailOn(*command, options->failOn);
  AddIgnored(*command, options->lint.ignored);
  AddExplained(*command, options->explained);
  command->callback([options, folder, &chosen] {
    if (folder->count() == 0 && options->explained == nullptr) {
      throw CLI::RequiredError("FOLDER");
    }
    chosen = [options] { return RunLintCommand(*options); };
  });
}

}  // namespace Vornik::Cli
