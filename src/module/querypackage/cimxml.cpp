#include "cimxml.h"

#include <tinyxml.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#include "byte_count.h"
#include "descriptor_files.h"
#include "xml_limits.h"

namespace Vornik {

namespace {

constexpr std::string_view propertyElement = "PROPERTY";
constexpr std::string_view propertyArrayElement = "PROPERTY.ARRAY";
constexpr char valueElement[] = "VALUE";
constexpr char valueArrayElement[] = "VALUE.ARRAY";
constexpr std::string_view instanceElement = "INSTANCE";
constexpr char nameAttribute[] = "NAME";
constexpr char typeAttribute[] = "TYPE";
constexpr char classNameAttribute[] = "CLASSNAME";

// An element's name holds no zero byte, so its length tells most names apart.
bool IsNamed(const TiXmlNode& element, std::string_view name) {
  return element.ValueTStr() == name;
}

bool IsProperty(const TiXmlNode& node) {
  return node.Type() == TiXmlNode::TINYXML_ELEMENT &&
         (IsNamed(node, propertyElement) || IsNamed(node, propertyArrayElement));
}

// One without attributes is passed over like any other node.
enum class InstanceKind { None, Collected, Misfit };

InstanceKind KindOf(const TiXmlNode& node) {
  const TiXmlElement* element = node.ToElement();
  if (element == nullptr || !IsNamed(*element, instanceElement)) return InstanceKind::None;
  const TiXmlAttribute* first = element->FirstAttribute();
  if (first == nullptr) return InstanceKind::None;
  const bool isClass = std::strcmp(first->Name(), classNameAttribute) == 0;
  return isClass ? InstanceKind::Collected : InstanceKind::Misfit;
}

// Steps through top and all nodes below it, in document order. Null behind the last one.
const TiXmlNode* NextBelow(const TiXmlNode* node, const TiXmlNode* top) {
  if (node->FirstChild() != nullptr) return node->FirstChild();
  while (node != top && node->NextSibling() == nullptr) node = node->Parent();
  return node == top ? nullptr : node->NextSibling();
}

std::size_t CountProperties(const TiXmlNode* root) {
  std::size_t count = 0;
  for (const TiXmlNode* node = root; node != nullptr; node = NextBelow(node, root)) {
    if (IsProperty(*node)) ++count;
  }
  return count;
}

// Leaves node and every parent of which it is the last child. Null behind top.
const TiXmlNode* Leave(const TiXmlNode* node, const TiXmlNode* top, std::size_t& openInstances) {
  for (;; node = node->Parent()) {
    if (KindOf(*node) == InstanceKind::Collected) --openInstances;
    if (node == top) return nullptr;
    if (node->NextSibling() != nullptr) return node->NextSibling();
  }
}

// A property counts once for every collected instance that it stands in. None where an instance
// keeps the others from being collected.
std::size_t CountInstanceProperties(const TiXmlNode* root) {
  std::size_t count = 0;
  std::size_t openInstances = 0;
  const TiXmlNode* node = root;
  while (node != nullptr) {
    const InstanceKind kind = KindOf(*node);
    if (kind == InstanceKind::Misfit) return 0;
    if (kind == InstanceKind::Collected) ++openInstances;
    if (IsProperty(*node)) count += openInstances;
    const TiXmlNode* child = node->FirstChild();
    node = child != nullptr ? child : Leave(node, root, openInstances);
  }
  return count;
}

std::size_t CountRecords(const TiXmlNode* root, DescriptorKind kind) {
  return kind == DescriptorKind::Pack ? CountInstanceProperties(root) : CountProperties(root);
}

// Each property and each instance takes a '<' of its own, and records are counted at most once for
// each pair of them whose elements stand inside one another: so few of them need no count.
bool MayGiveTooManyRecords(const std::string& text, std::size_t nesting) {
  const std::size_t elements = CountByte('<', text);
  if (elements > maxPropertyRecords) return true;
  const std::size_t pairs = (elements / 2) * ((elements + 1) / 2);
  return pairs > maxPropertyRecords && nesting > maxPropertyRecords / elements;
}

// In place and up to the first zero byte, as TiXmlDocument::LoadFile does it, with the bytes that
// this leaves behind the new end: TinyXML steps onto them where a character reaches over that end.
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

std::string ReasonOf(LoadFault fault) {
  static_assert(XmlLimits().nesting == 1'000 && XmlLimits().attributes == 10'000 &&
                maxPropertyRecords == 2'000'000);
  switch (fault) {
    case LoadFault::Unreadable:
      return "the file cannot be read";
    case LoadFault::Empty:
      return "the document is empty";
    case LoadFault::NestedTooDeep:
      return "elements are nested more than 1,000 deep";
    case LoadFault::TooManyAttributes:
      return "an element has more than 10,000 attributes";
    case LoadFault::TooManyProperties:
      return "the document gives more than 2,000,000 property records";
    case LoadFault::NotWellFormed:  // TinyXML names the reason
    case LoadFault::None:
      break;
  }
  return {};
}

LoadOutcome OutcomeOf(LoadFault fault) { return {fault, ReasonOf(fault), 0, 0}; }

void Place(LoadOutcome& outcome, const char* text, std::size_t offset) {
  const TextPosition position = TextPositions({text, offset}).Of(offset);
  outcome.line = position.line;
  outcome.column = position.column;
}

LoadOutcome LimitOutcome(const XmlOutline& outline, const char* text) {
  const bool deep = outline.fault == XmlLimitFault::NestedTooDeep;
  LoadOutcome outcome = OutcomeOf(deep ? LoadFault::NestedTooDeep : LoadFault::TooManyAttributes);
  Place(outcome, text, outline.offset);
  return outcome;
}

// TinyXML names no place for a comment, a CDATA section or a reference without an end.
LoadOutcome ParseOutcome(const TiXmlDocument& document, const char* text, Positions positions) {
  if (!document.Error()) return {};
  LoadOutcome outcome{LoadFault::NotWellFormed, document.ErrorDesc(), 0, 0};
  if (positions == Positions::Ignored) return outcome;
  if (document.TabSize() > 0 && document.ErrorRow() > 0) {
    outcome.line = document.ErrorRow();
    outcome.column = document.ErrorCol();
  } else {
    Place(outcome, text, OutlineStop(text));
  }
  return outcome;
}

// Positions are ints, and a step over the end costs a walk from the last position each time, or,
// without TinyXML's later patches, never ends.
bool CanTrack(const std::string& text, std::size_t end) {
  return text.size() <= static_cast<std::size_t>(INT_MAX) && !EndsInsideCharacter(text.data(), end);
}

// The texts of a VALUE; none for an empty one.
void AppendTexts(const TiXmlElement& value, std::vector<std::string>& texts) {
  for (const TiXmlNode* child = value.FirstChild(); child != nullptr;
       child = child->NextSibling()) {
    if (child->ToText() != nullptr) texts.emplace_back(child->Value());
  }
}

template <typename Visit>
void VisitValues(const TiXmlElement& parent, Visit visit) {
  for (const TiXmlElement* value = parent.FirstChildElement(valueElement); value != nullptr;
       value = value->NextSiblingElement(valueElement)) {
    visit(*value);
  }
}

// The VALUE elements that count, in document order.
template <typename Visit>
void VisitValuesOfProperty(const TiXmlElement& property, Visit visit) {
  if (IsNamed(property, propertyElement)) {
    VisitValues(property, visit);
    return;
  }
  for (const TiXmlElement* array = property.FirstChildElement(valueArrayElement); array != nullptr;
       array = array->NextSiblingElement(valueArrayElement)) {
    VisitValues(*array, visit);
  }
}

void ReadAttributes(const TiXmlElement& element, SupXmlProperty& property) {
  for (const TiXmlAttribute* attribute = element.FirstAttribute(); attribute != nullptr;
       attribute = attribute->Next()) {
    if (std::strcmp(attribute->Name(), nameAttribute) == 0) property.name = attribute->Value();
    if (std::strcmp(attribute->Name(), typeAttribute) == 0) property.type = attribute->Value();
  }
}

void AppendProperty(const TiXmlElement& element, SupXmlProperties& properties) {
  SupXmlProperty& property = properties.emplace_back();
  ReadAttributes(element, property);
  VisitValuesOfProperty(
      element, [&property](const TiXmlElement& value) { AppendTexts(value, property.values); });
}

}  // namespace

CimXmlDocument::CimXmlDocument() = default;
CimXmlDocument::CimXmlDocument(CimXmlDocument&&) noexcept = default;
CimXmlDocument& CimXmlDocument::operator=(CimXmlDocument&&) noexcept = default;
CimXmlDocument::~CimXmlDocument() = default;

LoadOutcome CimXmlDocument::LoadFile(const std::string& path, DescriptorKind kind,
                                     Positions positions) {
  return LoadBytes(ReadRegularFile(path), kind, positions);
}

LoadOutcome CimXmlDocument::LoadBytes(std::optional<std::string> read, DescriptorKind kind,
                                      Positions positions) {
  document_ = nullptr;
  if (!read) return OutcomeOf(LoadFault::Unreadable);
  std::string& bytes = *read;
  if (bytes.empty()) return OutcomeOf(LoadFault::Empty);
  bytes.append(xmlTextPadding, '\0');
  std::size_t end = NormaliseLineEnds(bytes.data());
  const XmlOutline outline = OutlineXml(bytes.data(), bytes.size());
  if (outline.fault != XmlLimitFault::None) return LimitOutcome(outline, bytes.data());
  const bool isCut = outline.unfinishedDeclaration != XmlOutline::npos;
  if (isCut) {
    bytes[outline.unfinishedDeclaration] = '\0';
    end = std::min(end, outline.unfinishedDeclaration);
  }

  auto document = std::make_unique<TiXmlDocument>();
  document->SetTabSize(positions == Positions::Tracked && CanTrack(bytes, end) ? 1 : 0);
  document->Parse(bytes.data(), nullptr, TIXML_ENCODING_UNKNOWN);
  // A document of an unfinished declaration alone has no root, but it is not an empty one.
  if (isCut && document->NoChildren()) return {};
  LoadOutcome outcome = ParseOutcome(*document, bytes.data(), positions);
  if (outcome.fault != LoadFault::None) return outcome;
  if (MayGiveTooManyRecords(bytes, outline.nesting) &&
      CountRecords(document->FirstChildElement(), kind) > maxPropertyRecords) {
    return OutcomeOf(LoadFault::TooManyProperties);
  }
  document_ = std::move(document);
  return outcome;
}

const TiXmlNode* CimXmlDocument::Root() const {
  return document_ == nullptr ? nullptr : document_->FirstChildElement();
}

void ReadProperties(const TiXmlNode* node, SupXmlProperties& properties) {
  std::vector<const TiXmlNode*> elements;
  CollectProperties(node, elements);
  properties.reserve(properties.size() + elements.size());
  for (const TiXmlNode* element : elements) AppendProperty(*element->ToElement(), properties);
}

void CollectProperties(const TiXmlNode* node, std::vector<const TiXmlNode*>& elements) {
  for (const TiXmlNode* next = node; next != nullptr; next = NextBelow(next, node)) {
    if (IsProperty(*next)) elements.push_back(next);
  }
}

const TiXmlNode* CollectInstances(const TiXmlNode* node, std::vector<const TiXmlNode*>& instances) {
  for (const TiXmlNode* next = node; next != nullptr; next = NextBelow(next, node)) {
    const InstanceKind kind = KindOf(*next);
    if (kind == InstanceKind::Misfit) return next;
    if (kind == InstanceKind::Collected) instances.push_back(next);
  }
  return nullptr;
}

void CollectMisfits(const TiXmlNode* node, std::vector<const TiXmlNode*>& misfits) {
  for (const TiXmlNode* next = node; next != nullptr; next = NextBelow(next, node)) {
    if (KindOf(*next) == InstanceKind::Misfit) misfits.push_back(next);
  }
}

const TiXmlNode* EnclosingInstance(const TiXmlNode& node) {
  const TiXmlNode* parent = node.Parent();
  while (parent != nullptr && KindOf(*parent) != InstanceKind::Collected) parent = parent->Parent();
  return parent;
}

XmlAttribute FirstAttributeOf(const TiXmlNode& node) {
  const TiXmlElement* element = node.ToElement();
  const TiXmlAttribute* first = element == nullptr ? nullptr : element->FirstAttribute();
  return first == nullptr ? XmlAttribute() : XmlAttribute{first->Name(), first->Value()};
}

void CollectValues(const TiXmlNode& property, std::vector<ValueElement>& values) {
  if (!IsProperty(property)) return;
  VisitValuesOfProperty(*property.ToElement(), [&values](const TiXmlElement& value) {
    std::vector<std::string> texts;
    AppendTexts(value, texts);
    values.push_back({&value, texts.size()});
  });
}

LostAmpersands FindLostAmpersands(std::string bytes, std::size_t most) {
  bytes.append(xmlTextPadding, '\0');
  NormaliseLineEnds(bytes.data());
  const LostAmpersandOffsets lost = OutlineLostAmpersands(bytes.data(), most);
  LostAmpersands found;
  found.count = lost.count;
  // The walk may go on behind the text's end, as TinyXML does.
  TextPositions positions(bytes);
  for (const std::size_t offset : lost.offsets) found.first.push_back(positions.Of(offset));
  return found;
}

int LineOf(const TiXmlNode& node) {
  const TiXmlDocument* document = node.GetDocument();
  return document == nullptr || document->TabSize() < 1 ? 0 : node.Row();
}

int ColumnOf(const TiXmlNode& node) {
  const TiXmlDocument* document = node.GetDocument();
  return document == nullptr || document->TabSize() < 1 ? 0 : node.Column();
}

}  // namespace Vornik
