#include "lint_package.h"

#include "letter_case.h"
#include "literals.h"

namespace Vornik::Cli {

TextPosition PlaceOf(const TiXmlNode& node) { return {LineOf(node), ColumnOf(node)}; }

std::string LintPackage::Value(std::string_view name) const {
  return GetPropertyValue(name, properties_);
}

std::vector<std::string> LintPackage::Values(std::string_view name) const {
  return GetPropertyValues(name, properties_);
}

std::string LintPackage::Code() const { return Value(PropertyName::identificationCode); }

std::vector<std::size_t> LintPackage::Occurrences(std::string_view name) const {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < properties_.size(); ++i) {
    if (EqualByCLibraryFold(properties_[i].name, name)) found.push_back(i);
  }
  return found;
}

TextPosition LintPackage::PlaceOfProperty(std::string_view name) const {
  const auto found = Occurrences(name);
  return found.empty() ? place_ : Placed(found.back()).place;
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

LintPackage PackageReader::Read(const TiXmlNode& top, TextPosition place) {
  LintPackage package;
  package.file_ = file_;
  package.place_ = place;
  ReadProperties(&top, package.properties_);
  std::vector<const TiXmlNode*> elements;
  CollectProperties(&top, elements);
  package.places_.reserve(elements.size());
  for (const TiXmlNode* element : elements) package.places_.push_back(PlacesOf(*element));
  return package;
}

std::shared_ptr<const PlacedProperty> PackageReader::PlacesOf(const TiXmlNode& property) {
  auto& known = known_[&property];
  if (known != nullptr) return known;
  std::vector<ValueElement> values;
  CollectValues(property, values);
  auto placed = std::make_shared<PlacedProperty>();
  placed->place = PlaceOf(property);
  placed->values.reserve(values.size());
  for (const ValueElement& value : values) {
    placed->values.push_back({PlaceOf(*value.node), value.texts});
  }
  known = std::move(placed);
  return known;
}

}  // namespace Vornik::Cli
