// One package of a folder with the places of everything in it: an individual descriptor, or an
// INSTANCE of a pack. What a name or an index means is the library's rule: see properties.h.
#ifndef VORNIK_CLI_LINT_PACKAGE_H
#define VORNIK_CLI_LINT_PACKAGE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "inspection/descriptor_inspection.h"
#include "model/properties.h"

namespace Vornik::Cli {

class LintPackage {
 public:
  LintPackage(std::string file, PlacedPackage package);

  const std::string& File() const { return file_; }
  TextPosition Place() const { return package_.place; }  // of the INSTANCE, or of the root element
  const SupXmlProperties& Properties() const { return package_.properties; }
  const std::string& ClassName() const { return package_.className; }  // empty: an individual one's

  // As GetPropertyValue and GetPropertyValues.
  std::string Value(std::string_view name) const;
  std::vector<std::string> Values(std::string_view name) const;
  const std::string& Code() const { return code_; }

  // Of all properties with the name, their indices.
  std::vector<std::size_t> Occurrences(std::string_view name) const;

  const PlacedProperty& Placed(std::size_t property) const { return *package_.places[property]; }

  // Of the VALUE that Value reads. Without one: of the last property of the name, or of the
  // package.
  TextPosition PlaceOfValue(std::string_view name) const;

  // Of the last property of the name, or of the package.
  TextPosition PlaceOfProperty(std::string_view name) const;

  // Of the VALUE that yields each entry of Values.
  std::vector<TextPosition> PlacesOfEntries(std::string_view name) const;

 private:
  std::string file_;
  PlacedPackage package_;
  std::string code_;  // looked up for each finding
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_PACKAGE_H
