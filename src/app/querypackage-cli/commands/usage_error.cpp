#include "commands/usage_error.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "commands/parser.h"
#include "model/edit_distance.h"

namespace Vornik::Cli {

namespace {

std::string WithNearest(const std::string& text, const std::string& name,
                        const std::vector<std::string>& known) {
  const std::vector<std::string> nearest = NearestNames(name, known);
  return nearest.empty() ? text : fmt::format("{}; did you mean \"{}\"?", text, nearest.front());
}

std::vector<std::string> SubcommandsOf(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands(nullptr)) names.push_back(command->get_name());
  return names;
}

std::vector<std::string> OptionsOf(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options(nullptr)) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

bool IsOption(const std::string& argument) { return argument.size() > 1 && argument[0] == '-'; }

// An option that the subcommand does not have, or else an argument too many; empty: there is none.
std::string UnexpectedOf(const CLI::App& command) {
  const std::vector<std::string> remaining = command.remaining();
  const auto option = std::find_if(remaining.begin(), remaining.end(), IsOption);
  if (option != remaining.end()) return *option;
  return remaining.empty() ? "" : remaining.front();
}

bool IsAboutTheWholeLine(const CLI::ParseError& error) {
  return dynamic_cast<const CLI::RequiredError*>(&error) != nullptr ||
         dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
}

}  // namespace

std::optional<std::string> FindWrongSubcommand(const CLI::App& app,
                                               const std::vector<std::string>& arguments) {
  if (arguments.empty()) return std::nullopt;
  const std::string& first = arguments.front();
  const std::vector<std::string> known = SubcommandsOf(app);
  if (std::find(known.begin(), known.end(), first) != known.end()) return std::nullopt;
  if (!IsOption(first)) {
    return WithNearest(
        fmt::format("\"{}\" is not a subcommand ({})", first, fmt::join(known, ", ")), first,
        known);
  }
  const std::vector<std::string> own{"-h", "--help", "--version"};
  if (std::find(own.begin(), own.end(), first) != own.end()) return std::nullopt;
  return WithNearest(
      fmt::format("\"{}\" has to follow a subcommand ({})", first, fmt::join(known, ", ")), first,
      own);
}

std::string TextOf(const CLI::App& app, const CLI::ParseError& error) {
  const auto chosen = app.get_subcommands();
  if (chosen.empty() || !IsAboutTheWholeLine(error)) return error.what();
  const std::string unexpected = UnexpectedOf(*chosen.front());
  if (unexpected.empty()) return error.what();
  const std::string& command = chosen.front()->get_name();
  if (!IsOption(unexpected)) {
    return fmt::format("\"{}\" is one argument too many for {}", unexpected, command);
  }
  const std::string option = unexpected.substr(0, unexpected.find('='));
  return WithNearest(fmt::format("\"{}\" is not an option of {}", option, command), option,
                     OptionsOf(*chosen.front()));
}

}  // namespace Vornik::Cli
