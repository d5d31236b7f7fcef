// The reader on any bytes, against a plain reading of TinyXML's tree: what loads, the properties,
// the instances, the limits, the ways around the walk, the places.
#include <tinyxml.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "inspection/descriptor_inspection.h"
#include "inspection/dropped_ampersands.h"
#include "inspection/xml_places.h"
#include "plain_cimxml.h"
#include "reading/cimxml.h"
#include "reading/xml_walk.h"
#include "requirement.h"

namespace Vornik::Fuzzing {

namespace {

using Testing::PlainContent;

void CheckScan(const std::string& buffer, const TiXmlDocument& tree, const XmlLimits& limits) {
  const XmlScan walked = XmlWalk(buffer.data(), limits).Run();
  const XmlScan scan = ScanXml(buffer, limits);
  Require(scan.fault == walked.fault && scan.unfinishedDeclaration == walked.unfinishedDeclaration,
          "the same scan with and without the walk");
  Require(walked.fault == Testing::PlainLimitFault(tree, limits), "the fault of TinyXML's tree");
  if (walked.fault != XmlLimitFault::None) {
    Require(buffer[FailureOffset(buffer, limits)] == '<', "an element at the fault's place");
  }
  if (walked.unfinishedDeclaration != XmlScan::npos) {
    Require(buffer[walked.unfinishedDeclaration] == '<', "a tag at the declaration's place");
  }
}

void CheckDroppedAmpersands(const std::string& bytes) {
  constexpr std::size_t maxCount = 8;
  const DroppedAmpersands dropped = FindDroppedAmpersands(bytes, maxCount);
  Require(dropped.first.size() == std::min(dropped.count, maxCount),
          "a place for each of the first");
  for (const TextPosition& place : dropped.first) {
    Require(place.line > 0 && place.column > 0, "a line and a column");
  }
}

// What tools read of a property beside its values.
void CheckElement(const TiXmlElement& element, const SupXmlProperty& property) {
  std::size_t texts = 0;
  VisitValuesOfProperty(element, [&texts](const TiXmlElement& value) {
    VisitTexts(value, [&texts](const char*) { ++texts; });
  });
  Require(texts == property.values.size(), "the elements of the property's values");
  const TextPosition place = PlaceOf(element);
  Require((place.line > 0) == (place.column > 0), "a line and a column, or neither");
}

void CheckFault(const ParseOutcome& outcome, const PreparedXml& xml) {
  DescriptorReading reading;
  reading.fault = outcome.fault;
  reading.parserText = outcome.parserText;
  reading.line = outcome.line;
  reading.column = outcome.column;
  Require((outcome.fault == DescriptorFault::None) == FaultText(reading).empty(),
          "a reason for each fault, and for nothing else");
  PlaceFault(xml, reading);
  Require(outcome.fault != DescriptorFault::NotWellFormed || reading.line > 0,
          "a place for each fault of TinyXML's");
}

PlainContent Read(const std::string& bytes, DescriptorKind kind, Positions positions) {
  PlainContent content;
  CimXmlDocument document;
  const PreparedXml xml = PrepareXml(bytes);
  const ParseOutcome outcome =
      document.Parse(xml, kind, positions == Positions::Tracked ? PositionsIn(xml) : positions);
  content.loaded = outcome.fault == DescriptorFault::None;
  CheckFault(outcome, xml);
  content.hasRoot = document.Root() != nullptr;
  content.properties = ReadProperties(document.Root());
  const std::vector<const TiXmlElement*> elements = CollectProperties(document.Root());
  Require(elements.size() == content.properties.size(), "an element for each property");
  for (std::size_t i = 0; i < elements.size(); ++i) {
    CheckElement(*elements[i], content.properties[i]);
  }
  content.hasMisfit = !document.CollectInstances();
  for (std::size_t i = 0; i < document.Instances().size(); ++i) {
    content.instances.push_back(content.hasMisfit ? ReadProperties(document.Instances()[i].node)
                                                  : document.TakeProperties(i));
  }
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
  CheckScan(buffer, tree, XmlLimits());
  CheckScan(buffer, tree, {3, 2});
  const bool isOverLimits = Testing::PlainLimitFault(tree, XmlLimits()) != XmlLimitFault::None;
  CheckContent(bytes, isOverLimits ? PlainContent() : Testing::PlainContentOf(tree));
  CheckDroppedAmpersands(bytes);
}

}  // namespace

}  // namespace Vornik::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Vornik::Fuzzing::Check(std::string(Vornik::Fuzzing::BytesOf(data, size)));
  return 0;
}
