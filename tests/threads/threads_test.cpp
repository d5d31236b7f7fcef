// Separate objects on separate threads, with the real library and its default log.
#include <LogSettings.h>
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "QueryPackage.h"
#include "project_file.h"
#include "record_members.h"

namespace Vornik {
namespace {

using Records = std::vector<QueryPackageResult>;

constexpr std::size_t queries = 1'000;
constexpr std::size_t threads = 8;

struct Answer {
  Records records;
  std::size_t lines = 0;  // of the log

  bool operator==(const Answer& other) const {
    return Testing::FirstDifference(records, other.records).empty() && lines == other.lines;
  }
};

// The records of this thread; the log calls the function on the thread that emits them.
std::size_t& LinesOfThread() {
  thread_local std::size_t lines = 0;
  return lines;
}

// Settings that differ from query to query, so that threads that shared some would be found out.
constexpr std::size_t settings = 6;

Answer Query(std::size_t setting) {
  QueryPackage query;
  query.SetXMLPackageFolder(Testing::ProjectFile("examples/repository"));
  query.SetPlatform(static_cast<OsValue>(10), static_cast<ArcValue>(9),
                    setting % 2 == 0 ? "1234" : "5678");
  query.SetSupersedeFilter(setting % 3 != 0);
  query.SetUpdateTypes({static_cast<UpdateType>(setting)});
  query.SetExcludePackageIDs({"orx_drv_ethlan_1_4", "orx_drv_wlan_22"});
  query.SetIncludePackageIDs({"orx_drv_audio_6"});
  Answer answer;
  const std::size_t before = LinesOfThread();
  EXPECT_EQ(query.RunQuery(answer.records), QueryCode::Completed);
  answer.lines = LinesOfThread() - before;
  return answer;
}

class ThreadsTest : public testing::Test {
 protected:
  ThreadsTest() {
    SetMinLogLevel(3);
    LogToFunction([](const LogRecord&) { ++LinesOfThread(); });
  }
  ~ThreadsTest() override {
    LogToStandardError();
    SetMinLogLevel(1);
  }
};

TEST_F(ThreadsTest, QueriesOfSeparateObjectsGiveWhatTheyGiveAlone) {
  std::vector<Answer> expected;
  for (std::size_t i = 0; i < settings; ++i) expected.push_back(Query(i));
  ASSERT_GT(expected[0].records.size(), 10U);
  ASSERT_GT(expected[0].lines, 100U);
  ASSERT_FALSE(expected[0] == expected[1]);
  ASSERT_FALSE(expected[0] == expected[2]);

  std::atomic<std::size_t> next{0};
  std::atomic<std::size_t> answered{0};
  std::atomic<std::size_t> different{0};
  const auto work = [&] {
    for (std::size_t i = next++; i < queries; i = next++) {
      if (!(Query(i % settings) == expected[i % settings])) ++different;
      ++answered;
    }
  };
  std::vector<std::thread> running;
  for (std::size_t i = 0; i < threads; ++i) running.emplace_back(work);
  for (std::thread& thread : running) thread.join();
  EXPECT_EQ(different, 0U);
  EXPECT_EQ(answered, queries);
  EXPECT_EQ(LostLogRecords(), 0U);
}

}  // namespace
}  // namespace Vornik
