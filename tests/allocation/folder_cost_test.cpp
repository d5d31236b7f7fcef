// What a query of a folder allocates, against the bytes of the folder. Linked as
// out_of_memory_test is, so that the operator new that counts is the only one.
#include <gtest/gtest.h>

#include "QueryPackage.h"
#include "allocation/counted_allocations.h"
#include "hostile_folders.h"
#include "querypackageimp.h"
#include "recording_log.h"
#include "temp_folder.h"

namespace Vornik::Testing {
namespace {

struct QueryCost {
  std::size_t folder = 0;  // bytes
  std::size_t most = 0;    // allocated at one time
  std::size_t ever = 0;    // allocated in all
};

QueryCost CostOf(const FolderTexts& files) {
  const TempFolder folder;
  QueryCost cost;
  for (const auto& [name, text] : files) {
    folder.Write(name, text);
    cost.folder += text.size();
  }
  QueryPackageImp query;
  query.xmlPackageFolder = folder.Path();
  query.machineType = "1234";
  query.osValue = static_cast<OsValue>(10);
  query.arcValue = static_cast<ArcValue>(9);
  QueryPackageImp::Results results;
  RecordingLog::Reset(0);
  CountedAllocations& counted = Counted();
  const std::size_t before = counted.now;
  counted.most = before;
  counted.ever = 0;
  query.RunQuery(results);
  cost.most = counted.most - before;
  cost.ever = counted.ever;
  return cost;
}

TEST(FolderCost, PeakMemoryIsBoundedByTheBytes) {
  for (const HostileFolder& folder : HostileFolders()) {
    const QueryCost cost = CostOf(folder.make(400'000));
    EXPECT_GT(cost.folder, 200'000U) << folder.name;
    EXPECT_LT(cost.folder, 500'000U) << folder.name;
    EXPECT_LE(cost.most, 120 * cost.folder) << folder.name;
  }
}

// Groups that overlap are gathered one at a time: all of them take as much as a square.
TEST(FolderCost, AllocationsGrowWithTheBytes) {
  for (const HostileFolder& folder : HostileFolders()) {
    if (folder.name == std::string("driver-groups")) continue;
    const QueryCost small = CostOf(folder.make(100'000));
    const QueryCost large = CostOf(folder.make(400'000));
    const double growth = static_cast<double>(large.ever) / static_cast<double>(small.ever);
    const double ofBytes = static_cast<double>(large.folder) / static_cast<double>(small.folder);
    EXPECT_LE(growth, 1.25 * ofBytes) << folder.name;
  }
}

}  // namespace
}  // namespace Vornik::Testing
