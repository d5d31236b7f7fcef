#include "filters/update_type.h"

#include <gtest/gtest.h>

#include "descriptors.h"

namespace Vornik::Testing {
namespace {

using Numbers = std::vector<std::int32_t>;

constexpr auto matched = UpdateTypeVerdict::Matched;
constexpr auto notMatched = UpdateTypeVerdict::NotMatched;

UpdateTypeVerdict Judge(const SupXmlProperties& properties, const Numbers& requested) {
  std::vector<UpdateType> types;
  for (const std::int32_t number : requested) types.push_back(static_cast<UpdateType>(number));
  return EvaluateUpdateType(properties, types);
}

SupXmlProperties TypeOf(const std::string& text) {
  return Descriptor().Set("type", text).Properties();
}

TEST(UpdateTypeRules, TypeAgainstTheRequest) {
  struct Case {
    const char* type;
    Numbers requested;
    UpdateTypeVerdict verdict;
  };
  const Case cases[] = {
      {"3", {1, 3}, matched},
      {"1", {1, 3}, matched},
      {"2", {1, 3}, notMatched},
      {"13", {1, 3}, notMatched},
      {"3", {3, 3, 3}, matched},
      {"2", {3, 3, 3}, notMatched},
      {"3", {1, 1, 3, 1}, matched},
      // 99 asked for meets every type, wherever it stands.
      {"1", {99}, matched},
      {"0", {99}, matched},
      {"-5", {99}, matched},
      {"x", {99}, matched},
      {"7", {1, 99}, matched},
      {"7", {99, 1}, matched},
      // A package of type 99 meets every request but an empty one.
      {"99", {1}, matched},
      {"99", {99}, matched},
      {"99", {0}, matched},
      {"99", {}, notMatched},
      {" 99th", {1}, matched},
      {"1", {}, notMatched},
      {"990", {1}, notMatched},
      {"-99", {1}, notMatched},
      {"1", {-99}, notMatched},
      // Numbers are read from the beginning of the text.
      {"  3", {3}, matched},
      {"\t\n3", {3}, matched},
      {"3abc", {3}, matched},
      {"3 ", {3}, matched},
      {"3.7", {3}, matched},
      {"+3", {3}, matched},
      {"-3", {-3}, matched},
      {"003", {3}, matched},
      {"0x3", {0}, matched},
      {"0x3", {3}, notMatched},
      {"3,1", {1}, notMatched},
      // What is no number reads as 0.
      {"x", {0}, matched},
      {"x3", {0}, matched},
      {" ", {0}, matched},
      {"+ 3", {0}, matched},
      {"--3", {0}, matched},
      {"x", {1}, notMatched},
      {"\xB3", {3}, notMatched},
      {"\xA0"
       "3",
       {3},
       notMatched},
      // The ends of the 32-bit numbers.
      {"2147483647", {2147483647}, matched},
      {"-2147483648", {-2147483647 - 1}, matched},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(Judge(TypeOf(one.type), one.requested), one.verdict)
        << "\"" << one.type << "\" asked for " << testing::PrintToString(one.requested);
  }
}

TEST(UpdateTypeRules, PackageWithoutAType) {
  const Numbers requests[] = {{}, {0}, {99}, {1, 3}};
  for (const Numbers& requested : requests) {
    EXPECT_EQ(Judge({}, requested), UpdateTypeVerdict::NoType);
    EXPECT_EQ(Judge(TypeOf(""), requested), UpdateTypeVerdict::NoType);
    EXPECT_EQ(Judge(Descriptor().Set("type", std::vector<std::string>()).Properties(), requested),
              UpdateTypeVerdict::NoType);
    EXPECT_EQ(Judge(Descriptor().Set("types", "1").Set("typ", "1").Properties(), requested),
              UpdateTypeVerdict::NoType);
  }
}

TEST(UpdateTypeRules, FirstValueOfTheLastTypeThatHasOneCounts) {
  const auto judge = [](const Descriptor& descriptor) {
    return Judge(descriptor.Properties(), {2});
  };
  EXPECT_EQ(judge(Descriptor().Set("type", "1").Set("TYPE", "2")), matched);
  EXPECT_EQ(judge(Descriptor().Set("type", "2").Set("Type", "1")), notMatched);
  EXPECT_EQ(judge(Descriptor().Set("type", {"2", "1"})), matched);
  EXPECT_EQ(judge(Descriptor().Set("type", {"1", "2"})), notMatched);
  EXPECT_EQ(judge(Descriptor().Set("type", "2").Set("type", std::vector<std::string>())), matched);
  EXPECT_EQ(judge(Descriptor().Set("type", "2").Set("type", "")), UpdateTypeVerdict::NoType);
  EXPECT_EQ(judge(Descriptor().Set("type", {"", "2"})), UpdateTypeVerdict::NoType);
}

}  // namespace
}  // namespace Vornik::Testing
