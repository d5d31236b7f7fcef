#ifndef VORNIK_TESTS_CLI_JSON_KEYS_H
#define VORNIK_TESTS_CLI_JSON_KEYS_H

#include <string>
#include <vector>

#include "cli_fixture.h"

namespace Vornik::Testing {

// The keys of an object, in order.
inline std::vector<std::string> KeysOf(const Json& object) {
  std::vector<std::string> keys;
  for (const auto& item : object.items()) keys.push_back(item.key());
  return keys;
}

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_JSON_KEYS_H
