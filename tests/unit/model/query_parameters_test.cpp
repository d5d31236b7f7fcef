#include "model/query_parameters.h"

#include <gtest/gtest.h>

namespace Vornik {
namespace {

TEST(CheckParameters, FindsTheFirstFault) {
  using Ids = std::vector<std::string>;
  const auto none = OsValue::NotSet;
  const auto system = static_cast<OsValue>(10);
  const auto architecture = static_cast<ArcValue>(9);
  const struct {
    std::string folder;
    bool isDirectory;
    std::string machineType;
    OsValue osValue;
    ArcValue arcValue;
    Ids included;
    Ids excluded;
    ParameterFault fault;
    std::string id;
  } cases[] = {
      {"", false, "", none, ArcValue::NotSet, {"a"}, {"a"}, ParameterFault::FolderNotSet, ""},
      {"", true, "1234", system, architecture, {}, {}, ParameterFault::FolderNotSet, ""},
      {"f", false, "", none, ArcValue::NotSet, {"a"}, {"a"}, ParameterFault::FolderNotValid, ""},
      {"f", true, "", none, ArcValue::NotSet, {"a"}, {"a"}, ParameterFault::MachineTypeNotSet, ""},
      {"f", true, "12a4", none, ArcValue::NotSet, {}, {}, ParameterFault::MachineTypeInvalid, ""},
      {"f", true, "1234", none, ArcValue::NotSet, {"a"}, {"a"}, ParameterFault::OsNotSet, ""},
      {"f", true, "1234", system, ArcValue::NotSet, {"a"}, {"a"}, ParameterFault::ArcNotSet, ""},
      {"f",
       true,
       "1234",
       system,
       architecture,
       {"A", "c", "b"},
       {"b", "c", "a"},
       ParameterFault::IdInBothLists,
       "c"},
      {"f", true, "1234", system, architecture, {"A"}, {"a"}, ParameterFault::None, ""},
  };
  for (const auto& one : cases) {
    const ParameterCheck check =
        CheckParameters({one.folder, one.isDirectory, one.machineType, one.osValue, one.arcValue,
                         one.included, one.excluded});
    EXPECT_EQ(check.fault, one.fault) << static_cast<int>(one.fault);
    EXPECT_EQ(check.id, one.id);
  }
}

TEST(IsMachineType, Accepts) {
  for (const char* text : {"0000", "0123", "1234", "9999"})
    EXPECT_TRUE(IsMachineType(text)) << text;
}

TEST(IsMachineType, Rejects) {
  for (const char* text :
       {"", "1", "123", "12345", "12a4", "12 4", "+123", "1.23", "\xB2\xB2\xB2\xB2"}) {
    EXPECT_FALSE(IsMachineType(text)) << text;
  }
}

}  // namespace
}  // namespace Vornik
