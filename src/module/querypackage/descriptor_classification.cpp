#include "descriptor_classification.h"

#include "descriptor_files.h"

namespace Vornik {

DescriptorMarkers MarkersOfFile(const std::string& path) {
  return MarkersOfBytes(ReadRegularFile(path));
}

DescriptorMarkers MarkersOfBytes(const std::optional<std::string>& bytes) {
  return bytes ? FindMarkersInBytes(*bytes) : DescriptorMarkers{};
}

}  // namespace Vornik
