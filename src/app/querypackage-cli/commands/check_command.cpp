#include "commands/check_command.h"

#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/help_texts.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "model/folder_reading.h"
#include "model/hazard_check.h"
#include "output/console_text.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

struct CheckOptions {
  std::string folder;
  bool quiet = false;
};

std::string Render(const std::vector<Hazard>& hazards, std::size_t files, bool quiet) {
  std::string text;
  for (const Hazard& hazard : hazards) text += Printable(Describe(hazard)) + '\n';
  if (hazards.empty() && !quiet) {
    text = fmt::format("No descriptor would hang a query or end the process ({}).\n",
                       Count(files, "file"));
  }
  return text;
}

int CheckFolderOf(const CheckOptions& options) {
  if (!IsFolder(options.folder)) return FailOnFolder(options.folder);
  const FolderContents contents = ReadContents(options.folder);
  const std::vector<Hazard> hazards = FindHazards(contents);
  if (!Print(Render(hazards, contents.files.size(), options.quiet || contents.failure))) {
    return FailToPrint();
  }
  if (!hazards.empty()) {
    return Fail(ExitStatus::hazard,
                fmt::format("{} would hang a query or end the process: correct {}",
                            Count(hazards.size(), "file"), hazards.size() == 1 ? "it" : "them"));
  }
  return contents.failure ? FailOnWalk(FailureText(contents.failure)) : ExitStatus::success;
}

}  // namespace

void AddCheckCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command = app.add_subcommand(
      "check", "Look for descriptors that would hang a query or end the process");
  const auto options = std::make_shared<CheckOptions>();
  AddFolder(*command, options->folder);
  command->add_flag("--quiet", options->quiet, "Print only what is found");
  command->footer(HelpText::check);
  command->callback([options, &chosen] {
    chosen = [options] { return StatusOfRun([&options] { return CheckFolderOf(*options); }); };
  });
}

}  // namespace Vornik::Cli
