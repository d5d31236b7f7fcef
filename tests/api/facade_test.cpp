// The shared library as a host uses it: settings and callback.
#include <LogSettings.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "captured_stdout.h"
#include "host_fixture.h"
#include "recording_callback.h"

namespace Vornik::Testing {
namespace {

class FacadeTest : public HostTest {
 protected:
  FacadeTest() {
    SetMinLogLevel(3);
    LogToFunction([this](const LogRecord& record) { log.emplace_back(record.text); });
  }
  ~FacadeTest() override {
    LogToStandardError();
    SetMinLogLevel(1);
  }

  bool Logged(const std::string& line) const {
    return std::find(log.begin(), log.end(), line) != log.end();
  }

  Lines log;
};

static_assert(!std::is_copy_constructible_v<QueryPackage>);
static_assert(!std::is_copy_assignable_v<QueryPackage>);
static_assert(sizeof(QueryPackage) == sizeof(void*));

#ifndef _MSC_VER

// A host's callback is called by its place in the table of virtual functions. A pointer to such a
// member starts with that place: one more than its offset in the table.
template <typename Member>
std::size_t PlaceOf(Member member) {
  std::size_t start = 0;
  static_assert(sizeof(member) >= sizeof(start));
  std::memcpy(&start, &member, sizeof(start));
  return (start - 1) / sizeof(void*);
}

TEST(Callback, OperationsAreInTheirPlaces) {
  EXPECT_EQ(PlaceOf(&IQueryPackageCallback::PreQueryPackage), 0U);
  EXPECT_EQ(PlaceOf(&IQueryPackageCallback::QueryPackageProgress), 1U);
  EXPECT_EQ(PlaceOf(&IQueryPackageCallback::PostQueryPackage), 2U);
}

#endif

TEST_F(FacadeTest, NewObjectHasNothingSet) {
  QueryPackage query;
  results.resize(1);
  const CapturedStdout out;
  EXPECT_EQ(query.RunQuery(results), QueryCode::InvalidParameter);
  EXPECT_EQ(out.Text(), "xml package folder is not set");
  EXPECT_EQ(log, (Lines{"Check parameter validity - Start", "xml package folder is not set"}));
  EXPECT_EQ(results.size(), 1U);
}

TEST_F(FacadeTest, NewObjectHasItsSwitchesOnAndItsListsEmpty) {
  QueryPackage query;
  Prepare(query);
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  for (const char* line :
       {"Kovu Filter - Start", "Sep Filter - Start", "PayloadExist Filter - Start",
        "Supersede Filter - Start", "IncludePackageIDs Filter Ignored!",
        "ExcludePackageIDs Filter Ignored!", "UpdateType Filter Ignored!"}) {
    EXPECT_TRUE(Logged(line)) << line;
  }
  EXPECT_FALSE(Logged("PreQueryPackage Callback - Start"));
}

TEST_F(FacadeTest, EverySwitchReachesItsFilter) {
  QueryPackage query;
  Prepare(query);
  query.SetKovuFilter(false);
  query.SetSepFilter(false);
  query.SetPayloadExistFilter(false);
  query.SetSupersedeFilter(false);
  query.SetIncludePackageIDs({"a"});
  query.SetExcludePackageIDs({"b"});
  query.SetUpdateTypes({static_cast<UpdateType>(3)});
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(results[0].sepFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(results[0].payloadExistFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(results[0].supersedeFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[0].excludeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::Matched);
}

TEST_F(FacadeTest, EmptyUpdateTypeListSwitchesItsFilterOffAgain) {
  QueryPackage query;
  Prepare(query);
  query.SetUpdateTypes({UpdateType::Any});
  query.SetUpdateTypes({});
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_TRUE(Logged("UpdateType Filter Ignored!"));
}

TEST_F(FacadeTest, ListsAreReplacedNotExtended) {
  QueryPackage query;
  Prepare(query);
  query.SetIncludePackageIDs({"a"});
  query.SetIncludePackageIDs({"b"});
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(results.at(0).includeIdFilterStatus, FilterStatus::NotMatched);
}

TEST_F(FacadeTest, SettersKeepCopies) {
  QueryPackage query;
  Prepare(query);
  Lines ids{"a"};
  query.SetIncludePackageIDs(ids);
  ids[0] = "b";
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(results.at(0).includeIdFilterStatus, FilterStatus::Matched);
}

TEST_F(FacadeTest, SecondPlatformReplacesTheFirstCompletely) {
  QueryPackage query;
  Prepare(query);
  query.SetPlatform(os, arch, "12345678");
  query.SetPlatform(os, arch, "123");
  const CapturedStdout out;
  EXPECT_EQ(query.RunQuery(results), QueryCode::InvalidParameter);
  query.SetPlatform(static_cast<OsValue>(11), arch, "1234");
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(results.at(0).platformFilterStatus, FilterStatus::NotMatched);
}

TEST_F(FacadeTest, NullRemovesTheCallback) {
  QueryPackage query;
  Prepare(query);
  RecordingCallback callback;
  query.SetQueryCallback(&callback);
  query.SetQueryCallback(nullptr);
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(callback.calls, Lines{});
}

TEST_F(FacadeTest, CallbackMayChangeItsQuery) {
  QueryPackage query;
  Prepare(query);
  RecordingCallback callback;
  callback.pre = [&] {
    query.SetQueryCallback(nullptr);
    query.SetSepFilter(false);
  };
  query.SetQueryCallback(&callback);
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(callback.calls, Lines{"pre"});
  EXPECT_TRUE(Logged("Sep Filter Ignored!"));
}

TEST_F(FacadeTest, DestructionLeavesTheCallbackAlone) {
  bool destroyed = false;
  auto callback = std::make_unique<RecordingCallback>();
  callback->onDestruction = [&destroyed] { destroyed = true; };
  {
    QueryPackage query;
    query.SetQueryCallback(callback.get());
  }
  EXPECT_FALSE(destroyed);
  EXPECT_EQ(callback->calls, Lines{});
}

}  // namespace
}  // namespace Vornik::Testing
