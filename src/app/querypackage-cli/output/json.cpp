#include "output/json.h"

namespace Vornik::Cli {

std::string JsonText(const Json& document) {
  constexpr int indent = 2;
  constexpr bool asciiOnly = true;
  return document.dump(indent, ' ', asciiOnly, Json::error_handler_t::replace) + '\n';
}

}  // namespace Vornik::Cli
