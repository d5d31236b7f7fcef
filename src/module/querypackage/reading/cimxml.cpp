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

// Each property takes a '<' of its own, so few of them need no count.
bool HasTooManyProperties(const std::string& text, const TiXmlNode* root) {
  const auto elements = static_cast<std::size_t>(std::count(text.begin(), text.end(), '<'));
  return elements > maxPropertyRecords && CountProperties(root) > maxPropertyRecords;
}

// One walk through a document. The instances that are open form a stack.
class InstanceWalk {
 public:
  explicit InstanceWalk(const TiXmlNode* root) : root_(root) {}

  InstanceCollection Run() {
    for (const TiXmlNode* node = root_; node != nullptr && Visit(*node); node = Next(node)) {
    }
    while (!open_.empty()) CloseInstance();
    return std::move(found_);
  }

 private:
  bool Visit(const TiXmlNode& node) {
    const InstanceKind kind = KindOfInstance(node);
    if (kind == InstanceKind::WithoutClassName) return found_.isComplete = false;
    if (kind == InstanceKind::Collected) {
      open_.push_back(found_.instances.size());
      found_.instances.push_back({&node, found_.properties.size(), found_.properties.size()});
    }
    if (IsProperty(node)) {
      found_.properties.push_back(
          {node.ToElement(), open_.size(), open_.empty() ? 0 : open_.back()});
    }
    return true;
  }

  const TiXmlNode* Next(const TiXmlNode* node) {
    if (node->FirstChild() != nullptr) return node->FirstChild();
    for (;; node = node->Parent()) {
      if (!open_.empty() && found_.instances[open_.back()].node == node) CloseInstance();
      if (node == root_) return nullptr;
      if (node->NextSibling() != nullptr) return node->NextSibling();
    }
  }

  void CloseInstance() {
    found_.instances[open_.back()].end = found_.properties.size();
    open_.pop_back();
  }

  const TiXmlNode* root_;
  std::vector<std::size_t> open_;
  InstanceCollection found_;
};

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
    case XmlLimitFault::TooManyDepths:
      return DescriptorFault::TooManyDepths;
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

// A text of at most this length takes no memory of its own.
constexpr std::size_t shortText = 15;

std::size_t BytesOf(std::size_t length) { return length > shortText ? length : 0; }

// What the values and texts of a property come to.
struct ContentSize {
  std::size_t values = 0;
  std::size_t bytes = 0;
};

ContentSize SizeOf(const TiXmlElement& element) {
  ContentSize size;
  for (const TiXmlAttribute* attribute = element.FirstAttribute(); attribute != nullptr;
       attribute = attribute->Next()) {
    const bool isRead = std::strcmp(attribute->Name(), nameAttribute) == 0 ||
                        std::strcmp(attribute->Name(), typeAttribute) == 0;
    if (isRead) size.bytes += BytesOf(attribute->ValueStr().size());
  }
  VisitValuesOfProperty(element, [&size](const TiXmlElement& value) {
    VisitTexts(value, [&size](const char* text) {
      ++size.values;
      size.bytes += BytesOf(std::strlen(text));
    });
  });
  return size;
}

// Whether the lists of all instances stay within the limits. Nothing is copied for the answer.
DescriptorFault FaultOfLists(const std::vector<InstanceProperty>& properties,
                             std::size_t documentBytes) {
  std::size_t records = 0;
  bool isNested = false;
  for (const InstanceProperty& property : properties) {
    records += property.instances;
    isNested = isNested || property.instances > 1;
  }
  if (records > maxPropertyRecords) return DescriptorFault::TooManyProperties;
  if (!isNested) return DescriptorFault::None;

  ContentSize lists;
  std::size_t ownValues = 0;
  for (const InstanceProperty& property : properties) {
    const ContentSize size = SizeOf(*property.element);
    ownValues += size.values;
    lists.values += size.values * property.instances;
    lists.bytes += size.bytes * property.instances;
  }
  const bool isTooLarge =
      lists.values > std::max(maxListValues, maxListValuesPerValue * ownValues) ||
      lists.bytes > maxListBytesPerByte * documentBytes;
  return isTooLarge ? DescriptorFault::ListsTooLarge : DescriptorFault::None;
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
  const DescriptorFault limit = FaultOfLimits(xml, kind, *document);
  if (limit != DescriptorFault::None) {
    collected_.reset();
    return {limit, {}, 0, 0};
  }
  document_ = std::move(document);
  return {};
}

DescriptorFault CimXmlDocument::FaultOfLimits(const PreparedXml& xml, DescriptorKind kind,
                                              const TiXmlDocument& document) {
  const TiXmlNode* root = document.FirstChildElement();
  if (kind != DescriptorKind::Pack) {
    return HasTooManyProperties(xml.text, root) ? DescriptorFault::TooManyProperties
                                                : DescriptorFault::None;
  }
  collected_ = InstanceWalk(root).Run();
  // Where the instances cannot all be collected, no list is read.
  return collected_->isComplete ? FaultOfLists(collected_->properties, xml.end)
                                : DescriptorFault::None;
}

const TiXmlNode* CimXmlDocument::Root() const {
  return document_ == nullptr ? nullptr : document_->FirstChildElement();
}

bool CimXmlDocument::CollectInstances() {
  if (!collected_) collected_ = InstanceWalk(Root()).Run();
  return collected_->isComplete;
}

SupXmlProperties CimXmlDocument::CopyProperties(std::size_t instance) const {
  SupXmlProperties properties;
  for (const TiXmlElement* element : ElementsOf(instance)) {
    properties.push_back(ReadProperty(*element));
  }
  return properties;
}

SupXmlProperties CimXmlDocument::TakeProperties(std::size_t instance) {
  const auto [node, begin, end] = collected_->instances[instance];
  SupXmlProperties properties;
  properties.reserve(end - begin);
  for (std::size_t i = begin; i < end; ++i) {
    const InstanceProperty& property = collected_->properties[i];
    properties.push_back(property.instances == 1 ? ReadProperty(*property.element)
                                                 : TakeShared(i, instance));
  }
  return properties;
}

SupXmlProperty CimXmlDocument::TakeShared(std::size_t property, std::size_t instance) {
  if (shared_.empty()) shared_.resize(collected_->properties.size());
  std::optional<SupXmlProperty>& read = shared_[property];
  if (!read) read = ReadProperty(*collected_->properties[property].element);
  if (collected_->properties[property].innermost != instance) return *read;
  SupXmlProperty last = std::move(*read);
  read.reset();
  return last;
}

std::vector<const TiXmlElement*> CimXmlDocument::ElementsOf(std::size_t instance) const {
  const auto [node, begin, end] = collected_->instances[instance];
  std::vector<const TiXmlElement*> elements;
  elements.reserve(end - begin);
  for (std::size_t i = begin; i < end; ++i) {
    elements.push_back(collected_->properties[i].element);
  }
  return elements;
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
