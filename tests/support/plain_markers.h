// Telling packs from individual descriptors, piece by piece. Shares no code with the product.
#ifndef VORNIK_TESTS_PLAIN_MARKERS_H
#define VORNIK_TESTS_PLAIN_MARKERS_H

#include <string>
#include <string_view>

#include "reading/descriptor_markers.h"

namespace Vornik::Testing {

// text as the C library delivers it in text mode.
DescriptorMarkers PlainMarkers(std::string_view text);

// What a text mode like that of Windows makes of a file's bytes.
std::string PlainTextMode(std::string_view bytes);

// The markers in a file's bytes on the system that this is built for.
DescriptorMarkers PlainMarkersInBytes(std::string_view bytes);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_MARKERS_H
