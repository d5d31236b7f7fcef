#include "commands/options.h"

#include <LogSettings.h>
#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <limits>
#include <variant>
#include <vector>

#include "commands/parser.h"
#include "model/filter_table.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxLogBytes = std::size_t{100} << 20;

// Decimal digits only, with a minus sign where Number has one: a leading zero is no octal number.
template <typename Number>
Number ParseNumber(const std::string& option, const std::string& text,
                   Number min = std::numeric_limits<Number>::min(),
                   Number max = std::numeric_limits<Number>::max()) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < min || number > max) {
    throw CLI::ValidationError(
        option, fmt::format("\"{}\" is not a whole number from {} to {}", text, min, max));
  }
  return number;
}

template <typename Code>
void AddCode(CLI::App& command, const std::string& name, Code& code, const std::string& help) {
  command
      .add_option_function<std::string>(
          name,
          [name, &code](const std::string& text) {
            code = static_cast<Code>(ParseNumber<std::uint32_t>(name, text, 1));
          },
          help)
      ->type_name("N")
      ->required();
}

void AddFilterOption(CLI::App& command, const FilterSetting& setting, bool& filter) {
  command.add_flag_callback(
      setting.option, [&filter] { filter = false; }, setting.help);
}

void AddFilterOption(CLI::App& command, const FilterSetting& setting,
                     std::vector<std::string>& list) {
  AddRepeated(
      command, setting.option, setting.item,
      [&list](const std::string& text) { list.push_back(text); }, setting.help);
}

void AddFilterOption(CLI::App& command, const FilterSetting& setting,
                     std::vector<UpdateType>& list) {
  AddRepeated(
      command, setting.option, setting.item,
      [&list, option = setting.option](const std::string& text) {
        list.push_back(static_cast<UpdateType>(ParseNumber<std::int32_t>(option, text)));
      },
      setting.help);
}

void AddColour(CLI::App& command, ColourChoice& colour) {
  command
      .add_option_function<std::string>(
          "--color",
          [&colour](const std::string& name) {
            if (name == "always") colour = ColourChoice::Always;
            if (name == "never") colour = ColourChoice::Never;
          },
          "auto (default): on a terminal, always, or never")
      ->check(CLI::IsMember({"auto", "always", "never"}))
      ->type_name("WHEN");
}

}  // namespace

CLI::Option* AddFolder(CLI::App& command, std::string& folder) {
  return command.add_option("FOLDER", folder, "Folder of the package descriptors and payloads")
      ->type_name("")
      ->required();
}

void AddQuerySettings(CLI::App& command, QuerySettings& settings) {
  AddFolder(command, settings.folder);
  command
      .add_option("--machine-type", settings.machineType,
                  "Machine type: four decimal digits, compared exactly")
      ->type_name("TYPE")
      ->required();
  AddCode(command, "--os", settings.osValue,
          "Operating-system code, 1 to 4294967295, as the descriptors use it");
  AddCode(command, "--arch", settings.arcValue,
          "Architecture code, 1 to 4294967295, as the descriptors use it");
  AddFilterSettings(command, settings);
}

void AddFilterSettings(CLI::App& command, QuerySettings& settings) {
  for (const Filter* filter : FiltersWithSetting()) {
    const FilterSetting& setting = filter->setting.value();
    std::visit([&](auto member) { AddFilterOption(command, setting, settings.*member); },
               setting.member);
  }
}

void AddPackageIds(CLI::App& command, PackageIds& ids) {
  // An argument of several values divides "[a,b]". What is given to --package is taken as it is,
  // but an option with one value would read "{}" as no value.
  command
      .add_option(
          "ID", [](const CLI::results_t&) { return true; },
          "Identification codes of packages; * matches any text,\n? one character")
      ->each([&ids](const std::string& id) { ids.asked.push_back(id); })
      ->expected(0, CLI::detail::expected_max_vector_size)
      ->allow_extra_args()
      ->type_name("");
  command
      .add_option(
          "--package", [](const CLI::results_t&) { return true; },
          "An ID taken as it is, \"\" for the package without one; case\ncounts only where two "
          "codes "
          "differ in nothing else")
      ->each([&ids](const std::string& id) { ids.exact = id; })
      ->expected(1)
      ->type_name("ID");
}

void AddRepeated(CLI::App& command, const std::string& name, const std::string& typeName,
                 const std::function<void(const std::string&)>& take, const std::string& help) {
  command
      .add_option(
          name, [](const CLI::results_t&) { return true; }, help)
      ->each(take)
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->type_name(typeName);
}

void AddFormat(CLI::App& command, Format& format) {
  command
      .add_option_function<std::string>(
          "--format",
          [&format](const std::string& name) {
            format = name == "json" ? Format::Json : Format::Table;
          },
          "table (default), or json: then standard output holds\nnothing but the JSON document")
      ->check(CLI::IsMember({"table", "json"}))
      ->type_name("NAME");
}

void AddLogOptions(CLI::App& command, LogOptions& log) {
  command
      .add_option_function<std::string>(
          "--log-level",
          [&log](const std::string& text) {
            log.level = ParseNumber<unsigned int>("--log-level", text, 0, 3);
            log.levelIsGiven = true;
          },
          log.level == 0
              ? "Log records to write: 0 none (default), 1 errors,\n2 warnings too, 3 all"
              : "Log records to write: 0 none, 1 errors (default),\n2 warnings too, 3 all")
      ->type_name("N");
  command
      .add_option_function<std::string>(
          "--log-file",
          [&log](const std::string& file) {
            log.file = file;
            log.toFile = true;
          },
          "File to append log records to, in an existing folder other than\nFOLDER, renamed when "
          "it holds 100 MiB; without it they go to\nstandard error")
      ->type_name("FILE");
}

void AddDisplay(CLI::App& command, DisplayOptions& display) {
  AddColour(command, display.colour);
  command.add_flag("--quiet", display.quiet,
                   "Print only the result and errors, no notes or warnings");
}

void AddTrust(CLI::App& command, bool& trust) {
  command.add_flag(
      "--trust", trust,
      "Do not look first for descriptors that would hang the\nquery or end the process");
}

bool ApplyLogOptions(const LogOptions& log, std::string& reason) {
  SetMinLogLevel(log.level);
  if (!log.toFile) return true;
  LogFile file;
  file.path = log.file;
  file.maxBytes = maxLogBytes;
  return LogToFile(file, &reason);
}

}  // namespace Vornik::Cli
