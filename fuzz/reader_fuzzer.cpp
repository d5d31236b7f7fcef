// The reader on any bytes, against a plain reading of TinyXML's tree: what loads, the properties,
// the instances, the limits, the ways around the walk, the places.
#include <tinyxml.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cimxml.h"
#include "fuzz_input.h"
#include "plain_cimxml.h"
#include "requirement.h"
#include "xml_limits.h"

namespace Vornik::Fuzzing {

namespace {

using Testing::PlainContent;

bool AreSame(const XmlOutline& a, const XmlOutline& b) {
  return a.fault == b.fault && a.offset == b.offset &&
         a.unfinishedDeclaration == b.unfinishedDeclaration;
}

void CheckOutline(const std::string& buffer, const TiXmlDocument& tree, const XmlLimits& limits) {
  const XmlOutline walked = OutlineXml(buffer.data(), limits);
  const XmlOutline outline = OutlineXml(buffer.data(), buffer.size(), limits);
  Require(AreSame(outline, walked), "the same outline with and without the walk");
  Require(walked.fault == Testing::PlainLimitFault(tree, limits), "the fault of TinyXML's tree");
  if (walked.fault != XmlLimitFault::None) {
    Require(buffer[walked.offset] == '<', "an element at the fault's place");
  }
  if (walked.unfinishedDeclaration != XmlOutline::npos) {
    Require(buffer[walked.unfinishedDeclaration] == '<', "a tag at the declaration's place");
  }
}

void CheckLostAmpersands(const std::string& bytes, const std::string& buffer) {
  constexpr std::size_t most = 8;
  const LostAmpersandOffsets lost = OutlineLostAmpersands(buffer.data(), most);
  Require(lost.offsets.size() == std::min(lost.count, most), "a place for each of the first");
  for (const std::size_t offset : lost.offsets) {
    Require(buffer[offset] == '&', "an ampersand at its place");
  }
  const LostAmpersands found = FindLostAmpersands(bytes, most);
  Require(found.count == lost.count, "the ampersands of the outline");
  Require(found.first.size() == lost.offsets.size(), "a line and a column for each of the first");
}

// What tools ask of a property beside its values.
void CheckElement(const TiXmlNode& element, const SupXmlProperty& property) {
  std::vector<ValueElement> values;
  CollectValues(element, values);
  std::size_t texts = 0;
  for (const ValueElement& value : values) texts += value.texts;
  Require(texts == property.values.size(), "the elements of the property's values");
  Require((LineOf(element) > 0) == (ColumnOf(element) > 0), "a line and a column, or neither");
}

PlainContent Read(const std::string& bytes, DescriptorKind kind, Positions positions) {
  PlainContent content;
  CimXmlDocument document;
  const LoadOutcome outcome = document.LoadBytes(bytes, kind, positions);
  content.loaded = outcome.fault == LoadFault::None;
  Require(content.loaded == outcome.reason.empty(),
          "a reason for each fault, and for nothing else");
  Require(outcome.fault != LoadFault::NotWellFormed ||
              (outcome.line > 0) == (positions == Positions::Tracked),
          "a place for each fault of TinyXML's, where places are tracked");
  content.hasRoot = document.Root() != nullptr;
  ReadProperties(document.Root(), content.properties);
  std::vector<const TiXmlNode*> elements;
  CollectProperties(document.Root(), elements);
  Require(elements.size() == content.properties.size(), "an element for each property");
  for (std::size_t i = 0; i < elements.size(); ++i) {
    CheckElement(*elements[i], content.properties[i]);
  }
  std::vector<const TiXmlNode*> instances;
  content.hasMisfit = CollectInstances(document.Root(), instances) != nullptr;
  for (const TiXmlNode* instance : instances) {
    ReadProperties(instance, content.instances.emplace_back());
  }
  std::vector<const TiXmlNode*> misfits;
  CollectMisfits(document.Root(), misfits);
  Require(misfits.empty() != content.hasMisfit,
          "a misfit where the walk for instances ends at one");
  return content;
}

void CheckContent(const std::string& bytes, const PlainContent& plain) {
  Require(Read(bytes, DescriptorKind::Individual, Positions::Ignored) == plain,
          "an individual descriptor's plain content");
  // Places cost more than all the rest.
  if (bytes.size() % 4 != 0) return;
  Require(Read(bytes, DescriptorKind::Pack, Positions::Tracked) == plain, "a pack's plain content");
}

void Check(const std::string& bytes) {
  const std::string buffer = Testing::PlainFileBuffer(bytes);
  TiXmlDocument tree;
  tree.SetTabSize(0);
  tree.Parse(buffer.data(), nullptr, TIXML_ENCODING_UNKNOWN);
  // Small limits too: few inputs reach the default ones.
  CheckOutline(buffer, tree, XmlLimits());
  CheckOutline(buffer, tree, {3, 2});
  const bool isOverLimits = Testing::PlainLimitFault(tree, XmlLimits()) != XmlLimitFault::None;
  CheckContent(bytes, isOverLimits ? PlainContent() : Testing::PlainContentOf(tree));
  CheckLostAmpersands(bytes, buffer);
}

}  // namespace

}  // namespace Vornik::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Vornik::Fuzzing::Check(std::string(Vornik::Fuzzing::BytesOf(data, size)));
  return 0;
}
