#include "output/json.h"

namespace Vornik::Cli {

namespace {

constexpr bool asciiOnly = true;
constexpr auto onInvalidBytes = Json::error_handler_t::replace;

}  // namespace

std::string JsonText(const Json& document) {
  constexpr int indent = 2;
  return document.dump(indent, ' ', asciiOnly, onInvalidBytes) + '\n';
}

std::string JsonLine(const Json& document) {
  return document.dump(-1, ' ', asciiOnly, onInvalidBytes) + '\n';
}

}  // namespace Vornik::Cli
