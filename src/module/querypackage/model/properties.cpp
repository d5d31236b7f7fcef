#include "properties.h"

#include <algorithm>

#include "text/letter_case.h"

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

const std::vector<std::string>* FindPropertyValues(std::string_view name,
                                                   const SupXmlProperties& properties) {
  const auto last = std::find_if(
      properties.rbegin(), properties.rend(),
      [name](const SupXmlProperty& property) { return EqualByCLibraryFold(property.name, name); });
  return last == properties.rend() ? nullptr : &last->values;
}

std::vector<std::string> GetPropertyValues(std::string_view name,
                                           const SupXmlProperties& properties) {
  const std::vector<std::string>* values = FindPropertyValues(name, properties);
  return values == nullptr ? std::vector<std::string>() : *values;
}

}  // namespace Vornik
