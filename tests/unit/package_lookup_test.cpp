#include "package_lookup.h"

#include <gtest/gtest.h>

namespace Vornik {
namespace {

PackageXmlEntry Entry(const std::string& code) {
  return {code + ".xml", {{"IdentificationCode", "", {code}}}};
}

TEST(PackageLookup, PointsIntoTheListsInOrder) {
  const std::vector<KovuPackEntry> packs{{"p.xml", {Entry("own"), Entry("a")}},
                                         {"q.xml", {Entry("b"), Entry("a")}}};
  const std::vector<PackageXmlEntry> individuals{Entry("a"), Entry("c"), Entry("c")};
  const auto find = [&](const char* code) {
    return FindByIdentificationCode(code, packs, individuals);
  };
  EXPECT_EQ(find("own"), &packs[0].members[0].properties);
  EXPECT_EQ(find("a"), &packs[0].members[1].properties);
  EXPECT_EQ(find("b"), &packs[1].members[0].properties);
  EXPECT_EQ(find("c"), &individuals[1].properties);
  EXPECT_EQ(find("C"), nullptr);
}

TEST(PackageLookup, LastCodeOfAPackageIsItsCode) {
  PackageXmlEntry entry = Entry("old");
  entry.properties.push_back({"identificationCode", "", {"new", "other"}});
  entry.properties.push_back({"identificationCode", "", {}});
  const std::vector<PackageXmlEntry> individuals{entry};
  EXPECT_EQ(FindByIdentificationCode("old", {}, individuals), nullptr);
  EXPECT_EQ(FindByIdentificationCode("other", {}, individuals), nullptr);
  EXPECT_EQ(FindByIdentificationCode("new", {}, individuals), &individuals[0].properties);
}

}  // namespace
}  // namespace Vornik
