#include "commands/list_command.h"

#include <fmt/format.h>

#include <memory>
#include <string>

#include "QueryPackage.h"
#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/help_texts.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "list/output.h"
#include "output/terminal.h"

namespace Vornik::Cli {

namespace {

enum class ListFormat { Table, Json, Csv };

struct ListOptions {
  std::string folder;
  ListFormat format = ListFormat::Table;
  ListPart part = ListPart::All;
  DisplayOptions display;
};

std::string Render(const FolderList& list, const ListOptions& options) {
  switch (options.format) {
    case ListFormat::Json:
      return ListJson(list);
    case ListFormat::Csv:
      return ListCsv(list, options.part);
    case ListFormat::Table:
      break;
  }
  return ListText(list, options.part, options.display.quiet, WantsColour(options.display.colour));
}

int StatusOf(const FolderList& list) {
  if (list.walkFailure) return FailOnWalk(*list.walkFailure);
  if (!list.packs.empty() || !list.packages.empty()) return ExitStatus::success;
  return Fail(QueryCode::NoResults,
              list.files == 0 ? "the folder has no file whose name ends in \".xml\": check the path"
                              : "no file of the folder is a package descriptor that can be read: "
                                "\"querypackage-cli lint\" says why");
}

int ListFolderOf(const ListOptions& options) {
  if (!IsFolder(options.folder)) return FailOnFolder(options.folder);
  const FolderList list = ListFolder(options.folder);
  return Print(Render(list, options)) ? StatusOf(list) : FailToPrint();
}

void AddListFormat(CLI::App& command, ListFormat& format) {
  command
      .add_option_function<std::string>(
          "--format",
          [&format](const std::string& name) {
            if (name == "json") format = ListFormat::Json;
            if (name == "csv") format = ListFormat::Csv;
          },
          "table (default), json, or csv: one table, of the packages\nunless --show says otherwise")
      ->check(CLI::IsMember({"table", "json", "csv"}))
      ->type_name("NAME");
}

void AddShow(CLI::App& command, ListPart& part) {
  command
      .add_option_function<std::string>(
          "--show",
          [&part](const std::string& name) {
            if (name == "machines") part = ListPart::Machines;
            if (name == "packs") part = ListPart::Packs;
            if (name == "packages") part = ListPart::Packages;
          },
          "all (default), machines, packs, or packages; a JSON document\nalways has all of them")
      ->check(CLI::IsMember({"all", "machines", "packs", "packages"}))
      ->type_name("NAME");
}

}  // namespace

void AddListCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command =
      app.add_subcommand("list", "List the machines, packs and packages of a folder");
  const auto options = std::make_shared<ListOptions>();
  AddFolder(*command, options->folder);
  AddListFormat(*command, options->format);
  AddShow(*command, options->part);
  AddDisplay(*command, options->display);
  command->footer(HelpText::list);
  command->callback([options, &chosen] {
    chosen = [options] { return StatusOfRun([&options] { return ListFolderOf(*options); }); };
  });
}

}  // namespace Vornik::Cli
