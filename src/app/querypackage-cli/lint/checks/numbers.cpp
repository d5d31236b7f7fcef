#include "lint/checks/numbers.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

constexpr const char* blanks = " \t\n\v\f\r";

// read: the number that the library reads. Beyond 64 bits the parsed number is the nearest one that
// has 64 bits, and so out of every range.
NumberReading Judge(const std::string& text, std::int64_t read) {
  char* end = nullptr;
  errno = 0;
  const std::int64_t written = std::strtoll(text.c_str(), &end, 10);
  if (end == text.c_str()) return NumberReading::NotNumber;
  if (errno == ERANGE || written != read) return NumberReading::OutOfRange;
  const bool isWhole = end[std::strspn(end, blanks)] == '\0';
  return isWhole ? NumberReading::Exact : NumberReading::TrailingText;
}

}  // namespace

NumberReading ReadCodeText(const std::string& text) {
  return Judge(text, static_cast<std::uint32_t>(ParseDecimal(text)));
}

NumberReading ReadTypeText(const std::string& text) { return Judge(text, ParseDecimal(text)); }

}  // namespace Vornik::Cli
