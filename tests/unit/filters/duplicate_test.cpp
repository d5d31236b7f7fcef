#include "filters/duplicate.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "test_random.h"

namespace Vornik {
namespace {

using Records = std::vector<QueryPackageResult>;

struct Outcome {
  Records records;
  std::vector<std::string> dropped;
};

// The rule step by step: every record is compared with all that are kept.
Outcome Plain(const Records& records) {
  Outcome outcome;
  for (const QueryPackageResult& record : records) {
    QueryPackageResult* first = nullptr;
    for (QueryPackageResult& kept : outcome.records) {
      if (kept.identificationCode == record.identificationCode) {
        first = &kept;
        break;
      }
    }
    if (first == nullptr) {
      outcome.records.push_back(record);
      continue;
    }
    if (!record.kovuName.empty() && first->kovuName.empty()) {
      first->kovuXmlFile = record.kovuXmlFile;
      first->kovuName = record.kovuName;
    }
    outcome.dropped.push_back(record.identificationCode);
  }
  return outcome;
}

Outcome Product(Records records) {
  Outcome outcome;
  const auto duplicates = FindDuplicates(records);
  for (const Duplicate& duplicate : duplicates) {
    outcome.dropped.push_back(records[duplicate.index].identificationCode);
  }
  RemoveDuplicates(records, duplicates);
  outcome.records = std::move(records);
  return outcome;
}

Records RandomRecords(Testing::RandomPick& pick) {
  const auto below = [&pick](std::size_t n) { return pick.Below(n); };
  static const char* const codes[] = {"", "a", "A", "b", "ab", "a "};
  static const char* const packs[] = {"", "", "p", "q"};
  Records records(below(12));
  unsigned int number = 0;
  for (QueryPackageResult& record : records) {
    record.identificationCode = codes[below(6)];
    record.kovuName = packs[below(4)];
    record.kovuXmlFile = below(2) == 0 ? "" : "x" + std::to_string(number) + ".xml";
    record.Version = std::to_string(number++);
  }
  return records;
}

TEST(DuplicateRules, SameAsThePlainRuleOnRandomRecords) {
  Testing::TestRandom pick;
  const std::size_t rounds = pick.Rounds(100'000);
  for (std::size_t round = 0; round < rounds; ++round) {
    const Records records = RandomRecords(pick);
    const Outcome plain = Plain(records);
    const Outcome product = Product(records);
    ASSERT_EQ(product.dropped, plain.dropped) << round;
    ASSERT_EQ(product.records.size(), plain.records.size()) << round;
    for (std::size_t i = 0; i < plain.records.size(); ++i) {
      ASSERT_EQ(product.records[i].identificationCode, plain.records[i].identificationCode);
      ASSERT_EQ(product.records[i].Version, plain.records[i].Version);
      ASSERT_EQ(product.records[i].kovuName, plain.records[i].kovuName);
      ASSERT_EQ(product.records[i].kovuXmlFile, plain.records[i].kovuXmlFile);
    }
  }
}

}  // namespace
}  // namespace Vornik
