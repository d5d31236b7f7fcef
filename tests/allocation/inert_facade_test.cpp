// A facade whose implementation object cannot be allocated.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "QueryPackage.h"
#include "recording_callback.h"

namespace {

bool allocationsFail = false;

void* Allocate(std::size_t size) {
  if (allocationsFail) throw std::bad_alloc();
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace Vornik {
namespace {

TEST(InertFacade, IgnoresItsSettersAndAnswersZero) {
  allocationsFail = true;
  QueryPackage query;
  allocationsFail = false;

  Testing::RecordingCallback callback;
  query.SetXMLPackageFolder("folder");
  query.SetPlatform(static_cast<OsValue>(1), static_cast<ArcValue>(1), "1234");
  query.SetKovuFilter(false);
  query.SetSepFilter(false);
  query.SetPayloadExistFilter(false);
  query.SetSupersedeFilter(false);
  query.SetUpdateTypes({UpdateType::Any});
  query.SetIncludePackageIDs({"a"});
  query.SetExcludePackageIDs({"a"});
  query.SetQueryCallback(&callback);

  std::vector<QueryPackageResult> results(1);
  results[0].identificationCode = "kept";
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].identificationCode, "kept");
  EXPECT_TRUE(callback.calls.empty());
}

TEST(InertFacade, IsNotInertWhenTheAllocationSucceeds) {
  QueryPackage query;
  std::vector<QueryPackageResult> results;
  EXPECT_EQ(query.RunQuery(results), QueryCode::InvalidParameter);
}

}  // namespace
}  // namespace Vornik
