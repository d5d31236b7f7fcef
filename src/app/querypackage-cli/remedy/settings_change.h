// In which settings two queries of one folder differ, and how a query is written as a command line.
#ifndef VORNIK_CLI_REMEDY_SETTINGS_CHANGE_H
#define VORNIK_CLI_REMEDY_SETTINGS_CHANGE_H

#include <string>
#include <vector>

#include "model/query_settings.h"

namespace Vornik::Cli {

struct SettingChange {
  std::string setting;  // by its name in the JSON document
  std::string text;     // for a person, in the words of the options
};

std::vector<SettingChange> ChangesBetween(const QuerySettings& before, const QuerySettings& after);

// The arguments after the program's name.
std::vector<std::string> QueryArguments(const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_SETTINGS_CHANGE_H
