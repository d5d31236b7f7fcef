// The supersede filter as a stage: whose lists it reads, and what it logs. The rule has tests of
// its own.
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

constexpr char noProperties[] = "1 ERROR: Couldn't find correct SupXmlProperties";

class SupersedeFilterTest : public QueryTest {
 protected:
  // A record and the descriptor behind it.
  void Add(const Descriptor& descriptor) {
    imp.repository.Add(PackageXmlEntry{"x.xml", descriptor.Properties()});
    results.push_back(RecordOf(GetPropertyValue("identificationCode", descriptor.Properties())));
    results.back().Version = GetPropertyValue("Version", descriptor.Properties());
  }

  void Filter() { imp.FilterSupersede(results); }

  // The codes of the records that are superseded.
  Lines Superseded() const {
    Lines codes;
    for (const QueryPackageResult& record : results) {
      if (record.supersedeFilterStatus == FilterStatus::NotMatched) {
        codes.push_back(record.identificationCode);
      }
    }
    return codes;
  }

  QueryPackageResult& Record(std::size_t index) { return results.at(index); }
};

TEST_F(SupersedeFilterTest, EmptyVectorGivesNoLine) {
  Filter();
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(SupersedeFilterTest, SinglePackageIsKeptWithoutALine) {
  Add(Descriptor("a"));
  Filter();
  EXPECT_EQ(Record(0).supersedeFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Record(0).supersedesId, "");
  EXPECT_EQ(Record(0).supersededById, "");
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(SupersedeFilterTest, ListedPackagesAreSupersededWithoutALine) {
  Add(Descriptor("a").Set("supersede", {"c", "unknown", "B"}));
  Add(Descriptor("b"));
  Add(Descriptor("c"));
  Filter();
  EXPECT_EQ(Superseded(), (Lines{"b", "c"}));
  EXPECT_EQ(Record(0).supersedesId, "c");
  EXPECT_EQ(Record(1).supersededById, "a");
  EXPECT_EQ(Record(2).supersededById, "a");
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(SupersedeFilterTest, PackageThatListsItselfIsKept) {
  Add(Descriptor("a").Set("supersede", {"a"}));
  Filter();
  EXPECT_EQ(Record(0).supersedeFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Record(0).supersedesId, "a");
  EXPECT_EQ(Record(0).supersededById, "a");
}

TEST_F(SupersedeFilterTest, DriverFilesOfTheRecordsFormGroups) {
  Add(Descriptor("a").Set("Version", "1.10").Set("driverFiles", {"other-#1"}));
  Add(Descriptor("b").Set("Version", "1.9"));
  Record(0).driverFiles = {{"NET.sys", "1", ""}};
  Record(1).driverFiles = {{"net.SYS", "1", ""}};
  Filter();
  EXPECT_EQ(Superseded(), Lines{"a"});
  EXPECT_EQ(Record(0).supersededById, "b");
  EXPECT_EQ(Record(1).supersedesId, "a");
}

TEST_F(SupersedeFilterTest, ExcludedIdsLeaveTheirGroups) {
  for (const char* code : {"a", "b", "c"}) {
    Add(Descriptor(code).Set("Version", code));
    results.back().driverFiles = {{"x", "1", ""}};
  }
  imp.excludePackageIds = {"B"};
  Filter();
  EXPECT_EQ(Superseded(), Lines{"a"});
  EXPECT_EQ(Record(0).supersededById, "c");
  EXPECT_EQ(Record(1).supersedesId, "");
  EXPECT_EQ(Record(1).supersededById, "");
  EXPECT_EQ(Record(2).supersedesId, "a");
}

TEST_F(SupersedeFilterTest, IncludedIdsPlayNoPart) {
  for (const char* code : {"a", "b"}) {
    Add(Descriptor(code).Set("Version", code));
    results.back().driverFiles = {{"x", "1", ""}};
  }
  imp.includePackageIds = {"a"};
  Filter();
  EXPECT_EQ(Superseded(), Lines{"a"});
}

TEST_F(SupersedeFilterTest, RefusedPackageSupersedesNothingAndIsNotLookedUp) {
  Add(Descriptor("a").Set("supersede", {"b"}));
  Add(Descriptor("b"));
  results.push_back(RecordOf("unknown"));
  results.push_back(RecordOf(""));
  Record(0).platformFilterStatus = FilterStatus::NotMatched;
  Record(2).platformFilterStatus = FilterStatus::NotMatched;
  Record(3).platformFilterStatus = FilterStatus::NotMatched;
  Filter();
  EXPECT_EQ(Superseded(), Lines{});
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(SupersedeFilterTest, RefusedPackageCanBeSuperseded) {
  Add(Descriptor("a").Set("supersede", {"b"}));
  Add(Descriptor("b"));
  Record(0).platformFilterStatus = FilterStatus::Matched;
  Record(1).platformFilterStatus = FilterStatus::NotMatched;
  Filter();
  EXPECT_EQ(Superseded(), Lines{"b"});
}

TEST_F(SupersedeFilterTest, RecordWithoutPropertiesIsReportedAndStillGrouped) {
  results = {RecordOf("a"), RecordOf("b")};
  results[0].Version = "1";
  results[1].Version = "2";
  results[0].driverFiles = results[1].driverFiles = {{"x", "1", ""}};
  Filter();
  EXPECT_EQ(Log(), (Lines{noProperties, noProperties}));
  EXPECT_EQ(Superseded(), Lines{"a"});
  EXPECT_EQ(Record(1).supersedeFilterStatus, FilterStatus::Matched);
}

TEST_F(SupersedeFilterTest, EarlierVerdictsAreGoneBeforeTheFirstLine) {
  results = {RecordOf("a"), RecordOf("b")};
  for (QueryPackageResult& record : results) {
    record.supersedeFilterStatus = FilterStatus::NotMatched;
  }
  std::vector<unsigned int> statuses;
  RecordingLog::OnRecord([&](const LogEntry&) {
    for (const QueryPackageResult& record : results) {
      statuses.push_back(record.supersedeFilterStatus);
    }
  });
  Filter();
  EXPECT_EQ(statuses, std::vector<unsigned int>(4, FilterStatus::Matched));
}

TEST_F(SupersedeFilterTest, RecordWithoutPropertiesCanBeSuperseded) {
  Add(Descriptor("a").Set("supersede", {"unknown"}));
  results.push_back(RecordOf("unknown"));
  Filter();
  EXPECT_EQ(Superseded(), Lines{"unknown"});
  EXPECT_EQ(Log(), Lines{noProperties});
}

TEST_F(SupersedeFilterTest, RecordWithoutACodeWarns) {
  Load({{"x.xml", Descriptor("").Set("supersede", {"a"}).Properties()}});
  Add(Descriptor("a").Set("supersede", {"a"}));
  results.push_back(RecordOf(""));
  Filter();
  EXPECT_EQ(Log(), (Lines{"2 Package IdentificationCode is empty", noProperties}));
  EXPECT_EQ(Superseded(), Lines{});
  EXPECT_EQ(Record(0).supersededById, "a");
}

TEST_F(SupersedeFilterTest, LinesAreInTheOrderOfTheRecords) {
  results = {RecordOf("unknown"), RecordOf(""), RecordOf("other")};
  Filter();
  EXPECT_EQ(Log(), (Lines{noProperties, "2 Package IdentificationCode is empty", noProperties,
                          noProperties}));
}

TEST_F(SupersedeFilterTest, LastSupersedePropertyCountsAlsoWhenItIsEmpty) {
  Add(Descriptor("a").Set("supersede", {"b"}).Set("SUPERSEDE", {"c"}));
  Add(Descriptor("b").Set("supersede", {"a"}).Set("supersede", std::vector<std::string>()));
  Add(Descriptor("c"));
  Filter();
  EXPECT_EQ(Superseded(), Lines{"c"});
  EXPECT_EQ(Record(0).supersededById, "");
}

TEST_F(SupersedeFilterTest, RecordsOfOneCodeShareTheFirstPropertySet) {
  LoadPacks({{"p.xml", {{"m.xml", Descriptor("a").Set("supersede", {"c"}).Properties()}}}});
  Add(Descriptor("a").Set("supersede", {"b"}));
  Add(Descriptor("b"));
  Add(Descriptor("c"));
  Filter();
  EXPECT_EQ(Superseded(), Lines{"c"}) << "the pack member's list counts";
}

TEST_F(SupersedeFilterTest, DescriptorsCodeIsLookedUpExactly) {
  Load({{"x.xml", Descriptor("A").Set("supersede", {"b"}).Properties()}});
  results = {RecordOf("a"), RecordOf("b")};
  Filter();
  EXPECT_EQ(Superseded(), Lines{});
  EXPECT_EQ(Log(), (Lines{noProperties, noProperties}));
}

TEST_F(SupersedeFilterTest, EarlierVerdictGoesAndEarlierIdsStay) {
  Add(Descriptor("a"));
  Record(0).supersedeFilterStatus = FilterStatus::NotMatched;
  Record(0).supersedesId = "old";
  Record(0).supersededById = "older";
  Filter();
  EXPECT_EQ(Record(0).supersedeFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Record(0).supersedesId, "old");
  EXPECT_EQ(Record(0).supersededById, "older");
}

TEST_F(SupersedeFilterTest, VerdictsOfOtherFiltersStay) {
  Add(Descriptor("a"));
  Record(0).kovuFilterStatus = FilterStatus::NotMatched;
  Record(0).payloadExistFilterStatus = FilterStatus::Matched;
  Filter();
  EXPECT_EQ(Record(0).kovuFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Record(0).payloadExistFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Record(0).platformFilterStatus, FilterStatus::NotEvaluated);
}

TEST_F(SupersedeFilterTest, VerdictsAreWrittenAlsoWhenNothingIsLogged) {
  RecordingLog::SetThreshold(0);
  Add(Descriptor("a").Set("supersede", {"unknown"}));
  results.push_back(RecordOf("unknown"));
  Filter();
  EXPECT_EQ(Superseded(), Lines{"unknown"});
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(SupersedeFilterTest, QueryFindsTheNewestOfAFamily) {
  WriteIndividual("a.xml", Descriptor().Set("Version", "9.0").Set("driverFiles", {"x.sys-#9"}));
  WriteIndividual("b.xml", Descriptor().Set("Version", "10.1").Set("driverFiles", {"X.SYS-#10"}));
  WriteIndividual("c.xml", Descriptor().Set("Version", "8").Set("supersede", {"A"}));
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(Superseded(), Lines{"b"})
      << "9.0 is the greater text, and its group overrides c's list";
  EXPECT_EQ(Record(0).supersededById, "c");
}

TEST_F(SupersedeFilterTest, SwitchedOffFilterLeavesTheMembers) {
  WriteIndividual("a.xml", Descriptor().Set("supersede", {"a"}));
  imp.supersedeFilter = false;
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(Record(0).supersedeFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(Record(0).supersedesId, "");
  EXPECT_EQ(Record(0).supersededById, "");
}

}  // namespace
}  // namespace Vornik::Testing
