// A CIM-XML document as TinyXML's tree, and what is read of it. Only for descriptor_reading.cpp and
// src/inspection: no other interface shows TinyXML's types.
//
//   <PROPERTY NAME="Version" TYPE="string"><VALUE>1.2</VALUE></PROPERTY>
//       =>  {"Version", "string", {"1.2"}}
//   <PROPERTY.ARRAY NAME="preReq"><VALUE.ARRAY><VALUE>a</VALUE><VALUE>b</VALUE></VALUE.ARRAY>...
//       =>  {"preReq", "", {"a", "b"}}
//   <PROPERTY NAME="x"><VALUE></VALUE></PROPERTY>
//       =>  {"x", "", {}}
#ifndef VORNIK_QUERYPACKAGE_READING_CIMXML_H
#define VORNIK_QUERYPACKAGE_READING_CIMXML_H

#include <tinyxml.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "descriptor_reading.h"
#include "model/properties.h"
#include "xml_limits.h"

namespace Vornik {

namespace Element {
inline constexpr std::string_view property = "PROPERTY";
inline constexpr std::string_view propertyArray = "PROPERTY.ARRAY";
inline constexpr char value[] = "VALUE";
inline constexpr char valueArray[] = "VALUE.ARRAY";
inline constexpr std::string_view instance = "INSTANCE";
}  // namespace Element

// A file's bytes as TinyXML's own LoadFile passes them to its parser, padded and scanned.
struct PreparedXml {
  std::string text;
  std::size_t end = 0;  // of the text: its first zero byte
  XmlScan scan;
};

PreparedXml PrepareXml(std::string bytes);

struct ParseOutcome {
  DescriptorFault fault = DescriptorFault::None;
  std::string parserText;  // NotWellFormed: TinyXML's reason
  int line = 0;            // NotWellFormed: TinyXML's place, where it has one and tracks positions
  int column = 0;
};

// A PROPERTY or PROPERTY.ARRAY of a document, in or outside its instances.
struct InstanceProperty {
  const TiXmlElement* element;
  std::size_t instances;  // how many of them it is in
  std::size_t innermost;  // the index of the last of these; 0 if it is in none
};

// An INSTANCE whose first attribute is CLASSNAME. Its properties, with those of the instances
// inside it, are the document's from begin to before end.
struct CollectedInstance {
  const TiXmlNode* node;
  std::size_t begin;
  std::size_t end;
};

// Both in document order. An element is visited once, however many instances are around it.
struct InstanceCollection {
  std::vector<CollectedInstance> instances;
  std::vector<InstanceProperty> properties;
  bool isComplete = true;  // false: it ends at an INSTANCE whose first attribute has another name
};

class CimXmlDocument {
 public:
  // Once. Every fault leaves a document without a root. kind: what is limited, the records of one
  // reading from the root, or the lists of all instances.
  ParseOutcome Parse(PreparedXml xml, DescriptorKind kind, Positions positions);

  // The first child that is an element; null if there is none.
  const TiXmlNode* Root() const;

  // Collects the instances. False if it stops at one whose first attribute is not CLASSNAME.
  bool CollectInstances();
  const std::vector<CollectedInstance>& Instances() const { return collected_->instances; }

  // The properties of an instance, in document order. Take: once for each instance, in their order.
  SupXmlProperties CopyProperties(std::size_t instance) const;
  SupXmlProperties TakeProperties(std::size_t instance);
  std::vector<const TiXmlElement*> ElementsOf(std::size_t instance) const;

 private:
  DescriptorFault FaultOfLimits(const PreparedXml& xml, DescriptorKind kind,
                                const TiXmlDocument& document);
  SupXmlProperty TakeShared(std::size_t property, std::size_t instance);

  std::unique_ptr<TiXmlDocument> document_;
  std::optional<InstanceCollection> collected_;
  // Of properties in several instances, by their index: read once, and copied for all but the
  // innermost instance.
  std::vector<std::optional<SupXmlProperty>> shared_;
};

// Every PROPERTY and PROPERTY.ARRAY at or below node, in document order. Null: none.
SupXmlProperties ReadProperties(const TiXmlNode* node);

// The elements that ReadProperties makes its records of, in the same order.
std::vector<const TiXmlElement*> CollectProperties(const TiXmlNode* node);

// One without attributes is passed over like any other node.
enum class InstanceKind { None, Collected, WithoutClassName };

InstanceKind KindOfInstance(const TiXmlNode& node);

// Steps through top and all nodes below it, in document order. Null after the last one.
const TiXmlNode* NextBelow(const TiXmlNode* node, const TiXmlNode* top);

// An element's name contains no zero byte, so its length distinguishes most names.
inline bool IsNamed(const TiXmlNode& element, std::string_view name) {
  return element.ValueTStr() == name;
}

template <typename Visit>
void VisitValues(const TiXmlElement& parent, Visit visit) {
  for (const TiXmlElement* value = parent.FirstChildElement(Element::value); value != nullptr;
       value = value->NextSiblingElement(Element::value)) {
    visit(*value);
  }
}

// The VALUE elements that count, in document order.
template <typename Visit>
void VisitValuesOfProperty(const TiXmlElement& property, Visit visit) {
  if (IsNamed(property, Element::property)) {
    VisitValues(property, visit);
    return;
  }
  for (const TiXmlElement* array = property.FirstChildElement(Element::valueArray);
       array != nullptr; array = array->NextSiblingElement(Element::valueArray)) {
    VisitValues(*array, visit);
  }
}

// The texts of a VALUE; none for an empty one.
template <typename Visit>
void VisitTexts(const TiXmlElement& value, Visit visit) {
  for (const TiXmlNode* child = value.FirstChild(); child != nullptr;
       child = child->NextSibling()) {
    if (child->ToText() != nullptr) visit(child->Value());
  }
}

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_READING_CIMXML_H
