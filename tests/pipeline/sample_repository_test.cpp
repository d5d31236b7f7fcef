// The sample repository shows every verdict that each filter can give while it runs.
#include <set>

#include "project_file.h"
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

using Verdicts = std::set<std::uint32_t>;
using SampleRepositoryTest = QueryTest;

TEST_F(SampleRepositoryTest, ShowsEveryVerdictOfEveryFilter) {
  imp.xmlPackageFolder = ProjectFile("examples/repository");
  imp.includePackageIds = {"orx_utl_keymap_1"};
  imp.excludePackageIds = {"orx_utl_notice_1"};
  imp.updateTypes = {static_cast<UpdateType>(1)};
  ASSERT_EQ(Run(), QueryCode::Completed);
  EXPECT_GE(results.size(), 15U);

  const auto seen = [this](std::uint32_t QueryPackageResult::*slot) {
    Verdicts verdicts;
    for (const QueryPackageResult& record : results) verdicts.insert(record.*slot);
    return verdicts;
  };
  const Verdicts decided{FilterStatus::Matched, FilterStatus::NotMatched};
  const Verdicts all{FilterStatus::NotEvaluated, FilterStatus::Matched, FilterStatus::NotMatched};
  EXPECT_EQ(seen(&QueryPackageResult::platformFilterStatus), all);
  EXPECT_EQ(seen(&QueryPackageResult::kovuFilterStatus), decided);
  EXPECT_EQ(seen(&QueryPackageResult::sepFilterStatus), decided);
  EXPECT_EQ(seen(&QueryPackageResult::payloadExistFilterStatus), decided);
  EXPECT_EQ(seen(&QueryPackageResult::supersedeFilterStatus), decided);
  EXPECT_EQ(seen(&QueryPackageResult::includeIdFilterStatus), decided);
  EXPECT_EQ(seen(&QueryPackageResult::excludeIdFilterStatus), decided);
  EXPECT_EQ(seen(&QueryPackageResult::updateTypeFilterStatus), all);
}

}  // namespace
}  // namespace Vornik::Testing
