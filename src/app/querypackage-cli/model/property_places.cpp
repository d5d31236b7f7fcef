#include "model/property_places.h"

#include <algorithm>

#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

bool SameProperty(const SupXmlProperty& a, const SupXmlProperty& b) {
  return a.name == b.name && a.type == b.type && a.values == b.values;
}

bool SameProperties(const SupXmlProperties& a, const SupXmlProperties& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameProperty);
}

int LineIn(const PlacedPackage& package, const char* property) {
  for (std::size_t i = package.properties.size(); i-- > 0;) {
    if (EqualByCLibraryFold(package.properties[i].name, property)) {
      return package.places[i]->place.line;
    }
  }
  return package.place.line;
}

}  // namespace

int PropertyPlaces::LineOf(const std::string& file, const SupXmlProperties& package,
                           const char* property) {
  if (file_ != file) {
    inspection_ = InspectDescriptor(file);
    file_ = file;
  }
  const auto& packages = inspection_.packages;
  const auto found =
      std::find_if(packages.begin(), packages.end(), [&package](const PlacedPackage& candidate) {
        return SameProperties(candidate.properties, package);
      });
  return found == packages.end() ? 0 : LineIn(*found, property);
}

}  // namespace Vornik::Cli
