#include "model/property_places.h"

#include <algorithm>

#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxFiles = 16;

bool SameProperty(const SupXmlProperty& a, const SupXmlProperty& b) {
  return a.name == b.name && a.type == b.type && a.values == b.values;
}

bool SameProperties(const SupXmlProperties& a, const SupXmlProperties& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameProperty);
}

int LineIn(const PlacedPackage& package, const char* property, PropertyRead read) {
  const std::size_t none = package.properties.size();
  std::size_t found = none;
  for (std::size_t i = none; i-- > 0;) {
    if (!EqualByCLibraryFold(package.properties[i].name, property)) continue;
    const bool counts = read == PropertyRead::List || !package.properties[i].values.empty();
    if (counts || found == none) found = i;
    if (counts) break;
  }
  return found == none ? package.place.line : package.places[found]->place.line;
}

}  // namespace

PropertyPlaces PropertyPlaces::WithoutLines() {
  PropertyPlaces places;
  places.readsFiles_ = false;
  return places;
}

int PropertyPlaces::LineOf(const std::string& file, const SupXmlProperties& package,
                           const char* property, PropertyRead read) {
  if (!readsFiles_) return 0;
  const auto& packages = InspectionOf(file).packages;
  const auto found =
      std::find_if(packages.begin(), packages.end(), [&package](const PlacedPackage& candidate) {
        return SameProperties(candidate.properties, package);
      });
  return found == packages.end() ? 0 : LineIn(*found, property, read);
}

const DescriptorInspection& PropertyPlaces::InspectionOf(const std::string& file) {
  const auto known = inspections_.find(file);
  if (known != inspections_.end()) return known->second;
  if (files_.size() == maxFiles) {
    inspections_.erase(files_.front());
    files_.pop_front();
  }
  files_.push_back(file);
  return inspections_.emplace(file, InspectDescriptor(file)).first->second;
}

}  // namespace Vornik::Cli
