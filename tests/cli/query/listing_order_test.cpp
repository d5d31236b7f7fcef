// Every order in which a system may list a folder: where the answer differs, a query warns, and
// where it warns, the answer differs.
#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <set>

#include "cli_fixture.h"
#include "model/query_model.h"
#include "query/driver_overlap.h"
#include "query/warnings.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

class ListingOrderTest : public CliTest {
 protected:
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

TEST_F(ListingOrderTest, DriverFilesThatOverlapOnlyPartlyMatter) {
  const auto write = [this](const std::string& code, const std::string& version,
                            const std::vector<std::string>& files) {
    folder.Write(code + ".xml",
                 Package(code).Set("Version", version).Set("driverFiles", files).Individual());
  };
  write("a", "3", {"x.sys-#1"});
  write("b", "2", {"x.sys-#1", "y.sys-#1"});
  write("c", "1", {"y.sys-#1"});
  EXPECT_EQ(ValuesOf(Kept).size(), 2U);
  EXPECT_EQ(QueryJson()["warnings"],
            Json::array({"whether \"b\" is kept depends on the order in which the system lists the "
                         "folder: the driver files of several packages overlap only partly"}));
  write("b", "4", {"x.sys-#1", "y.sys-#1"});
  EXPECT_EQ(ValuesOf(Kept).size(), 1U) << "the one in the middle replaces both in any order";
  EXPECT_EQ(QueryJson()["warnings"], Json::array());
}

TEST_F(ListingOrderTest, ExplainWarnsOfThePackagesThatItConcerns) {
  WritePackage("alone");
  for (const char* code : {"a", "b"}) {
    folder.Write(code + std::string(".xml"),
                 Package(code).Set("driverFiles", {"x.sys-#1"}).Individual());
  }
  const auto explain = [this](const std::string& id, const Arguments& more) {
    Arguments arguments = QueryArguments(more);
    arguments.front() = "explain";
    arguments.push_back(id);
    return RunCli(arguments).out;
  };
  const Json warnings = QueryJson()["warnings"];
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(Json::parse(explain("a", {"--format", "json"}))["warnings"], warnings);
  EXPECT_THAT(explain("b", {}),
              testing::EndsWith("\nWarning: " + warnings[0].get<std::string>() + ".\n"));
  EXPECT_EQ(Json::parse(explain("alone", {"--format", "json"}))["warnings"], Json::array());
  EXPECT_EQ(Json::parse(explain("none", {"--format", "json"}))["warnings"], Json::array());
}

TEST_F(ListingOrderTest, NoPackageVariesWithoutAWarningAboutIt) {
  const TestRandom test;
  std::mt19937 random(test.Seed());
  const auto pick = [&random](unsigned int below) { return random() % below; };
  std::size_t varied = 0;
  std::size_t overlaps = 0;
  for (std::size_t round = test.Rounds(60); round != 0; --round) {
    SCOPED_TRACE(round);
    for (const char* code : {"a", "b", "c", "d"}) {
      std::vector<std::string> files;
      for (const char* file : {"x.sys-#1", "y.sys-#1", "z.sys-#1"}) {
        if (pick(2) == 0) files.emplace_back(file);
      }
      folder.Write(code + std::string(".xml"), Package(code)
                                                   .Set("Version", std::to_string(pick(5)))
                                                   .Set("driverFiles", files)
                                                   .Set("category", code)
                                                   .Individual());
    }
    std::map<std::string, std::set<std::uint32_t>> statuses;
    std::map<std::string, bool> warned;
    for (const FolderContents& contents : Orders()) {
      const auto records = RecordsOf(contents);
      const auto warnings =
          Cli::WarnOfOrder(Settings(), Cli::ListingFactsOf(contents, Settings()), records);
      for (const QueryPackageResult& record : records) {
        const std::string& code = record.identificationCode;
        statuses[code].insert(record.supersedeFilterStatus);
        const auto concerns = std::any_of(warnings.begin(), warnings.end(),
                                          [&](const auto& one) { return one.Concerns(code); });
        warned.emplace(code, concerns);
      }
      overlaps += Cli::WarnOfDriverOverlap(Settings(), records).size();
      for (const auto& one : Cli::WarnOfDriverOverlap(Settings(), records)) {
        ASSERT_THAT(one.codes, testing::Not(testing::IsEmpty()));
      }
    }
    for (const auto& [code, values] : statuses) {
      if (values.size() < 2) continue;
      ++varied;
      ASSERT_TRUE(warned[code]) << code;
    }
  }
  if (!test.RunsAllRounds()) return;
  EXPECT_GT(varied, 10U);
  EXPECT_GT(overlaps, 10U);
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
