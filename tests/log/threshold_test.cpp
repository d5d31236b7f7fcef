#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "Log.h"
#include "LogSettings.h"
#include "support.h"

namespace Vornik {
namespace {

static_assert(std::is_constructible_v<Log, unsigned int, const char*, int>);
static_assert(std::has_virtual_destructor_v<Log>);
static_assert(!std::is_nothrow_destructible_v<Log>);
static_assert(std::is_same_v<decltype(std::declval<Log&>().Stream()), std::ostringstream&>);
static_assert(std::is_same_v<decltype(Log::GetMinLogLevel()), unsigned int>);

TEST(LogThreshold, IsErrorsOnlyAtFirst) { EXPECT_EQ(Log::GetMinLogLevel(), 1u); }

TEST(LogThreshold, IsWhatWasSetLast) {
  const RestoredSettings restored{};
  for (const unsigned int level : {0u, 1u, 2u, 3u, 4u, std::numeric_limits<unsigned int>::max()}) {
    SetMinLogLevel(level);
    EXPECT_EQ(Log::GetMinLogLevel(), level);
  }
}

}  // namespace
}  // namespace Vornik
