// One package of a folder with the places of everything in it: an individual descriptor, or an
// INSTANCE of a pack. What a name or an index means is the library's rule: see properties.h.
#ifndef VORNIK_CLI_LINT_PACKAGE_H
#define VORNIK_CLI_LINT_PACKAGE_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "cimxml.h"
#include "properties.h"
#include "text_position.h"

namespace Vornik::Cli {

struct PlacedValue {
  TextPosition place;   // of the VALUE
  std::size_t texts{};  // values that it gives
};

struct PlacedProperty {
  TextPosition place;
  std::vector<PlacedValue> values;
};

// The place of an element.
TextPosition PlaceOf(const TiXmlNode& node);

class LintPackage {
 public:
  const std::string& File() const { return file_; }
  TextPosition Place() const { return place_; }  // of the INSTANCE, or of the root element
  const SupXmlProperties& Properties() const { return properties_; }

  // As GetPropertyValue and GetPropertyValues.
  std::string Value(std::string_view name) const;
  std::vector<std::string> Values(std::string_view name) const;
  std::string Code() const;

  // Of all properties of the name, their indices.
  std::vector<std::size_t> Occurrences(std::string_view name) const;

  const PlacedProperty& Placed(std::size_t property) const { return *places_[property]; }

  // Of the VALUE that Value reads. Without one: of the last property of the name, or of the
  // package.
  TextPosition PlaceOfValue(std::string_view name) const;

  // Of the last property of the name, or of the package.
  TextPosition PlaceOfProperty(std::string_view name) const;

  // Of the VALUE that gives each entry of Values.
  std::vector<TextPosition> PlacesOfEntries(std::string_view name) const;

 private:
  friend class PackageReader;

  std::string file_;
  TextPosition place_;
  SupXmlProperties properties_;
  std::vector<std::shared_ptr<const PlacedProperty>> places_;  // one for each property
};

// Reads the packages of one document. An element that several instances share is placed once.
class PackageReader {
 public:
  explicit PackageReader(std::string file) : file_(std::move(file)) {}

  // The properties at or below top, an element of the document. place is where to look when the
  // package as a whole is meant.
  LintPackage Read(const TiXmlNode& top, TextPosition place);

 private:
  std::shared_ptr<const PlacedProperty> PlacesOf(const TiXmlNode& property);

  std::string file_;
  std::unordered_map<const TiXmlNode*, std::shared_ptr<const PlacedProperty>> known_;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_PACKAGE_H
