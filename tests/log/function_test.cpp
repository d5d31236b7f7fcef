// The host's own function as destination: what it may do, and what its failures do.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>

#include "support.h"

namespace Vornik {
namespace {

class LogFunctionTest : public testing::Test {
 private:
  const RestoredSettings restored_{};
};

TEST_F(LogFunctionTest, ThatThrowsLosesTheRecordAndNothingElse) {
  const std::uint64_t lostBefore = LostLogRecords();
  auto calls = std::make_shared<int>(0);
  LogToFunction([calls](const LogRecord&) {
    ++*calls;
    throw std::runtime_error("no");
  });
  EXPECT_NO_THROW(Emit(1, "a"));
  EXPECT_NO_THROW(Emit(1, "b"));
  EXPECT_EQ(*calls, 2);
  EXPECT_EQ(LostLogRecords(), lostBefore + 2);
}

TEST_F(LogFunctionTest, ThatThrowsNoExceptionTypeIsContainedToo) {
  const std::uint64_t lostBefore = LostLogRecords();
  LogToFunction([](const LogRecord&) { throw 42; });
  EXPECT_NO_THROW(Emit(1, "a"));
  EXPECT_EQ(LostLogRecords(), lostBefore + 1);
}

TEST_F(LogFunctionTest, ThatThrewIsCalledForTheNextRecord) {
  auto received = std::make_shared<std::vector<std::string>>();
  LogToFunction([received](const LogRecord& record) {
    if (record.text == "bad") throw 1;
    received->emplace_back(record.text);
  });
  Emit(1, "bad");
  testing::internal::CaptureStderr();
  Emit(1, "good");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");  // the thread counts as outside again
  EXPECT_EQ(*received, std::vector<std::string>{"good"});
}

TEST_F(LogFunctionTest, LogsIntoStandardErrorItself) {
  auto received = std::make_shared<std::vector<std::string>>();
  LogToFunction([received](const LogRecord& record) {
    received->emplace_back(record.text);
    Emit(2, "nested in " + std::string(record.text), "host.cpp", 5);
  });
  testing::internal::CaptureStderr();
  Emit(1, "a");
  Emit(1, "b");
  const std::vector<Received> nested = ParseLines(testing::internal::GetCapturedStderr());
  EXPECT_EQ(nested, (std::vector<Received>{{2, "host.cpp", 5, "nested in a"},
                                           {2, "host.cpp", 5, "nested in b"}}));
  EXPECT_EQ(*received, (std::vector<std::string>{"a", "b"}));
}

TEST_F(LogFunctionTest, ChangesEverySettingFromInside) {
  const TempFolder folder;
  const RestoredSettings closed{};  // before the folder goes
  const std::string path = (folder / "log.txt").string();
  const std::uint64_t lost = LostLogRecords();
  LogToFunction([path, lost](const LogRecord&) {
    SetMinLogLevel(Log::GetMinLogLevel() + 1);
    LogToStandardError();
    LogToFunction(nullptr);
    EXPECT_TRUE(LogToFile({path}));
    EXPECT_EQ(LostLogRecords(), lost);
    Emit(1, "from inside");
  });
  Emit(1, "into the function");
  Emit(1, "from outside");
  EXPECT_EQ(Log::GetMinLogLevel(), 2u);
  EXPECT_EQ(Texts(ParseLines(ReadFile(path))),
            (std::vector<std::string>{"from inside", "from outside"}));
}

TEST_F(LogFunctionTest, LivesUntilItReturnsAlthoughReplaced) {
  auto owned = std::make_shared<std::string>("alive");
  const std::weak_ptr<std::string> watched = owned;
  std::string seen;
  LogToFunction([owned = std::move(owned), &seen](const LogRecord&) {
    LogToFunction(nullptr);
    seen = *owned;
  });
  EXPECT_FALSE(watched.expired());
  Emit(1, "a");
  EXPECT_EQ(seen, "alive");
  EXPECT_TRUE(watched.expired());
}

struct LogsWhenReleased {
  ~LogsWhenReleased() { Emit(1, "released"); }
};

TEST_F(LogFunctionTest, MayLogWhileItIsReleased) {
  auto received = std::make_shared<std::vector<std::string>>();
  LogToFunction([owned = std::make_shared<LogsWhenReleased>()](const LogRecord&) {});
  LogToFunction([received](const LogRecord& record) { received->emplace_back(record.text); });
  EXPECT_EQ(*received, std::vector<std::string>{"released"});
}

TEST_F(LogFunctionTest, DiscardsRecordsWhenEmpty) {
  const std::uint64_t lostBefore = LostLogRecords();
  testing::internal::CaptureStderr();
  LogToFunction(nullptr);
  Emit(1, "a");
  LogToFunction(LogFunction());
  Emit(1, "b");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(LostLogRecords(), lostBefore);
}

TEST_F(LogFunctionTest, RunsOnTheEmittingThread) {
  std::thread::id called;
  LogToFunction([&called](const LogRecord&) { called = std::this_thread::get_id(); });
  std::thread::id emitted;
  std::thread thread([&emitted] {
    emitted = std::this_thread::get_id();
    Emit(1, "a");
  });
  thread.join();
  EXPECT_EQ(called, emitted);
}

TEST_F(LogFunctionTest, IsCalledByOneThreadAtATime) {
  std::atomic<int> inside{0};
  std::atomic<int> most{0};
  LogToFunction([&inside, &most](const LogRecord&) {
    const int now = ++inside;
    if (now > most) most = now;
    std::this_thread::yield();
    --inside;
  });
  std::vector<std::thread> threads;
  threads.reserve(8);
  for (int thread = 0; thread < 8; ++thread) {
    threads.emplace_back([] {
      for (int number = 0; number < 500; ++number) Emit(1, "a");
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(most, 1);
}

TEST_F(LogFunctionTest, ReplacedWhileOthersEmitLosesNoRecord) {
  constexpr int emitters = 4;
  constexpr int records = 2000;
  const TempFolder folder;
  const RestoredSettings closed{};  // before the folder goes
  const std::string path = (folder / "log.txt").string();
  auto received = std::make_shared<std::atomic<int>>(0);
  const LogFunction count = [received](const LogRecord&) { ++*received; };
  const std::uint64_t lostBefore = LostLogRecords();
  LogToFunction(count);

  std::atomic<int> running{emitters};
  std::vector<std::thread> threads;
  threads.reserve(emitters);
  for (int thread = 0; thread < emitters; ++thread) {
    threads.emplace_back([&running] {
      for (int number = 0; number < records; ++number) Emit(1, std::to_string(number));
      --running;
    });
  }
  while (running > 0) {
    EXPECT_TRUE(LogToFile({path}));
    LogToFunction(count);
  }
  for (std::thread& thread : threads) thread.join();

  const auto inFile = static_cast<int>(ParseLines(ReadFile(path)).size());
  EXPECT_EQ(*received + inFile, emitters * records);
  EXPECT_EQ(LostLogRecords(), lostBefore);
}

}  // namespace
}  // namespace Vornik
