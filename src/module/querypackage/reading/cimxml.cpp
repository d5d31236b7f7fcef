#include "cimxml.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Vornik {

namespace {

constexpr char nameAttribute[] = "NAME";
constexpr char typeAttribute[] = "TYPE";
constexpr char classNameAttribute[] = "CLASSNAME";

bool IsProperty(const TiXmlNode& node) {
  return node.Type() == TiXmlNode::TINYXML_ELEMENT &&
         (IsNamed(node, Element::property) || IsNamed(node, Element::propertyArray));
}

std::size_t CountProperties(const TiXmlNode* root) {
  std::size_t count = 0;
  for (const TiXmlNode* node = root; node != nullptr; node = NextBelow(node, root)) {
    if (IsProperty(*node)) ++count;
  }
  return count;
}

// After node and every parent of which it is the last child. Null after top.
const TiXmlNode* NextAfterSubtree(const TiXmlNode* node, const TiXmlNode* top,
                                  std::size_t& openInstances) {
  for (;; node = node->Parent()) {
    if (KindOfInstance(*node) == InstanceKind::Collected) --openInstances;
    if (node == top) return nullptr;
    if (node->NextSibling() != nullptr) return node->NextSibling();
  }
}

// A property counts once for every collected instance around it. None where an instance keeps the
// others from being collected.
std::size_t CountInstanceProperties(const TiXmlNode* root) {
  std::size_t count = 0;
  std::size_t openInstances = 0;
  const TiXmlNode* node = root;
  while (node != nullptr) {
    const InstanceKind kind = KindOfInstance(*node);
    if (kind == InstanceKind::WithoutClassName) return 0;
    if (kind == InstanceKind::Collected) ++openInstances;
    if (IsProperty(*node)) count += openInstances;
    const TiXmlNode* child = node->FirstChild();
    node = child != nullptr ? child : NextAfterSubtree(node, root, openInstances);
  }
  return count;
}

std::size_t CountRecords(const TiXmlNode* root, DescriptorKind kind) {
  return kind == DescriptorKind::Pack ? CountInstanceProperties(root) : CountProperties(root);
}

// Each property and each instance takes a '<' of its own, and records are counted at most once for
// each pair of them that are inside one another: so few of them need no count.
bool MayHaveTooManyRecords(const std::string& text, std::size_t nesting) {
  const std::size_t elements = static_cast<std::size_t>(std::count(text.begin(), text.end(), '<'));
  if (elements > maxPropertyRecords) return true;
  const std::size_t pairs = (elements / 2) * ((elements + 1) / 2);
  return pairs > maxPropertyRecords && nesting > maxPropertyRecords / elements;
}

// In place and up to the first zero byte, as TiXmlDocument::LoadFile does it, with the bytes that
// this leaves after the new end: TinyXML steps onto them where a character reaches over that end.
// The text has to end with a zero byte. Returns the new end.
std::size_t NormaliseLineEnds(char* text) {
  char* to = std::strchr(text, '\r');
  if (to == nullptr) return std::strlen(text);
  const char* from = to;
  while (*from != '\0') {
    if (*from != '\r') {
      *to++ = *from++;
      continue;
    }
    *to++ = '\n';
    ++from;
    if (*from == '\n') ++from;
  }
  *to = '\0';
  return static_cast<std::size_t>(to - text);
}

DescriptorFault FaultOf(XmlLimitFault fault) {
  switch (fault) {
    case XmlLimitFault::NestedTooDeep:
      return DescriptorFault::NestedTooDeep;
    case XmlLimitFault::TooManyAttributes:
      return DescriptorFault::TooManyAttributes;
    case XmlLimitFault::None:
      break;
  }
  return DescriptorFault::None;
}

// TinyXML names no place for a comment, a CDATA section or a reference without an end.
ParseOutcome NotWellFormed(const TiXmlDocument& document) {
  ParseOutcome outcome{DescriptorFault::NotWellFormed, document.ErrorDesc(), 0, 0};
  if (document.TabSize() > 0 && document.ErrorRow() > 0) {
    outcome.line = document.ErrorRow();
    outcome.column = document.ErrorCol();
  }
  return outcome;
}

void ReadAttributes(const TiXmlElement& element, SupXmlProperty& property) {
  for (const TiXmlAttribute* attribute = element.FirstAttribute(); attribute != nullptr;
       attribute = attribute->Next()) {
    if (std::strcmp(attribute->Name(), nameAttribute) == 0) property.name = attribute->Value();
    if (std::strcmp(attribute->Name(), typeAttribute) == 0) property.type = attribute->Value();
  }
}

SupXmlProperty ReadProperty(const TiXmlElement& element) {
  SupXmlProperty property;
  ReadAttributes(element, property);
  VisitValuesOfProperty(element, [&property](const TiXmlElement& value) {
    VisitTexts(value, [&property](const char* text) { property.values.emplace_back(text); });
  });
  return property;
}

}  // namespace

PreparedXml PrepareXml(std::string bytes) {
  PreparedXml xml;
  xml.text = std::move(bytes);
  xml.text.append(xmlTextPadding, '\0');
  xml.end = NormaliseLineEnds(xml.text.data());
  xml.scan = ScanXml(xml.text);
  return xml;
}

ParseOutcome CimXmlDocument::Parse(PreparedXml xml, DescriptorKind kind, Positions positions) {
  if (xml.scan.fault != XmlLimitFault::None) return {FaultOf(xml.scan.fault), {}, 0, 0};
  const bool truncatedAtDeclaration = xml.scan.unfinishedDeclaration != XmlScan::npos;
  if (truncatedAtDeclaration) xml.text[xml.scan.unfinishedDeclaration] = '\0';

  auto document = std::make_unique<TiXmlDocument>();
  document->SetTabSize(positions == Positions::Tracked ? 1 : 0);
  document->Parse(xml.text.data(), nullptr, TIXML_ENCODING_UNKNOWN);
  // A document of an unfinished declaration alone has no root, but it is not an empty one.
  if (truncatedAtDeclaration && document->NoChildren()) return {};
  if (document->Error()) return NotWellFormed(*document);
  if (MayHaveTooManyRecords(xml.text, xml.scan.nesting) &&
      CountRecords(document->FirstChildElement(), kind) > maxPropertyRecords) {
    return {DescriptorFault::TooManyProperties, {}, 0, 0};
  }
  document_ = std::move(document);
  return {};
}

const TiXmlNode* CimXmlDocument::Root() const {
  return document_ == nullptr ? nullptr : document_->FirstChildElement();
}

bool CimXmlDocument::CollectInstances() {
  for (const TiXmlNode* node = Root(); node != nullptr; node = NextBelow(node, Root())) {
    const InstanceKind kind = KindOfInstance(*node);
    if (kind == InstanceKind::WithoutClassName) return false;
    if (kind == InstanceKind::Collected) instances_.push_back(node);
  }
  return true;
}

SupXmlProperties ReadProperties(const TiXmlNode* node) {
  const std::vector<const TiXmlElement*> elements = CollectProperties(node);
  SupXmlProperties properties;
  properties.reserve(elements.size());
  for (const TiXmlElement* element : elements) properties.push_back(ReadProperty(*element));
  return properties;
}

std::vector<const TiXmlElement*> CollectProperties(const TiXmlNode* node) {
  std::vector<const TiXmlElement*> elements;
  for (const TiXmlNode* next = node; next != nullptr; next = NextBelow(next, node)) {
    if (IsProperty(*next)) elements.push_back(next->ToElement());
  }
  return elements;
}

InstanceKind KindOfInstance(const TiXmlNode& node) {
  const TiXmlElement* element = node.ToElement();
  if (element == nullptr || !IsNamed(*element, Element::instance)) return InstanceKind::None;
  const TiXmlAttribute* first = element->FirstAttribute();
  if (first == nullptr) return InstanceKind::None;
  const bool hasClassName = std::strcmp(first->Name(), classNameAttribute) == 0;
  return hasClassName ? InstanceKind::Collected : InstanceKind::WithoutClassName;
}

const TiXmlNode* NextBelow(const TiXmlNode* node, const TiXmlNode* top) {
  if (node->FirstChild() != nullptr) return node->FirstChild();
  while (node != top && node->NextSibling() == nullptr) node = node->Parent();
  return node == top ? nullptr : node->NextSibling();
}

}  // namespace Vornik
