#include "fuzz_input.h"

namespace Vornik::Fuzzing {

std::vector<std::string> Parts(std::string_view input, std::string_view separator) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t end = input.find(separator);
    parts.emplace_back(input.substr(0, end));
    if (end == std::string_view::npos) return parts;
    input.remove_prefix(end + separator.size());
  }
}

std::size_t Choices::Below(std::size_t n) {
  if (bytes_.empty()) return 0;
  const auto byte = static_cast<unsigned char>(bytes_.front());
  bytes_.remove_prefix(1);
  return byte % n;
}

}  // namespace Vornik::Fuzzing
