// Every order in which a system may list a folder: where the answer differs, a query warns, and
// where it warns, the answer differs.
#include <algorithm>
#include <map>
#include <numeric>
#include <set>

#include "cli_fixture.h"
#include "model/query_model.h"
#include "query/warnings.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

class ListingOrderTest : public CliTest {
 protected:
  Cli::QuerySettings Settings() const {
    Cli::QuerySettings settings;
    settings.folder = folder.Path();
    settings.machineType = "1234";
    settings.osValue = static_cast<OsValue>(10);
    settings.arcValue = static_cast<ArcValue>(9);
    return settings;
  }

  // The contents in every order.
  std::vector<FolderContents> Orders() const {
    const FolderContents contents = Cli::ReadContents(folder.Path());
    std::vector<std::size_t> order(contents.files.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::vector<FolderContents> orders;
    do {
      FolderContents& next = orders.emplace_back();
      for (const std::size_t i : order) next.files.push_back(contents.files[i]);
    } while (std::next_permutation(order.begin(), order.end()));
    return orders;
  }

  std::vector<QueryPackageResult> RecordsOf(const FolderContents& contents) const {
    const Cli::FolderReading reading = Cli::Load(contents);
    return Cli::QueryModel(reading, folder.Path()).Evaluate(Settings()).records;
  }

  // Of every order.
  template <typename Value>
  std::set<Value> ValuesOf(Value (*value)(const std::vector<QueryPackageResult>&)) const {
    std::set<Value> values;
    for (const FolderContents& contents : Orders()) values.insert(value(RecordsOf(contents)));
    return values;
  }

  // Whether each order is warned of, which has to be the same for all.
  bool WarnsOfPacks() const {
    std::set<bool> warns;
    for (const FolderContents& contents : Orders()) {
      warns.insert(!Cli::WarnOfPacks(Cli::SummarizePacks(contents, Settings())).empty());
    }
    EXPECT_EQ(warns.size(), 1U);
    return *warns.begin();
  }

  bool WarnsOfRepeatedCodes() const {
    std::set<bool> warns;
    for (const FolderContents& contents : Orders()) {
      warns.insert(
          !Cli::WarnOfRepeatedCodes(Cli::FindRepeatedCodes(contents), RecordsOf(contents)).empty());
    }
    EXPECT_EQ(warns.size(), 1U);
    return *warns.begin();
  }

  bool WarnsOfEqualVersions() const {
    std::set<bool> warns;
    for (const FolderContents& contents : Orders()) {
      warns.insert(!Cli::WarnOfEqualVersions(Settings(), RecordsOf(contents)).empty());
    }
    EXPECT_EQ(warns.size(), 1U);
    return *warns.begin();
  }
};

std::string PackInUse(const std::vector<QueryPackageResult>& records) {
  return records.front().kovuName;
}

std::map<std::string, std::string> DescriptionsByCode(
    const std::vector<QueryPackageResult>& records) {
  std::map<std::string, std::string> descriptions;
  for (const QueryPackageResult& record : records) {
    descriptions[record.identificationCode] =
        record.description + std::to_string(record.platformFilterStatus);
  }
  return descriptions;
}

std::string Kept(const std::vector<QueryPackageResult>& records) {
  std::string kept;
  std::map<std::string, bool> byCode;
  for (const QueryPackageResult& record : records) {
    byCode[record.identificationCode] = record.supersedeFilterStatus == FilterStatus::Matched;
  }
  for (const auto& [code, isKept] : byCode) kept += isKept ? code + ' ' : "";
  return kept;
}

TEST_F(ListingOrderTest, PackInUseDependsOnItExactlyWhereAQueryWarns) {
  const std::vector<std::string> versions{"", "1", "2", "2"};
  for (std::size_t count = 1; count <= 3; ++count) {
    std::vector<std::size_t> picks(count, 0);
    for (;;) {
      for (std::size_t i = 0; i != count; ++i) {
        const std::string name = "p" + std::to_string(i) + ".xml";
        folder.Write(name, Pack({PackItself(name, versions[picks[i]]),
                                 Package("m").Set("xmlFilename", "m.xml")}));
      }
      EXPECT_EQ(ValuesOf(PackInUse).size() > 1, WarnsOfPacks())
          << count << testing::PrintToString(picks);
      std::size_t place = 0;
      while (place != count && ++picks[place] == versions.size()) picks[place++] = 0;
      if (place == count) break;
    }
  }
}

TEST_F(ListingOrderTest, PacksForOtherMachinesDoNotMatter) {
  folder.Write("p.xml", Pack({PackItself("p.xml", "1"), Package("m").Set("xmlFilename", "m.xml")}));
  folder.Write("q.xml", Pack({PackItself("q.xml", "2").Set("applicableMachineTypes", {"5678"}),
                              Package("m").Set("xmlFilename", "m.xml")}));
  EXPECT_EQ(ValuesOf(PackInUse).size(), 1U);
  EXPECT_FALSE(WarnsOfPacks());
}

TEST_F(ListingOrderTest, RepeatedCodesOfIndividualDescriptorsMatter) {
  folder.Write("a.xml", Package("a").Set("description", "first").Individual());
  folder.Write("b.xml", Package("a").Set("description", "second").Individual());
  EXPECT_EQ(ValuesOf(DescriptionsByCode).size(), 2U);
  EXPECT_TRUE(WarnsOfRepeatedCodes());
  EXPECT_THAT(QueryJson()["warnings"][0].get<std::string>(),
              testing::StartsWith("which descriptor of \"a\" counts depends on the order in which "
                                  "the system lists the folder: it is in "));
}

TEST_F(ListingOrderTest, SameDescriptorsAndOtherCodesDoNotMatter) {
  folder.Write("a.xml", Package("a").Individual());
  folder.Write("b.xml", Package("a").Individual());
  folder.Write("c.xml", Package("A").Set("description", "other").Individual());
  EXPECT_EQ(ValuesOf(DescriptionsByCode).size(), 1U);
  EXPECT_FALSE(WarnsOfRepeatedCodes());
}

TEST_F(ListingOrderTest, MemberAndIndividualDescriptorDoNotMatter) {
  folder.Write("p.xml", Pack({PackItself("p.xml"), Package("a").Set("xmlFilename", "a.xml")}));
  folder.Write("a.xml", Package("a").Set("description", "other").Individual());
  EXPECT_EQ(ValuesOf(DescriptionsByCode).size(), 1U);
  EXPECT_FALSE(WarnsOfRepeatedCodes());
}

TEST_F(ListingOrderTest, RepeatedCodesOfPacksMatter) {
  folder.Write("p.xml", Pack({PackItself("p.xml"), Package("a").Set("xmlFilename", "a.xml")}));
  folder.Write("q.xml", Pack({PackItself("q.xml").Set("applicableMachineTypes", {"5678"}),
                              Descriptor("a").For("1", "1", "1").Set("xmlFilename", "a.xml")}));
  EXPECT_EQ(ValuesOf(DescriptionsByCode).size(), 2U);
  EXPECT_TRUE(WarnsOfRepeatedCodes());
}

TEST_F(ListingOrderTest, EqualVersionsOfADriverMatter) {
  const auto write = [this](const std::string& code, const std::string& version) {
    folder.Write(
        code + ".xml",
        Package(code).Set("Version", version).Set("driverFiles", {"x.sys-#1"}).Individual());
  };
  write("a", "B2");
  write("b", "b2");
  EXPECT_EQ(ValuesOf(Kept).size(), 2U);
  EXPECT_TRUE(WarnsOfEqualVersions());
  EXPECT_THAT(QueryJson()["warnings"][0].get<std::string>(),
              testing::HasSubstr(" is kept can depend on the order in which the system lists the "
                                 "folder: they share a driver file, and their versions are equal"));
  write("c", "c");
  EXPECT_EQ(ValuesOf(Kept).size(), 1U);
  EXPECT_FALSE(WarnsOfEqualVersions());
}

TEST_F(ListingOrderTest, EqualVersionsOfMembersDoNotMatter) {
  folder.Write("p.xml",
               Pack({PackItself("p.xml"),
                     Package("a").Set("xmlFilename", "a.xml").Set("driverFiles", {"x.sys-#1"}),
                     Package("b").Set("xmlFilename", "b.xml").Set("driverFiles", {"x.sys-#1"})}));
  WritePackage("c");
  EXPECT_EQ(ValuesOf(Kept).size(), 1U);
  EXPECT_FALSE(WarnsOfEqualVersions());
}

}  // namespace
}  // namespace Vornik::Testing
