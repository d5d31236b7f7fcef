#include "model/repository.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

#ifndef _WIN32
#include "turkish_c_locale.h"
#endif

namespace Vornik {
namespace {

PackageXmlEntry Entry(const std::string& code) {
  return {code + ".xml", {{"IdentificationCode", "", {code}}}};
}

TEST(Repository, FindsTheFirstPackageInOrder) {
  Repository repository;
  for (const char* code : {"a", "c", "c"}) repository.Add(Entry(code));
  repository.Add(KovuPackEntry{"p.xml", {Entry("own"), Entry("a")}});
  repository.Add(KovuPackEntry{"q.xml", {Entry("b"), Entry("a")}});
  const auto& packs = repository.kovuPackEntries();
  EXPECT_EQ(repository.Find("own"), &packs[0].members[0].properties);
  EXPECT_EQ(repository.Find("a"), &packs[0].members[1].properties);
  EXPECT_EQ(repository.Find("b"), &packs[1].members[0].properties);
  EXPECT_EQ(repository.Find("c"), &repository.packageXmlEntries()[1].properties);
  EXPECT_EQ(repository.Find("C"), nullptr);
}

TEST(Repository, NamesThePlaceOfAPackage) {
  Repository repository;
  repository.Add(Entry("a"));
  repository.Add(Entry("b"));
  repository.Add(KovuPackEntry{"p.xml", {Entry("own"), Entry("a")}});
  const KovuPackEntry& pack = repository.kovuPackEntries()[0];
  const PropertySource member = repository.FindSource("a");
  EXPECT_EQ(member.entry, &pack.members[1]);
  EXPECT_EQ(member.pack, &pack);
  EXPECT_EQ(member.member, 1U);
  EXPECT_EQ(member.File(), "p.xml");
  const PropertySource individual = repository.FindSource("b");
  EXPECT_EQ(individual.entry, &repository.packageXmlEntries()[1]);
  EXPECT_EQ(individual.pack, nullptr);
  EXPECT_EQ(individual.File(), "b.xml");
  EXPECT_EQ(repository.FindSource("c").entry, nullptr);
}

TEST(Repository, LastCodeOfAPackageIsItsCode) {
  PackageXmlEntry entry = Entry("old");
  entry.properties.push_back({"identificationCode", "", {"new", "other"}});
  entry.properties.push_back({"identificationCode", "", {}});
  Repository repository;
  repository.Add(entry);
  EXPECT_EQ(repository.Find("old"), nullptr);
  EXPECT_EQ(repository.Find("other"), nullptr);
  EXPECT_EQ(repository.Find("new"), &repository.packageXmlEntries()[0].properties);
}

TEST(Repository, CopyAnswersFromItsOwnEntries) {
  Repository repository;
  repository.Add(Entry("a"));
  ASSERT_NE(repository.Find("a"), nullptr);
  const Repository copy = repository;
  EXPECT_EQ(copy.Find("a"), &copy.packageXmlEntries()[0].properties);
}

// The rule in its own words.
const SupXmlProperties* FindIn(const std::vector<PackageXmlEntry>& entries,
                               const std::string& code) {
  for (const PackageXmlEntry& entry : entries) {
    if (GetPropertyValue("identificationCode", entry.properties) == code) return &entry.properties;
  }
  return nullptr;
}

const SupXmlProperties* PlainFind(const Repository& repository, const std::string& code) {
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) {
    if (const SupXmlProperties* found = FindIn(pack.members, code)) return found;
  }
  return FindIn(repository.packageXmlEntries(), code);
}

// Few codes, some of them twice or not at all in an entry.
class RandomEntries {
 public:
  explicit RandomEntries(unsigned int seed) : random_(seed) {}

  void AddTo(Repository& repository) {
    if (Below(2) == 0) {
      repository.Add(Next());
      return;
    }
    KovuPackEntry pack{"p.xml", {}};
    for (unsigned int members = Below(4); members > 0; --members) pack.members.push_back(Next());
    repository.Add(std::move(pack));
  }

  std::string Code() { return std::string(1, static_cast<char>('a' + Below(8))); }

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

TEST(Repository, SameAsAPlainWalkWhileEntriesAreAdded) {
  for (unsigned int seed = 0; seed < 2'000; ++seed) {
    RandomEntries random(seed);
    Repository repository;
    for (int step = 0; step < 60; ++step) {
      if (step % 3 == 0) random.AddTo(repository);
      const std::string code = random.Code();
      ASSERT_EQ(repository.Find(code), PlainFind(repository, code))
          << "seed " << seed << ", step " << step;
    }
  }
}

#ifndef _WIN32

TEST(Repository, SampledLocaleDecidesWhichPropertyIsTheCode) {
  const std::vector<PackageXmlEntry> entries{{"a.xml", {{"IDENTIFICATIONCODE", "", {"a"}}}},
                                             {"b.xml", {{"identificationCode", "", {"a"}}}}};
  Repository individuals;
  for (const PackageXmlEntry& entry : entries) individuals.Add(entry);
  Repository packs;
  packs.Add(KovuPackEntry{"p.xml", entries});
  const auto find = [&] { return std::make_pair(individuals.Find("a"), packs.Find("a")); };
  const auto& member = packs.kovuPackEntries()[0].members;
  const auto& individual = individuals.packageXmlEntries();
  const auto first = std::make_pair(&individual[0].properties, &member[0].properties);
  EXPECT_EQ(find(), first);
  const Testing::TurkishCLocale locale;
  ASSERT_TRUE(locale.Set());
  EXPECT_EQ(find(), first) << "the locale is sampled, not looked up";
  individuals.SampleLocale();
  packs.SampleLocale();
  EXPECT_EQ(find(), std::make_pair(&individual[1].properties, &member[1].properties));
}

#endif

}  // namespace
}  // namespace Vornik
