#include "model/properties.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Vornik {
namespace {

using List = std::vector<std::string>;

struct Case {
  const char* name;
  SupXmlProperties properties;
  const char* value;
  List values;
};

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases{
      {"a", {}, "", {}},
      {"a", {{"a", "", {"1"}}}, "1", {"1"}},
      {"a", {{"a", "", {"1", "2"}}}, "1", {"1", "2"}},
      {"TYPE", {{"type", "", {"1"}}}, "1", {"1"}},
      {"type", {{"tYpE", "", {"1"}}}, "1", {"1"}},
      {"type", {{"Type", "", {"1"}}, {"TYPE", "", {"2", "3"}}}, "2", {"2", "3"}},
      // A property without values hides those before it from the list of values only.
      {"type", {{"type", "", {"1"}}, {"type", "", {}}}, "1", {}},
      {"type", {{"type", "", {}}, {"type", "", {"1"}}}, "1", {"1"}},
      {"type", {{"type", "", {"1"}}, {"type", "", {}}, {"type", "", {}}}, "1", {}},
      {"type", {{"type", "", {"1"}}, {"type", "", {""}}}, "", {""}},
      {"type", {{"type", "", {"1"}}, {"other", "", {"2"}}}, "1", {"1"}},
      // Names are compared whole.
      {"type", {{"types", "", {"1"}}, {"typ", "", {"2"}}, {" type", "", {"3"}}}, "", {}},
      {"", {{"a", "", {"1"}}}, "", {}},
      {"", {{"a", "", {"1"}}, {"", "", {"2"}}}, "2", {"2"}},
      // The type of a property is not looked at.
      {"a", {{"a", "uint32", {"x"}}, {"b", "a", {"y"}}}, "x", {"x"}},
      {"\xC3\x89", {{"\xC3\xA9", "", {"1"}}}, "", {}},
  };
  return cases;
}

TEST(Properties, FirstValueOfTheLastThatHasOne) {
  for (const Case& c : Cases()) {
    EXPECT_EQ(GetPropertyValue(c.name, c.properties), c.value) << c.name;
  }
}

TEST(Properties, AllValuesOfTheLast) {
  for (const Case& c : Cases()) {
    EXPECT_EQ(GetPropertyValues(c.name, c.properties), c.values) << c.name;
  }
}

TEST(Properties, FoundValueIsTheOneInTheList) {
  const SupXmlProperties properties{{"a", "", {"1", "2"}}, {"A", "", {}}, {"b", "", {""}}};
  EXPECT_EQ(FindPropertyValue("a", properties), &properties[0].values[0]);
  EXPECT_EQ(FindPropertyValue("B", properties), &properties[2].values[0]);
  EXPECT_EQ(FindPropertyValue("c", properties), nullptr);
  EXPECT_EQ(FindPropertyValue("a", {}), nullptr);
}

}  // namespace
}  // namespace Vornik
