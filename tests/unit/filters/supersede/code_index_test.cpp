#include "filters/supersede/code_index.h"

#include <gtest/gtest.h>

namespace Vornik::Testing {
namespace {

std::vector<QueryPackageResult> WithCodes(const std::vector<std::string>& codes) {
  std::vector<QueryPackageResult> records(codes.size());
  for (std::size_t i = 0; i < codes.size(); ++i) records[i].identificationCode = codes[i];
  return records;
}

TEST(CodeIndex, FindsTheFirstMatchOfATextWithoutRegardToCase) {
  const auto records = WithCodes({"a", "B", "A", "b", ""});
  const CodeIndex codes(records, LocaleFold());
  EXPECT_EQ(codes.FirstCaseInsensitiveMatch("A"), 0U);
  EXPECT_EQ(codes.FirstCaseInsensitiveMatch("b"), 1U);
  EXPECT_EQ(codes.FirstCaseInsensitiveMatch(""), 4U);
  EXPECT_EQ(codes.FirstCaseInsensitiveMatch("ab"), noRecord);
  EXPECT_EQ(codes.FirstCaseInsensitiveMatch(" a"), noRecord);
}

TEST(CodeIndex, FindsTheFirstMatchesOfARecord) {
  const auto records = WithCodes({"a", "B", "A", "b", "B", "A"});
  const CodeIndex codes(records, LocaleFold());
  const std::size_t matches[] = {0, 1, 0, 1, 1, 0};
  const std::size_t same[] = {0, 1, 2, 3, 1, 2};
  for (RecordIndex i = 0; i < records.size(); ++i) {
    EXPECT_EQ(codes.FirstCaseInsensitiveMatch(i), matches[i]) << i;
    EXPECT_EQ(codes.FirstWithSameCode(i), same[i]) << i;
  }
}

}  // namespace
}  // namespace Vornik::Testing
