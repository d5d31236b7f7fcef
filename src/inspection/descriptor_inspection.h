// A file of a package folder as a query reads it, with the places of what is in it: for tools.
#ifndef VORNIK_INSPECTION_DESCRIPTOR_INSPECTION_H
#define VORNIK_INSPECTION_DESCRIPTOR_INSPECTION_H

#include <boost/filesystem/file_status.hpp>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "inspection/text_position.h"
#include "model/properties.h"
#include "reading/descriptor_reading.h"

namespace Vornik {

struct PlacedValue {
  TextPosition place;   // of the VALUE
  std::size_t texts{};  // values that it yields: one, none if it is empty, more if it is split
};

struct PlacedProperty {
  TextPosition place;
  std::vector<PlacedValue> values;
};

// An individual descriptor, or an INSTANCE of a pack.
struct PlacedPackage {
  TextPosition place;  // of the INSTANCE; of the root element if there is none
  SupXmlProperties properties;
  std::vector<std::shared_ptr<const PlacedProperty>> places;  // one for each property
  std::string className;                                      // of the INSTANCE
  std::optional<int> outerLine;  // of the nearest INSTANCE around this one
  bool hasOverlongCode = false;  // it is passed over, so it has no properties here
};

struct InstanceWithoutClassName {
  TextPosition place;
  std::string firstAttribute;
};

// Something that looks as if it were read and is not, so that text is lost.
struct UnreadMarkup {
  enum class Kind {
    InstanceWithoutAttributes,  // in a pack, with a property
    InstanceCase,               // the same, of an INSTANCE in another case
    ElementCase,                // a property or value element in another case
    ValueMisplaced,             // a VALUE directly in an array, or a VALUE.ARRAY in a PROPERTY
    PropertyUnnamed,            // no attribute NAME, in this case
  };
  Kind kind = Kind::ElementCase;
  TextPosition place;
  std::string element;           // its name
  std::optional<int> outerLine;  // of the nearest INSTANCE around it that is read
};

struct IndividualInstance {
  TextPosition place;
  std::string code;  // empty if it has none
};

struct DescriptorInspection {
  // As in a query, with the place of a fault. The properties are in packages.
  DescriptorReading reading;

  // Nothing where a FileReading has none.
  std::optional<std::string> bytes;

  // What follows is empty where the document has no root.
  TextPosition root;

  // One for an individual descriptor with properties; one for each instance of a pack that a query
  // collects, with or without properties.
  std::vector<PlacedPackage> packages;

  // Of an individual descriptor with several instances: those that contain a property, without
  // those inside another one.
  std::vector<IndividualInstance> individualInstances;

  std::vector<UnreadMarkup> unreadMarkup;  // in document order

  // All of them; a query never gets past the first one in a pack.
  std::vector<InstanceWithoutClassName> instancesWithoutClassName;
};

// Throws std::bad_alloc, and what ReadEntry throws.
DescriptorInspection InspectDescriptor(const std::string& path, TextMode mode = nativeTextMode);

// The same reading without places, in all its steps. type is what the folder's listing says.
DescriptorReading ReadDescriptor(const std::string& path, boost::filesystem::file_type type);

// Why a file adds nothing, as a sentence without a full stop: "elements are nested more than 1,000
// deep". Empty if there is no fault.
std::string FaultText(const DescriptorReading& reading);

}  // namespace Vornik

#endif  // VORNIK_INSPECTION_DESCRIPTOR_INSPECTION_H
