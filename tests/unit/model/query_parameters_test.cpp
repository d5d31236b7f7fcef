#include "model/query_parameters.h"

#include <gtest/gtest.h>

namespace Vornik {
namespace {

TEST(IsMachineType, Accepts) {
  for (const char* text : {"0000", "0123", "1234", "9999"})
    EXPECT_TRUE(IsMachineType(text)) << text;
}

TEST(IsMachineType, Rejects) {
  for (const char* text :
       {"", "1", "123", "12345", "12a4", "12 4", "+123", "1.23", "\xB2\xB2\xB2\xB2"}) {
    EXPECT_FALSE(IsMachineType(text)) << text;
  }
}

}  // namespace
}  // namespace Vornik
