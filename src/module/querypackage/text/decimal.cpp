#include "decimal.h"

#include <cstdlib>
#include <limits>

namespace Vornik {

std::int32_t ParseDecimal(const std::string& text) {
  static_assert(std::numeric_limits<long long>::digits == 63);
  const long long number = std::strtoll(text.c_str(), nullptr, 10);
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

}  // namespace Vornik
