#include "descriptor_classification.h"

#include <optional>
#include <utility>

#include "descriptor_files.h"

namespace Vornik {

DescriptorMarkers MarkersOfFile(const std::string& path) {
  std::optional<std::string> bytes = ReadRegularFile(path);
  return bytes ? FindMarkers(TextModeOf(*std::move(bytes))) : DescriptorMarkers{};
}

}  // namespace Vornik
