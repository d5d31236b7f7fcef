// The same expectations for every place where records go.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <mutex>
#include <thread>

#include "support.h"

namespace Vornik {
namespace {

// Selected as the destination by its constructor.
class Sink {
 public:
  Sink() = default;
  virtual ~Sink() = default;
  Sink(const Sink&) = delete;
  Sink& operator=(const Sink&) = delete;

  // What arrived. Called once, at the end.
  virtual std::vector<Received> Take() = 0;
};

class StandardErrorSink final : public Sink {
 public:
  StandardErrorSink() {
    testing::internal::CaptureStderr();
    LogToStandardError();
  }
  std::vector<Received> Take() override {
    return ParseLines(testing::internal::GetCapturedStderr());
  }
};

class FileSinkUnderTest final : public Sink {
 public:
  FileSinkUnderTest(std::size_t maxBytes, std::size_t maxFiles) {
    std::string reason;
    EXPECT_TRUE(LogToFile({path_.string(), maxBytes, maxFiles}, &reason)) << reason;
  }
  std::vector<Received> Take() override { return ReadRotated(path_); }

 private:
  TempFolder folder_;
  std::filesystem::path path_ = folder_ / "log.txt";
};

class FunctionSink final : public Sink {
 public:
  FunctionSink() {
    LogToFunction([received = received_](const LogRecord& record) {
      received->push_back({record.level, record.file, record.line, std::string(record.text)});
    });
  }
  std::vector<Received> Take() override { return *received_; }

 private:
  // Not guarded: records come one at a time.
  std::shared_ptr<std::vector<Received>> received_ = std::make_shared<std::vector<Received>>();
};

struct SinkCase {
  const char* name;
  std::function<std::unique_ptr<Sink>()> make;
};
void PrintTo(const SinkCase& sinkCase, std::ostream* stream) { *stream << sinkCase.name; }

const SinkCase sinkCases[] = {
    {"StandardError", [] { return std::make_unique<StandardErrorSink>(); }},
    {"File", [] { return std::make_unique<FileSinkUnderTest>(std::size_t{1} << 30, 1); }},
    {"RotatingFile", [] { return std::make_unique<FileSinkUnderTest>(8 * 1024, 1000); }},
    {"Function", [] { return std::make_unique<FunctionSink>(); }},
};

class LogSink : public testing::TestWithParam<SinkCase> {
 protected:
  void SetUp() override {
    lostBefore_ = LostLogRecords();
    sink_ = GetParam().make();
  }

  std::vector<Received> Take() {
    LogToFunction(nullptr);
    EXPECT_EQ(LostLogRecords(), lostBefore_);
    return sink_->Take();
  }

 private:
  const RestoredSettings restored_{};
  std::uint64_t lostBefore_ = 0;
  std::unique_ptr<Sink> sink_;
};

INSTANTIATE_TEST_SUITE_P(Every, LogSink, testing::ValuesIn(sinkCases),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_P(LogSink, ReceivesLevelFileLineAndText) {
  Emit(1, "no folder", "src/a.cpp", 12);
  Emit(2, "empty value", "src/b.cpp", 345);
  Emit(3, "Check - Start", "c.cpp", 1);
  const std::vector<Received> expected = {{1, "src/a.cpp", 12, "no folder"},
                                          {2, "src/b.cpp", 345, "empty value"},
                                          {3, "c.cpp", 1, "Check - Start"}};
  EXPECT_EQ(Take(), expected);
}

TEST_P(LogSink, ReceivesAMessageThatIsStreamedInPieces) {
  {
    Log log(1, "a.cpp", 1);
    log.Stream() << "folder: " << std::string("repo");
    log.Stream() << ' ' << 42;
  }
  EXPECT_EQ(Texts(Take()), std::vector<std::string>{"folder: repo 42"});
}

TEST_P(LogSink, ReceivesTheRecordOnlyWhenItIsDestroyed) {
  auto first = std::make_unique<Log>(1, "a.cpp", 1);
  first->Stream() << "first";
  Emit(1, "second");
  first.reset();
  EXPECT_EQ(Texts(Take()), (std::vector<std::string>{"second", "first"}));
}

// A host may derive from Log, which takes its type information from the library.
class DerivedLog final : public Log {
 public:
  explicit DerivedLog(bool& destroyed) : Log(2, "host.cpp", 9), destroyed_(destroyed) {}
  ~DerivedLog() noexcept(false) override { destroyed_ = true; }

 private:
  bool& destroyed_;
};

TEST_P(LogSink, ReceivesTheRecordOfADerivedClass) {
  bool destroyed = false;
  {
    const std::unique_ptr<Log> log = std::make_unique<DerivedLog>(destroyed);
    log->Stream() << "derived";
  }
  EXPECT_TRUE(destroyed);
  EXPECT_EQ(Take(), (std::vector<Received>{{2, "host.cpp", 9, "derived"}}));
}

TEST_P(LogSink, ReceivesAnEmptyMessage) {
  Emit(1, "");
  EXPECT_EQ(Take(), (std::vector<Received>{{1, "src/a.cpp", 7, ""}}));
}

TEST_P(LogSink, ReceivesANullFileAsAnEmptyName) {
  Emit(1, "text", nullptr, 3);
  EXPECT_EQ(Take(), (std::vector<Received>{{1, "", 3, "text"}}));
}

TEST_P(LogSink, ReceivesEveryByte) {
  std::string text;
  for (int byte = 0; byte < 256; ++byte) text += static_cast<char>(byte);
  Emit(1, text + text);
  EXPECT_EQ(Texts(Take()), std::vector<std::string>{text + text});
}

TEST_P(LogSink, ReceivesALineFeedInTheFileName) {
  Emit(1, "text", "a\nb.cpp", 3);
  EXPECT_EQ(Take(), (std::vector<Received>{{1, "a\nb.cpp", 3, "text"}}));
}

TEST_P(LogSink, ReceivesFormatPlaceholdersAsTheyAre) {
  Emit(1, "{} %v %s {0:d} {");
  EXPECT_EQ(Texts(Take()), std::vector<std::string>{"{} %v %s {0:d} {"});
}

TEST_P(LogSink, ReceivesALongMessageWhole) {
  const std::string text(std::size_t{1} << 20, 'x');
  Emit(1, "before");
  Emit(1, text);
  Emit(1, "after");
  EXPECT_EQ(Texts(Take()), (std::vector<std::string>{"before", text, "after"}));
}

TEST_P(LogSink, ReceivesLevelsOfOtherEmitters) {
  constexpr unsigned int highest = std::numeric_limits<unsigned int>::max();
  for (const unsigned int level : {0u, 4u, highest}) Emit(level, "text");
  const std::vector<Received> expected = {
      {0, "src/a.cpp", 7, "text"}, {4, "src/a.cpp", 7, "text"}, {highest, "src/a.cpp", 7, "text"}};
  EXPECT_EQ(Take(), expected);
}

TEST_P(LogSink, ReceivesWhatIsEmittedInSpiteOfTheThreshold) {
  SetMinLogLevel(0);
  Emit(1, "error");
  Emit(3, "progress");
  EXPECT_EQ(Texts(Take()), (std::vector<std::string>{"error", "progress"}));
}

// Threads that emit numbered records: "<thread> <number>", each in its own order.
constexpr int threadCount = 8;
constexpr int recordsOfAThread = 1000;

void EmitFromManyThreads() {
  std::vector<std::thread> threads;
  threads.reserve(threadCount);
  for (int thread = 0; thread < threadCount; ++thread) {
    threads.emplace_back([thread] {
      for (int number = 0; number < recordsOfAThread; ++number) {
        Emit(3, std::to_string(thread) + " " + std::to_string(number), "t.cpp", number);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST_P(LogSink, ReceivesRecordsOfManyThreadsWholeAndInEachThreadsOrder) {
  EmitFromManyThreads();
  const std::vector<Received> received = Take();
  ASSERT_EQ(received.size(), static_cast<std::size_t>(threadCount * recordsOfAThread));
  int next[threadCount] = {};
  for (const Received& record : received) {
    const int thread = std::stoi(record.text);
    ASSERT_TRUE(thread >= 0 && thread < threadCount);
    const int number = next[thread]++;
    const std::string text = std::to_string(thread) + " " + std::to_string(number);
    ASSERT_EQ(record, (Received{3, "t.cpp", number, text}));
  }
}

}  // namespace
}  // namespace Vornik
