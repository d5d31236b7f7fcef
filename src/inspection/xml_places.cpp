#include "inspection/xml_places.h"

#include <algorithm>
#include <climits>
#include <string>

#include "reading/xml_walk.h"

namespace Vornik {

namespace {

bool IsEnd(const char* p) { return p == nullptr || *p == '\0'; }

class FailureWalk final : public XmlWalk {
 public:
  using XmlWalk::XmlWalk;

  std::size_t Offset() {
    const char* p = Begin();
    while (!IsEnd(p)) {
      const char* next = Next(p);
      if (next == nullptr) return OffsetOf(*p == '<' ? p : FailureInText(p));
      p = SkipSpace(next);
      if (IsEnd(p)) return OffsetOf(next);
    }
    return 0;
  }

 private:
  // The reference that has no end, or else the beginning of the text.
  const char* FailureInText(const char* begin) {
    const char* p = begin;
    while (!IsEnd(p) && *p != '<') {
      const char* next = NextOfText(p);
      if (next == nullptr) return p;
      p = next;
    }
    return begin;
  }
};

bool IsTracked(const TiXmlNode& node) {
  const TiXmlDocument* document = node.GetDocument();
  return document != nullptr && document->TabSize() >= 1;
}

bool IsPlacedByTheWalk(const DescriptorReading& reading) {
  switch (reading.fault) {
    case DescriptorFault::NestedTooDeep:
    case DescriptorFault::TooManyAttributes:
    case DescriptorFault::TooManyDepths:
      return true;
    case DescriptorFault::NotWellFormed:
      return reading.line == 0;
    default:
      return false;
  }
}

}  // namespace

std::size_t FailureOffset(const std::string& text, const XmlLimits& limits) {
  return FailureWalk(text.data(), limits).Offset();
}

bool EndsInsideCharacter(const std::string& text, std::size_t end) {
  for (std::size_t before = 1; before <= 3 && before <= end; ++before) {
    if (CharacterLength(text[end - before]) > before) return true;
  }
  return false;
}

Positions PositionsIn(const PreparedXml& xml) {
  const std::size_t end = std::min(xml.end, xml.scan.unfinishedDeclaration);
  const bool canTrack =
      xml.text.size() <= static_cast<std::size_t>(INT_MAX) && !EndsInsideCharacter(xml.text, end);
  return canTrack ? Positions::Tracked : Positions::Ignored;
}

TextPosition PlaceOf(const TiXmlNode& node) {
  return IsTracked(node) ? TextPosition{node.Row(), node.Column()} : TextPosition();
}

void PlaceFault(const PreparedXml& xml, DescriptorReading& reading) {
  if (!IsPlacedByTheWalk(reading)) return;
  std::string text = xml.text;
  if (xml.scan.unfinishedDeclaration != XmlScan::npos) text[xml.scan.unfinishedDeclaration] = '\0';
  const TextPosition place = TextPositions(text).Of(FailureOffset(text));
  reading.line = place.line;
  reading.column = place.column;
}

}  // namespace Vornik
