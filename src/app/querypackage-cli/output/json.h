// JSON documents as the program writes them.
#ifndef VORNIK_CLI_OUTPUT_JSON_H
#define VORNIK_CLI_OUTPUT_JSON_H

#include <nlohmann/json.hpp>
#include <string>

namespace Vornik::Cli {

using Json = nlohmann::ordered_json;

// ASCII only; bytes of a text that are not UTF-8 become U+FFFD. Ends with a line feed.
std::string JsonText(const Json& document);

// The same on one line.
std::string JsonLine(const Json& document);

// An array of what make returns for each item.
template <typename Items, typename Make>
Json ArrayOf(const Items& items, Make make) {
  Json array = Json::array();
  for (const auto& item : items) array.push_back(make(item));
  return array;
}

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_JSON_H
