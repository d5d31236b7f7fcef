#include "commands/lint_command.h"

#include <fmt/format.h>

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/help_texts.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "lint/baseline.h"
#include "lint/json.h"
#include "lint/lint.h"
#include "lint/text.h"
#include "output/progress.h"
#include "output/terminal.h"

namespace Vornik::Cli {

namespace {

enum class LintFormat { Text, Json, Sarif };

struct LintOptions {
  LintSettings lint;
  std::vector<std::string> files;  // as they are given
  LintFormat format = LintFormat::Text;
  std::optional<Severity> failOn = Severity::Error;  // none: never
  std::string baseline;
  std::string newBaseline;
  DisplayOptions display;
  const LintRule* explained = nullptr;
};

std::string Render(const LintResult& result, const LintOptions& options) {
  switch (options.format) {
    case LintFormat::Json:
      return LintJson(result);
    case LintFormat::Sarif:
      return LintSarif(result);
    case LintFormat::Text:
      break;
  }
  return LintText(result, options.display.quiet, WantsColour(options.display.colour));
}

bool Fails(const LintCounts& counts, std::optional<Severity> failOn) {
  if (!failOn) return false;
  return counts.errors != 0 || (*failOn <= Severity::Warning && counts.warnings != 0) ||
         (*failOn <= Severity::Info && counts.infos != 0);
}

int StatusOf(const LintResult& result, std::optional<Severity> failOn) {
  if (result.walkFailure) return FailOnWalk(*result.walkFailure);
  const LintCounts counts = CountBySeverity(result.findings);
  if (!Fails(counts, failOn)) return ExitStatus::success;
  return Fail(ExitStatus::negative,
              fmt::format("the folder has {}: fix them, or omit a finding with --ignore",
                          CountsText(counts)));
}

// The name of a file in the folder, which may be given with or without the folder; none if there is
// no such file.
std::optional<std::string> NameInFolder(const std::string& folder, const std::string& file) {
  namespace fs = boost::filesystem;
  boost::system::error_code failed;
  const fs::path inFolder = fs::path(folder) / file;
  if (fs::exists(inFolder, failed)) {
    return fmt::format("{}", fmt::join(WithoutParents(NameParts(file, nativeTarget)), "/"));
  }
  const fs::path path(file);
  const fs::path parent = path.has_parent_path() ? path.parent_path() : fs::path(".");
  if (!fs::exists(path, failed) || !fs::equivalent(parent, folder, failed)) return std::nullopt;
  return path.filename().string();
}

// The exit status where it fails.
std::optional<int> SelectFiles(LintOptions& options) {
  for (const std::string& file : options.files) {
    const auto name = NameInFolder(options.lint.folder, file);
    if (!name) {
      return Fail(QueryCode::InvalidParameter,
                  fmt::format("\"{}\" is no file of \"{}\": give files of the folder after it",
                              file, options.lint.folder));
    }
    options.lint.files.insert(*name);
  }
  return std::nullopt;
}

// The same.
std::optional<int> ReadBaseline(LintOptions& options) {
  if (options.baseline.empty()) return std::nullopt;
  std::ifstream file(options.baseline, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  std::string reason = "it cannot be read";
  if (file) options.lint.baseline = ParseBaseline(text, reason);
  if (options.lint.baseline) return std::nullopt;
  return Fail(ExitStatus::usage,
              fmt::format("\"{}\" is no baseline ({}): write one with --write-baseline",
                          options.baseline, reason));
}

int WriteBaseline(const LintResult& result, const std::string& path) {
  std::vector<LintFinding> findings = result.findings;
  findings.insert(findings.end(), result.known.begin(), result.known.end());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << BaselineText(BaselineOf(findings)) << std::flush;
  if (file) return ExitStatus::success;
  return Fail(ExitStatus::outputLost,
              fmt::format("the baseline \"{}\" could not be written: check where it goes", path));
}

LintResult LintWithProgress(const LintOptions& options) {
  Progress progress("files", !options.display.quiet);
  return Lint(options.lint,
              [&progress](std::size_t done, std::size_t total) { progress.Show(done, total); });
}

int LintFolderOf(LintOptions options) {
  if (!IsFolder(options.lint.folder)) return FailOnFolder(options.lint.folder);
  if (const auto status = SelectFiles(options)) return *status;
  if (const auto status = ReadBaseline(options)) return *status;
  const LintResult result = LintWithProgress(options);
  if (!Print(Render(result, options))) return FailToPrint();
  if (options.newBaseline.empty() || result.walkFailure) return StatusOf(result, options.failOn);
  return WriteBaseline(result, options.newBaseline);
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

void AddFailOn(CLI::App& command, std::optional<Severity>& failOn) {
  command
      .add_option_function<std::string>(
          "--fail-on",
          [&failOn](const std::string& name) {
            failOn = std::nullopt;
            for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Info}) {
              if (name == NameOf(severity)) failOn = severity;
            }
          },
          "error (default), warning, info or never: the least severity of\na finding that makes "
          "the exit status 1")
      ->check(CLI::IsMember({"error", "warning", "info", "never"}))
      ->type_name("NAME");
}

void AddIds(CLI::App& command, const std::string& name, std::set<LintId>& ids,
            const std::string& help) {
  AddRepeated(
      command, name, "ID", [&ids](const std::string& id) { ids.insert(ParseRule(id).id); }, help);
}

void AddBaselines(CLI::App& command, LintOptions& options) {
  command
      .add_option("--baseline", options.baseline,
                  "File of known findings: they are counted, and do not change\nthe exit status")
      ->type_name("FILE");
  command
      .add_option("--write-baseline", options.newBaseline,
                  "Write all findings to a file as known, and end with 0")
      ->type_name("FILE");
}

void AddFiles(CLI::App& command, std::vector<std::string>& files) {
  command
      .add_option("FILE", files, "Files of the folder whose findings are reported; all, without")
      ->type_name("");
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
  AddFiles(*command, options->files);
  AddLintFormat(*command, options->format);
  AddTarget(*command, options->lint.target);
  AddFailOn(*command, options->failOn);
  AddIds(*command, "--ignore", options->lint.ignored, "Id of a finding to omit. Repeatable");
  AddIds(*command, "--only", options->lint.only,
         "Id of a finding to report; others are omitted. Repeatable");
  AddBaselines(*command, *options);
  AddExplained(*command, options->explained);
  AddDisplay(*command, options->display);
  command->footer(HelpText::lint);
  command->callback([options, folder, &chosen] {
    if (folder->count() == 0 && options->explained == nullptr) {
      throw CLI::RequiredError("FOLDER");
    }
    chosen = [options] { return RunLintCommand(*options); };
  });
}

}  // namespace Vornik::Cli
