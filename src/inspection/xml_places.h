// Places of elements and faults. Only for src/inspection: this shows TinyXML's types.
#ifndef VORNIK_INSPECTION_XML_PLACES_H
#define VORNIK_INSPECTION_XML_PLACES_H

#include <cstddef>
#include <string>

#include "inspection/text_position.h"
#include "reading/cimxml.h"

namespace Vornik {

// Whether TinyXML can track positions in a text. They are ints, and a step over the end costs a
// walk from the last position each time, or, without TinyXML's later patches, never ends.
Positions PositionsIn(const PreparedXml& xml);

// Where a node begins, a tab as one column; not known where positions are not tracked.
TextPosition PlaceOf(const TiXmlNode& node);

// Adds the place of a fault of parsing for which TinyXML names none.
void PlaceFault(const PreparedXml& xml, DescriptorReading& reading);

// Offset of what TinyXML is reading when it fails, of the element that exceeds a limit, or of
// the end of what TinyXML has read. The text is prepared as for ScanXml.
//
//   "<a> b &#xZ; c</a>"  =>  6
std::size_t FailureOffset(const std::string& text, const XmlLimits& limits = {});

// Whether the text's first zero byte, which is at the offset end, lies inside a multi-byte UTF-8
// character by its lead byte. TinyXML may then go on after the text's end.
bool EndsInsideCharacter(const std::string& text, std::size_t end);

}  // namespace Vornik

#endif  // VORNIK_INSPECTION_XML_PLACES_H
