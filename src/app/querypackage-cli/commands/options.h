// The options that the subcommands share, each group added to a subcommand by one call. What they
// are bound to has to live until the command line is parsed.
#ifndef VORNIK_CLI_COMMANDS_OPTIONS_H
#define VORNIK_CLI_COMMANDS_OPTIONS_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/query_settings.h"
#include "output/terminal.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace Vornik::Cli {

enum class Format { Table, Json };

struct LogOptions {
  unsigned int level = 1;
  std::string file;
  bool toFile = false;  // otherwise to standard error
  bool levelIsGiven = false;
};

struct DisplayOptions {
  ColourChoice colour = ColourChoice::Auto;
  bool quiet = false;  // no notes and no warnings
};

// Required, unless the caller says otherwise.
CLI::Option* AddFolder(CLI::App& command, std::string& folder);

// The folder included.
void AddQuerySettings(CLI::App& command, QuerySettings& settings);

// Of those the settings of the filters.
void AddFilterSettings(CLI::App& command, QuerySettings& settings);

// Which packages are explained.
struct PackageIds {
  std::vector<std::string> asked;  // ids and patterns
  std::optional<std::string> exact;
};

void AddPackageIds(CLI::App& command, PackageIds& ids);

// An option that takes one value each time it is given. The values are taken one by one as they
// are: read as a list, the value "{}" would be an empty one.
void AddRepeated(CLI::App& command, const std::string& name, const std::string& typeName,
                 const std::function<void(const std::string&)>& take, const std::string& help);

void AddFormat(CLI::App& command, Format& format);
// The level that log has is the default.
void AddLogOptions(CLI::App& command, LogOptions& log);
void AddDisplay(CLI::App& command, DisplayOptions& display);
void AddTrust(CLI::App& command, bool& trust);

// Directs the library's log records. False if the file cannot be opened: reason then says why.
bool ApplyLogOptions(const LogOptions& log, std::string& reason);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_OPTIONS_H
