#include "plain_cimxml.h"

#include <tinyxml.h>

#include <algorithm>

namespace Vornik::Testing {

namespace {

void PlainTexts(const TiXmlNode* value, std::vector<std::string>& values) {
  for (const TiXmlNode* text = value->FirstChild(); text != nullptr; text = text->NextSibling()) {
    if (text->ToText() != nullptr) values.emplace_back(text->Value());
  }
}

void PlainValues(const TiXmlNode* parent, std::vector<std::string>& values) {
  for (const TiXmlNode* child = parent->FirstChild(); child != nullptr;
       child = child->NextSibling()) {
    if (child->ToElement() != nullptr && std::string(child->Value()) == "VALUE") {
      PlainTexts(child, values);
    }
  }
}

void PlainProperties(const TiXmlNode* node, SupXmlProperties& properties) {
  const std::string name = node->ToElement() != nullptr ? node->Value() : "";
  if (name == "PROPERTY" || name == "PROPERTY.ARRAY") {
    SupXmlProperty property;
    for (const TiXmlAttribute* attribute = node->ToElement()->FirstAttribute();
         attribute != nullptr; attribute = attribute->Next()) {
      if (std::string(attribute->Name()) == "NAME") property.name = attribute->Value();
      if (std::string(attribute->Name()) == "TYPE") property.type = attribute->Value();
    }
    if (name == "PROPERTY") PlainValues(node, property.values);
    for (const TiXmlNode* child = node->FirstChild(); child != nullptr && name != "PROPERTY";
         child = child->NextSibling()) {
      if (child->ToElement() != nullptr && std::string(child->Value()) == "VALUE.ARRAY") {
        PlainValues(child, property.values);
      }
    }
    properties.push_back(property);
  }
  for (const TiXmlNode* child = node->FirstChild(); child != nullptr;
       child = child->NextSibling()) {
    PlainProperties(child, properties);
  }
}

void PlainInstances(const TiXmlNode* node, PlainContent& content) {
  const TiXmlElement* element = node->ToElement();
  if (element != nullptr && std::string(element->Value()) == "INSTANCE" &&
      element->FirstAttribute() != nullptr) {
    if (std::string(element->FirstAttribute()->Name()) != "CLASSNAME") content.hasMisfit = true;
    if (content.hasMisfit) return;
    PlainProperties(element, content.instances.emplace_back());
  }
  for (const TiXmlNode* child = node->FirstChild(); child != nullptr && !content.hasMisfit;
       child = child->NextSibling()) {
    PlainInstances(child, content);
  }
}

XmlLimitFault FirstFault(const TiXmlNode& node, std::size_t depth, const XmlLimits& limits) {
  for (const TiXmlNode* child = node.FirstChild(); child != nullptr; child = child->NextSibling()) {
    const TiXmlElement* element = child->ToElement();
    if (element == nullptr) continue;
    if (depth == limits.nesting) return XmlLimitFault::NestedTooDeep;
    std::size_t attributes = 0;
    for (const TiXmlAttribute* attribute = element->FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
      ++attributes;
    }
    if (attributes > limits.attributes) return XmlLimitFault::TooManyAttributes;
    const XmlLimitFault below = FirstFault(*element, depth + 1, limits);
    if (below != XmlLimitFault::None) return below;
  }
  return XmlLimitFault::None;
}

bool SameProperty(const SupXmlProperty& a, const SupXmlProperty& b) {
  return a.name == b.name && a.type == b.type && a.values == b.values;
}

bool SameProperties(const SupXmlProperties& a, const SupXmlProperties& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameProperty);
}

}  // namespace

bool operator==(const PlainContent& a, const PlainContent& b) {
  return a.loaded == b.loaded && a.hasRoot == b.hasRoot &&
         SameProperties(a.properties, b.properties) && a.hasMisfit == b.hasMisfit &&
         std::equal(a.instances.begin(), a.instances.end(), b.instances.begin(), b.instances.end(),
                    SameProperties);
}

PlainContent PlainContentOf(const TiXmlDocument& document) {
  PlainContent content;
  content.loaded = !document.Error();
  const TiXmlNode* root = content.loaded ? document.FirstChildElement() : nullptr;
  content.hasRoot = root != nullptr;
  if (root == nullptr) return content;
  PlainProperties(root, content.properties);
  PlainInstances(root, content);
  return content;
}

std::string PlainFileBuffer(const std::string& bytes) {
  std::string buffer = bytes;
  std::size_t to = 0;
  for (std::size_t from = 0; from < bytes.size() && bytes[from] != '\0'; ++from) {
    const bool isCarriageReturn = bytes[from] == '\r';
    buffer[to++] = isCarriageReturn ? '\n' : bytes[from];
    if (isCarriageReturn && from + 1 < bytes.size() && bytes[from + 1] == '\n') ++from;
  }
  if (to < buffer.size()) buffer[to] = '\0';
  buffer.append(8, '\0');
  return buffer;
}

PlainContent PlainContentOf(const std::string& bytes) {
  if (bytes.empty()) return {};
  const std::string buffer = PlainFileBuffer(bytes);
  TiXmlDocument document;
  document.SetTabSize(0);
  document.Parse(buffer.data(), nullptr, TIXML_ENCODING_UNKNOWN);
  if (PlainLimitFault(document, XmlLimits()) != XmlLimitFault::None) return {};
  return PlainContentOf(document);
}

XmlLimitFault PlainLimitFault(const TiXmlDocument& document, const XmlLimits& limits) {
  return FirstFault(document, 0, limits);
}

}  // namespace Vornik::Testing
