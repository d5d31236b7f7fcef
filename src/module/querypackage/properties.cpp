#include "properties.h"

#include <algorithm>

#include "letter_case.h"

namespace Vornik {

const std::string* FindPropertyValue(std::string_view name, const SupXmlProperties& properties) {
  const auto last =
      std::find_if(properties.rbegin(), properties.rend(), [name](const SupXmlProperty& property) {
        return !property.values.empty() && EqualByCLibraryFold(property.name, name);
      });
  return last == properties.rend() ? nullptr : &last->values.front();
}

std::string GetPropertyValue(std::string_view name, const SupXmlProperties& properties) {
  const std::string* value = FindPropertyValue(name, properties);
  return value == nullptr ? std::string() : *value;
}

std::vector<std::string> GetPropertyValues(std::string_view name,
                                           const SupXmlProperties& properties) {
  const auto last = std::find_if(
      properties.rbegin(), properties.rend(),
      [name](const SupXmlProperty& property) { return EqualByCLibraryFold(property.name, name); });
  return last == properties.rend() ? std::vector<std::string>() : last->values;
}

}  // namespace Vornik
