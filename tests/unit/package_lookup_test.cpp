#include "package_lookup.h"

#include <gtest/gtest.h>

#include <random>

#ifndef _WIN32
#include "turkish_c_locale.h"
#endif

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

// Few codes, some of them twice or not at all in an entry.
class RandomLists {
 public:
  explicit RandomLists(unsigned int seed) : random_(seed) {}

  void Grow() {
    if (Below(2) == 0) {
      individuals.push_back(Next());
      return;
    }
    KovuPackEntry pack{"p.xml", {}};
    for (unsigned int members = Below(4); members > 0; --members) pack.members.push_back(Next());
    packs.push_back(std::move(pack));
  }

  std::string Code() { return std::string(1, static_cast<char>('a' + Below(8))); }

  std::vector<KovuPackEntry> packs;
  std::vector<PackageXmlEntry> individuals;

 private:
  unsigned int Below(unsigned int n) { return static_cast<unsigned int>(random_() % n); }

  PackageXmlEntry Next() {
    PackageXmlEntry entry = Entry(Code());
    if (Below(4) == 0) entry.properties.push_back({"IDENTIFICATIONCODE", "", {Code()}});
    if (Below(8) == 0) entry.properties.clear();
    return entry;
  }

  std::mt19937 random_;
};

TEST(PackageIndex, SameAsThePlainWalkWhileTheListsGrow) {
  for (unsigned int seed = 0; seed < 2'000; ++seed) {
    RandomLists lists(seed);
    PackageIndex index(lists.packs, lists.individuals);
    for (int step = 0; step < 60; ++step) {
      if (step % 3 == 0) lists.Grow();
      const std::string code = lists.Code();
      ASSERT_EQ(index.Find(code), FindByIdentificationCode(code, lists.packs, lists.individuals))
          << "seed " << seed << ", step " << step;
    }
  }
}

#ifndef _WIN32

TEST(PackageIndex, FollowsTheCLibrarysLocaleFromOneQuestionToTheNext) {
  const std::vector<PackageXmlEntry> entries{{"a.xml", {{"IDENTIFICATIONCODE", "", {"a"}}}},
                                             {"b.xml", {{"identificationCode", "", {"a"}}}}};
  const std::vector<KovuPackEntry> noPacks;
  const std::vector<KovuPackEntry> packs{{"p.xml", entries}};
  const std::vector<PackageXmlEntry> noIndividuals;
  PackageIndex individualIndex(noPacks, entries);
  PackageIndex packIndex(packs, noIndividuals);
  EXPECT_EQ(individualIndex.Find("a"), &entries[0].properties);
  EXPECT_EQ(packIndex.Find("a"), &packs[0].members[0].properties);
  const Testing::TurkishCLocale locale;
  ASSERT_TRUE(locale.Set());
  EXPECT_EQ(individualIndex.Find("a"), &entries[1].properties);
  EXPECT_EQ(packIndex.Find("a"), &packs[0].members[1].properties);
}

#endif

}  // namespace
}  // namespace Vornik
