// Records from descriptors, the pack whose members become records, and the look-up by code.
#include <gmock/gmock.h>

#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

KovuPackEntry PackOf(const std::string& path, const std::vector<Descriptor>& members) {
  KovuPackEntry pack{path, {}};
  int i = 0;
  for (const Descriptor& member : members) {
    pack.members.push_back({"m" + std::to_string(i++) + ".xml", member.Properties()});
  }
  return pack;
}

Descriptor PackLevel(const std::string& machineType = "1234", const std::string& system = "10") {
  return Descriptor()
      .Set("applicableMachineTypes", std::vector<std::string>{"Desk [" + machineType + "]"})
      .Set("applicableOperatingSystems", std::vector<std::string>{system});
}

class ResultBuildingTest : public QueryTest {
 protected:
  void AddIndividual(const std::string& path, const Descriptor& descriptor) {
    imp.repository.Add(PackageXmlEntry{path, descriptor.Properties()});
  }

  bool Build() { return imp.CreateQueryPackageResults(results); }

  bool Find(const std::string& code) {
    const SupXmlProperties* properties = imp.FindPackageProperties(code);
    found = properties == nullptr ? SupXmlProperties() : *properties;
    return properties != nullptr;
  }

  SupXmlProperties found;
};

TEST_F(ResultBuildingTest, NothingLoadedLeavesTheVectorUntouched) {
  results = {RecordOf("kept")};
  EXPECT_FALSE(Build());
  EXPECT_EQ(Codes(), Lines{"kept"});
  EXPECT_EQ(Log(), Lines{"1 There is not any valid xml package in " + folder.Path()});
}

TEST_F(ResultBuildingTest, NothingBuiltEmptiesTheVector) {
  results = {RecordOf("dropped")};
  LoadPacks({PackOf("p.xml", {PackLevel("9999"), Descriptor("m")})});
  EXPECT_FALSE(Build());
  EXPECT_TRUE(results.empty());
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(ResultBuildingTest, TwoIndividualDescriptorsGiveTwoRecordsInOrder) {
  AddIndividual("2.xml", Descriptor("b"));
  AddIndividual("1.xml", Descriptor("a"));
  EXPECT_TRUE(Build());
  EXPECT_EQ(Codes(), (Lines{"b", "a"}));
  EXPECT_EQ(results[0].packageXmlFile, "2.xml");
  EXPECT_EQ(results[0].kovuXmlFile, "");
  EXPECT_EQ(results[0].kovuName, "");
}

TEST_F(ResultBuildingTest, EveryMemberIsFilledFromThePropertyOfItsName) {
  AddIndividual("a.xml", Descriptor("code")
                             .Set("buildNumber", "b")
                             .Set("description", " d  d ")
                             .Set("updateSelection", "True")
                             .Set("rebootRequired", "FALSE ")
                             .Set("severity", " 2")
                             .Set("category", "c")
                             .Set("payload", "p")
                             .Set("type", "t")
                             .Set("Version", "v")
                             .Set("applicableDeviceId", {"1", "2"})
                             .Set("preReq", {"3", ""})
                             .Set("coReq", {"4"})
                             .Set("driverFiles", {"x.sys-#1"})
                             .Set("driverFilesClassification", {"k"}));
  EXPECT_TRUE(Build());
  const QueryPackageResult& record = results.at(0);
  EXPECT_EQ(record.identificationCode, "code");
  EXPECT_EQ(record.buildNumber, "b");
  EXPECT_EQ(record.description, " d  d ");
  EXPECT_EQ(record.updateSelection, "True");
  EXPECT_EQ(record.rebootRequired, "FALSE ");
  EXPECT_EQ(record.severity, " 2");
  EXPECT_EQ(record.category, "c");
  EXPECT_EQ(record.payload, "p");
  EXPECT_EQ(record.type, "t");
  EXPECT_EQ(record.Version, "v");
  EXPECT_EQ(record.applicableDeviceId, (Lines{"1", "2"}));
  EXPECT_EQ(record.preReq, (Lines{"3", ""}));
  EXPECT_EQ(record.coReq, Lines{"4"});
  ASSERT_EQ(record.driverFiles.size(), 1U);
  EXPECT_EQ(record.driverFiles[0].name, "x.sys");
  EXPECT_EQ(record.driverFiles[0].version, "1");
  EXPECT_EQ(record.driverFiles[0].classification, "k");
  EXPECT_EQ(record.supersedesId, "");
  EXPECT_EQ(record.supersededById, "");
}

TEST_F(ResultBuildingTest, DescriptorWithNoneOfThePropertiesGivesAnEmptyRecord) {
  AddIndividual("a.xml", Descriptor().Set("other", "x"));
  EXPECT_TRUE(Build());
  const QueryPackageResult& record = results.at(0);
  EXPECT_EQ(record.packageXmlFile, "a.xml");
  for (const std::string* text :
       {&record.identificationCode, &record.buildNumber, &record.description,
        &record.updateSelection, &record.rebootRequired, &record.severity, &record.category,
        &record.payload, &record.type, &record.Version, &record.kovuXmlFile, &record.kovuName,
        &record.supersedesId, &record.supersededById}) {
    EXPECT_EQ(*text, "");
  }
  EXPECT_TRUE(record.driverFiles.empty());
  EXPECT_TRUE(record.applicableDeviceId.empty());
  EXPECT_TRUE(record.preReq.empty());
  EXPECT_TRUE(record.coReq.empty());
  for (const std::uint32_t status :
       {record.platformFilterStatus, record.kovuFilterStatus, record.sepFilterStatus,
        record.payloadExistFilterStatus, record.supersedeFilterStatus, record.includeIdFilterStatus,
        record.excludeIdFilterStatus, record.updateTypeFilterStatus}) {
    EXPECT_EQ(status, FilterStatus::NotEvaluated);
  }
}

TEST_F(ResultBuildingTest, FlagsKeepTheSpellingOfTheirDescriptor) {
  AddIndividual("a.xml", Descriptor().Set("rebootRequired", "true").Set("severity", "02"));
  AddIndividual("b.xml", Descriptor().Set("rebootRequired", "TRUE ").Set("severity", "2"));
  EXPECT_TRUE(Build());
  EXPECT_EQ(results[0].rebootRequired, "true");
  EXPECT_EQ(results[1].rebootRequired, "TRUE ");
  EXPECT_EQ(results[0].severity, "02");
  EXPECT_EQ(results[1].severity, "2");
}

TEST_F(ResultBuildingTest, LastVersionWithAValueWins) {
  AddIndividual("a.xml", Descriptor().Set("Version", "1.0").Set("Version", "2.0"));
  AddIndividual("b.xml", Descriptor().Set("Version", "1.0").Set("Version", Lines{}));
  EXPECT_TRUE(Build());
  EXPECT_EQ(results[0].Version, "2.0");
  EXPECT_EQ(results[1].Version, "1.0");
}

TEST_F(ResultBuildingTest, LaterEmptyListHidesAnEarlierOne) {
  AddIndividual("a.xml", Descriptor().Set("preReq", {"x"}).Set("PreReq", Lines{}));
  EXPECT_TRUE(Build());
  EXPECT_TRUE(results[0].preReq.empty());
}

TEST_F(ResultBuildingTest, PropertyNameInCapitalsFillsTheMember) {
  AddIndividual("a.xml", Descriptor().Set("IDENTIFICATIONCODE", "ABC"));
  EXPECT_TRUE(Build());
  EXPECT_EQ(Codes(), Lines{"ABC"});
  EXPECT_TRUE(Find("ABC"));
  EXPECT_FALSE(Find("abc"));
}

TEST_F(ResultBuildingTest, MembersOfTheChosenPackComeFirst) {
  AddIndividual("a.xml", Descriptor("a"));
  LoadPacks({PackOf("dir/pack_a.xml", {PackLevel().Set("identificationCode", "own"),
                                       Descriptor("m1"), Descriptor("m2")})});
  EXPECT_TRUE(Build());
  EXPECT_EQ(Codes(), (Lines{"m1", "m2", "a"}));
  EXPECT_EQ(results[0].kovuName, "pack_a");
  EXPECT_EQ(results[1].kovuName, "pack_a");
  EXPECT_EQ(results[0].kovuXmlFile, "dir/pack_a.xml");
  EXPECT_EQ(results[0].packageXmlFile, "m1.xml");
}

TEST_F(ResultBuildingTest, PackWithOnlyItsOwnInstanceGivesNoRecord) {
  LoadPacks({PackOf("p.xml", {PackLevel()})});
  EXPECT_FALSE(Build());
  EXPECT_TRUE(results.empty());
}

TEST_F(ResultBuildingTest, PackWithoutAnOwnInstanceLosesItsFirstMember) {
  LoadPacks({PackOf("p.xml", {PackLevel().Set("identificationCode", "lost"), Descriptor("kept")})});
  EXPECT_TRUE(Build());
  EXPECT_EQ(Codes(), Lines{"kept"});
}

TEST_F(ResultBuildingTest, PackCalledJustXmlHasAnEmptyName) {
  LoadPacks({PackOf("dir/.xml", {PackLevel(), Descriptor("m")})});
  EXPECT_TRUE(Build());
  EXPECT_EQ(results.at(0).kovuXmlFile, "dir/.xml");
  EXPECT_EQ(results.at(0).kovuName, "");
}

TEST_F(ResultBuildingTest, PackNameLosesItsLastExtensionOnly) {
  LoadPacks({PackOf("dir/p.1.xml", {PackLevel(), Descriptor("m")})});
  EXPECT_TRUE(Build());
  EXPECT_EQ(results.at(0).kovuName, "p.1");
}

TEST_F(ResultBuildingTest, RecordsWithoutACodeAreKept) {
  AddIndividual("a.xml", Descriptor().Set("x", "1"));
  AddIndividual("b.xml", Descriptor().Set("x", "1"));
  EXPECT_TRUE(Build());
  EXPECT_EQ(Codes(), (Lines{"", ""}));
}

TEST_F(ResultBuildingTest, DriverFileThatDoesNotParseCostsOneWarning) {
  AddIndividual("a.xml", Descriptor().Set("driverFiles", {"bad", "", "a.sys-#1", "b-#c-#d"}));
  EXPECT_TRUE(Build());
  const std::string line = "2 Fail to parse driverFiles's property value";
  EXPECT_EQ(Log(), (Lines{line, line}));
  ASSERT_EQ(results.at(0).driverFiles.size(), 1U);
  EXPECT_EQ(results[0].driverFiles[0].name, "a.sys");
}

TEST_F(ResultBuildingTest, LookUpOfAnEmptyCodeFindsNothing) {
  AddIndividual("a.xml", Descriptor().Set("x", "1"));
  EXPECT_FALSE(Find(""));
  EXPECT_FALSE(Find(""));
  EXPECT_EQ(Log(), (Lines{"2 Package IdentificationCode is empty",
                          "2 Package IdentificationCode is empty"}));
}

TEST_F(ResultBuildingTest, LookUpThatFindsNothingLogsNothing) {
  AddIndividual("a.xml", Descriptor("a"));
  EXPECT_FALSE(Find("b"));
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(ResultBuildingTest, LookUpSearchesThePacksBeforeTheIndividuals) {
  AddIndividual("a.xml", Descriptor("m").Set("from", "individual"));
  AddIndividual("b.xml", Descriptor("i").Set("from", "first"));
  AddIndividual("c.xml", Descriptor("i").Set("from", "second"));
  LoadPacks({
      PackOf("p.xml", {Descriptor("own").Set("from", "own"), Descriptor("x")}),
      PackOf("q.xml", {Descriptor("y"), Descriptor("m").Set("from", "pack")}),
  });
  EXPECT_TRUE(Find("m"));
  EXPECT_EQ(GetPropertyValue("from", found), "pack") << "no pack was chosen";
  EXPECT_TRUE(Find("own"));
  EXPECT_EQ(GetPropertyValue("from", found), "own");
  EXPECT_TRUE(Find("i"));
  EXPECT_EQ(GetPropertyValue("from", found), "first");
  EXPECT_EQ(found.size(), 2U);
}

TEST_F(ResultBuildingTest, LookUpComparesExactly) {
  AddIndividual("a.xml", Descriptor("abc"));
  for (const char* code : {"ABC", "abc ", " abc", "ab", "abcd"}) EXPECT_FALSE(Find(code)) << code;
  EXPECT_TRUE(Find("abc"));
}

class PackSelectionTest : public ResultBuildingTest {
 protected:
  std::int32_t Select(const std::vector<Descriptor>& packs) {
    imp.repository = {};
    for (const Descriptor& pack : packs) imp.repository.Add(PackOf("p.xml", {pack}));
    return imp.SelectKovuPack();
  }

  static Descriptor Versioned(const std::string& version) {
    return PackLevel().Set("Version", version);
  }
};

TEST_F(PackSelectionTest, NoPackAnswersMinusOne) { EXPECT_EQ(Select({}), -1); }

TEST_F(PackSelectionTest, MissingMachineTypesAreReportedAndThePackIsSkipped) {
  EXPECT_EQ(Select({Descriptor().Set("applicableOperatingSystems", {"0"}), PackLevel()}), 1);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find applicableMachineTypeList!"});
}

TEST_F(PackSelectionTest, MissingOperatingSystemsAreReportedAndThePackIsSkipped) {
  EXPECT_EQ(Select({Descriptor().Set("applicableMachineTypes", {"1234"}), PackLevel()}), 1);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find applicableOperatingSystems!"});
}

TEST_F(PackSelectionTest, OtherMachineIsSkippedBeforeItsSystemsAreLookedAt) {
  EXPECT_EQ(Select({Descriptor().Set("applicableMachineTypes", {"9999"})}), -1);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(PackSelectionTest, PackWithoutMembersHasNoProperties) {
  LoadPacks({PackOf("p.xml", {})});
  EXPECT_EQ(imp.SelectKovuPack(), -1);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find applicableMachineTypeList!"});
}

TEST_F(PackSelectionTest, PackWithoutMembersAppliesWhenNothingIsAsked) {
  imp.machineType = "";
  imp.osValue = OsValue::NotSet;
  LoadPacks({PackOf("p.xml", {})});
  EXPECT_EQ(imp.SelectKovuPack(), 0);
  EXPECT_FALSE(Build());
}

TEST_F(PackSelectionTest, SystemThatIsNotSetSkipsItsTest) {
  imp.osValue = OsValue::NotSet;
  EXPECT_EQ(Select({Descriptor().Set("applicableMachineTypes", {"1234"})}), 0);
}

TEST_F(PackSelectionTest, ThirdOfThreeIsChosen) {
  EXPECT_EQ(Select({Versioned("2.0"), Versioned("1.0"), Versioned("1.5")}), 2);
}

TEST_F(PackSelectionTest, SecondOfThreeIsChosen) {
  EXPECT_EQ(Select({Versioned("1.0"), Versioned("2.0"), Versioned("1.5")}), 1);
}

TEST_F(PackSelectionTest, PacksThatDoNotApplyDoNotCount) {
  EXPECT_EQ(Select({PackLevel("9999").Set("Version", "9"), Versioned("2.0"),
                    PackLevel("1234", "11").Set("Version", "9"), Versioned("1.0")}),
            3);
}

}  // namespace
}  // namespace Vornik::Testing
