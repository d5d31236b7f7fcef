#include "lint/package.h"

#include <utility>

#include "model/literals.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

LintPackage::LintPackage(std::string file, PlacedPackage package)
    : file_(std::move(file)),
      package_(std::move(package)),
      code_(Value(PropertyName::identificationCode)) {}

std::string LintPackage::Value(std::string_view name) const {
  return GetPropertyValue(name, package_.properties);
}

std::vector<std::string> LintPackage::Values(std::string_view name) const {
  return GetPropertyValues(name, package_.properties);
}

std::vector<std::size_t> LintPackage::Occurrences(std::string_view name) const {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < package_.properties.size(); ++i) {
    if (EqualByCLibraryFold(package_.properties[i].name, name)) found.push_back(i);
  }
  return found;
}

TextPosition LintPackage::PlaceOfProperty(std::string_view name) const {
  const auto found = Occurrences(name);
  return found.empty() ? package_.place : Placed(found.back()).place;
}

TextPosition LintPackage::PlaceOfValue(std::string_view name) const {
  const auto found = Occurrences(name);
  for (auto last = found.rbegin(); last != found.rend(); ++last) {
    for (const PlacedValue& value : Placed(*last).values) {
      if (value.texts != 0) return value.place;
    }
  }
  return PlaceOfProperty(name);
}

std::vector<TextPosition> LintPackage::PlacesOfEntries(std::string_view name) const {
  std::vector<TextPosition> places;
  const auto found = Occurrences(name);
  if (found.empty()) return places;
  for (const PlacedValue& value : Placed(found.back()).values) {
    places.insert(places.end(), value.texts, value.place);
  }
  return places;
}

}  // namespace Vornik::Cli
