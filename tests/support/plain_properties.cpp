#include "plain_properties.h"

#include <cctype>
#include <cstdint>

namespace Vornik::Testing {

namespace {

std::string LowerCase(const std::string& text) {
  std::string lower;
  for (const char c : text) {
    lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return lower;
}

}  // namespace

bool PlainSameName(const std::string& a, const std::string& b) {
  return LowerCase(a) == LowerCase(b);
}

std::string PlainValue(const std::string& name, const SupXmlProperties& properties) {
  std::string value;
  for (const SupXmlProperty& property : properties) {
    if (!PlainSameName(property.name, name)) continue;
    if (!property.values.empty()) value = property.values[0];
  }
  return value;
}

std::vector<std::string> PlainValues(const std::string& name, const SupXmlProperties& properties) {
  std::vector<std::string> values;
  for (const SupXmlProperty& property : properties) {
    if (PlainSameName(property.name, name)) values = property.values;
  }
  return values;
}

int PlainNumber(const std::string& text) {
  std::size_t at = 0;
  while (at < text.size() && std::isspace(static_cast<unsigned char>(text[at])) != 0) ++at;
  const bool isNegative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  std::uint64_t number = 0;
  const std::uint64_t most = (std::uint64_t{1} << 63U) - (isNegative ? 0 : 1);
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    const auto digit = static_cast<std::uint64_t>(text[at] - '0');
    number = number > (most - digit) / 10 ? most : number * 10 + digit;
  }
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(isNegative ? 0 - number : number));
}

}  // namespace Vornik::Testing
