#include "text/decimal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "plain_properties.h"

namespace Vornik {
namespace {

using namespace std::string_literals;

TEST(ParseDecimal, ReadsTheLeadingNumber) {
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  const std::pair<std::string, std::int32_t> cases[] = {
      {"", 0},
      {"0", 0},
      {"10", 10},
      {"0010", 10},
      {"+7", 7},
      {"-7", -7},
      {" \t\r\n\v\f-7 rest", -7},
      {"12abc", 12},
      {"12.9", 12},
      {"0x1F", 0},
      {"x86", 0},
      {"-", 0},
      {"+-1", 0},
      {"- 1", 0},
      {"1 2", 1},
      {"3\0004"s, 3},
      {"\xC2\xA0"
       "5",
       0},
      {"2147483647", most},
      {"2147483648", least},
      {"-2147483648", least},
      {"-2147483649", most},
      {"4294967295", -1},
      {"4294967296", 0},
      {"4294967306", 10},
      {"9223372036854775807", -1},
      {"9223372036854775808", -1},
      {"99999999999999999999", -1},
      {"-9223372036854775808", 0},
      {"-99999999999999999999", 0},
  };
  for (const auto& [text, number] : cases) {
    EXPECT_EQ(ParseDecimal(text), number) << text;
    EXPECT_EQ(Testing::PlainNumber(text), number) << text;
  }
}

}  // namespace
}  // namespace Vornik
