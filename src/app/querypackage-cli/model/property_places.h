// Lines of the descriptors in which a query found what decided.
#ifndef VORNIK_CLI_MODEL_PROPERTY_PLACES_H
#define VORNIK_CLI_MODEL_PROPERTY_PLACES_H

#include <deque>
#include <map>
#include <string>

#include "inspection/descriptor_inspection.h"
#include "model/properties.h"

namespace Vornik::Cli {

// How a property is read, which decides which of several with its name counts.
enum class PropertyRead {
  Value,  // as GetPropertyValue: the last one with a value
  List,   // as GetPropertyValues: the last one
};

class PropertyPlaces {
 public:
  PropertyPlaces() = default;

  // For explanations whose places nobody shows: no file is read, and each line is 0.
  static PropertyPlaces WithoutLines();

  // The line of a property, counted from 1; of several with that name the one that counts, and of
  // those without a value the last. That of the package where it has no such property; 0 where the
  // file no longer has the package.
  int LineOf(const std::string& file, const SupXmlProperties& package, const char* property,
             PropertyRead read);

 private:
  const DescriptorInspection& InspectionOf(const std::string& file);

  // The files that were used last: packs are used again and again.
  std::map<std::string, DescriptorInspection> inspections_;
  std::deque<std::string> files_;  // the oldest one first
  bool readsFiles_ = true;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_PROPERTY_PLACES_H
