// The platform filter as a stage. Its rule has tests of its own.
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

class PlatformFilterTest : public QueryTest {
 protected:
  // Judges one package of those properties; its verdict is the slot's value.
  std::uint32_t Judge(const Descriptor& descriptor) {
    Load({{"a.xml", descriptor.Properties()}});
    results = {RecordOf("a")};
    RecordingLog::Reset();
    imp.FilterPlatform(results);
    return results.at(0).platformFilterStatus;
  }

  static Descriptor With(const std::vector<std::string>& machineTypes,
                         const std::vector<std::string>& systems,
                         const std::vector<std::string>& architectures) {
    return Descriptor("a")
        .Set("orderedMachineTypeList", machineTypes)
        .Set("orderedOSList", systems)
        .Set("orderedOSArchitectureList", architectures);
  }
};

TEST_F(PlatformFilterTest, EmptyVectorGivesNoLine) {
  imp.FilterPlatform(results);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(PlatformFilterTest, TripleThatFitsIsMatched) {
  EXPECT_EQ(Judge(With({"1234"}, {"10"}, {"9"})), FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{"3 a Platform Filter is matched!"});
}

TEST_F(PlatformFilterTest, WalkThatFindsNothingIsNotMatched) {
  EXPECT_EQ(Judge(With({"1234", "5678"}, {"11", "10"}, {"9", "9"})), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{"3 a Platform Filter is not matched!"});
}

TEST_F(PlatformFilterTest, RecordWithoutPropertiesStaysNotEvaluated) {
  results = {RecordOf("unknown")};
  imp.FilterPlatform(results);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find correct SupXmlProperties"});
}

TEST_F(PlatformFilterTest, RecordWithoutACodeWarnsAndStaysNotEvaluated) {
  results = {RecordOf("")};
  imp.FilterPlatform(results);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), (Lines{"2 Package IdentificationCode is empty",
                          "1 ERROR: Couldn't find correct SupXmlProperties"}));
}

TEST_F(PlatformFilterTest, MissingMachineTypesAreReportedFirst) {
  EXPECT_EQ(Judge(With({}, {}, {})), FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find orderedMachineTypeList!"});
}

TEST_F(PlatformFilterTest, MissingOperatingSystemsAreReportedNext) {
  EXPECT_EQ(Judge(With({"1234"}, {}, {})), FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find orderedOSList!"});
}

TEST_F(PlatformFilterTest, MissingArchitecturesAreReportedLast) {
  EXPECT_EQ(Judge(With({"1234"}, {"10"}, {})), FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find orderedOSArchitectureList!"});
}

TEST_F(PlatformFilterTest, ErrorLeavesAnEarlierVerdictAsItWas) {
  results = {RecordOf("unknown")};
  results[0].platformFilterStatus = FilterStatus::NotMatched;
  imp.FilterPlatform(results);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::NotMatched);
}

TEST_F(PlatformFilterTest, ShortestListBoundsTheWalk) {
  EXPECT_EQ(Judge(With({"1", "2", "1234"}, {"10", "10"}, {"9", "9", "9"})),
            FilterStatus::NotMatched);
  EXPECT_EQ(Judge(With({"1", "1234", "3"}, {"10", "10"}, {"9", "9", "9"})), FilterStatus::Matched);
}

TEST_F(PlatformFilterTest, TargetWithoutSystemAndArchitectureMatchesByMachineTypeAlone) {
  imp.osValue = OsValue::NotSet;
  imp.arcValue = ArcValue::NotSet;
  EXPECT_EQ(Judge(With({"1", "1234"}, {"77", "78"}, {"79", "80"})), FilterStatus::Matched);
  EXPECT_EQ(Judge(With({"1", "1234"}, {"77"}, {"79", "80"})), FilterStatus::NotMatched)
      << "beyond the common length";
}

TEST_F(PlatformFilterTest, MachineTypesAreComparedExactly) {
  for (const char* listed : {"1234 ", " 1234", "12345", "123", "1234\t", ""}) {
    EXPECT_EQ(Judge(With({listed}, {"10"}, {"9"})), FilterStatus::NotMatched) << listed;
  }
  imp.machineType = "12ab";
  EXPECT_EQ(Judge(With({"12AB"}, {"10"}, {"9"})), FilterStatus::NotMatched);
}

TEST_F(PlatformFilterTest, SystemZeroInTheDescriptorIsAny) {
  EXPECT_EQ(Judge(With({"1234"}, {"0"}, {"9"})), FilterStatus::Matched);
  EXPECT_EQ(Judge(With({"1234"}, {"any"}, {"all"})), FilterStatus::Matched);
}

TEST_F(PlatformFilterTest, RecordsOfOneCodeShareTheFirstPropertySet) {
  Load({{"a.xml", With({"1234"}, {"10"}, {"9"}).Properties()},
        {"b.xml", With({"5678"}, {"10"}, {"9"}).Properties()}});
  results = {RecordOf("a"), RecordOf("a")};
  imp.FilterPlatform(results);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].platformFilterStatus, FilterStatus::Matched);
}

TEST_F(PlatformFilterTest, RecordsAreJudgedInOrderAndKeepTheirPlaces) {
  Load({{"a.xml", With({"1234"}, {"10"}, {"9"}).Properties()}});
  results = {RecordOf("unknown"), RecordOf("a")};
  imp.FilterPlatform(results);
  EXPECT_EQ(Codes(), (Lines{"unknown", "a"}));
  EXPECT_EQ(Log(), (Lines{"1 ERROR: Couldn't find correct SupXmlProperties",
                          "3 a Platform Filter is matched!"}));
}

}  // namespace
}  // namespace Vornik::Testing
