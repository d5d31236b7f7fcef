#include "plain_properties.h"

#include <cctype>
#include <cstdlib>

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

std::string PlainValue(const std::string& name, const SupXmlProperties& properties) {
  const std::string wanted = LowerCase(name);
  std::string value;
  for (const SupXmlProperty& property : properties) {
    if (LowerCase(property.name) != wanted) continue;
    if (!property.values.empty()) value = property.values[0];
  }
  return value;
}

std::vector<std::string> PlainValues(const std::string& name, const SupXmlProperties& properties) {
  const std::string wanted = LowerCase(name);
  std::vector<std::string> values;
  for (const SupXmlProperty& property : properties) {
    if (LowerCase(property.name) == wanted) values = property.values;
  }
  return values;
}

int PlainNumber(const std::string& text) {
  return std::atoi(text.c_str());  // NOLINT(cert-err34-c): no number is 0 here, not an error
}

}  // namespace Vornik::Testing
