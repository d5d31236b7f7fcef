// What kind of descriptor a file is, by its text alone.
#ifndef VORNIK_QUERYPACKAGE_DESCRIPTOR_CLASSIFICATION_H
#define VORNIK_QUERYPACKAGE_DESCRIPTOR_CLASSIFICATION_H

#include <optional>
#include <string>

#include "descriptor_markers.h"

namespace Vornik {

// The markers in a file's text. A path that names no regular file, or one that cannot be read,
// holds none.
DescriptorMarkers MarkersOfFile(const std::string& path);

// The same for the bytes that were read of a file; nothing: it could not be read.
DescriptorMarkers MarkersOfBytes(const std::optional<std::string>& bytes);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_DESCRIPTOR_CLASSIFICATION_H
