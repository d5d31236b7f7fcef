// The JSON document.
#include "cli_fixture.h"
#include "json_keys.h"
#include "record_members.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class JsonTest : public CliTest {};

TEST_F(JsonTest, KeysAreThoseOfTheRecordInItsOrder) {
  WritePackage("a");
  folder.Write("b.xml", Package("b").Set("driverFiles", {"b.sys-#1"}).Individual());
  const Json document = QueryJson();
  EXPECT_THAT(KeysOf(document), ElementsAre("schemaVersion", "query", "returnCode", "records",
                                            "answers", "pack", "packText", "warnings", "hazard"));
  EXPECT_THAT(KeysOf(document["query"]),
              ElementsAre("folder", "machineType", "osValue", "arcValue", "updateTypes",
                          "includePackageIds", "excludePackageIds", "kovuFilter", "sepFilter",
                          "payloadExistFilter", "supersedeFilter"));
  ASSERT_EQ(document["records"].size(), 2U);
  for (const Json& record : document["records"]) {
    EXPECT_THAT(KeysOf(record), testing::ElementsAreArray(Testing::recordMemberNames));
    for (const Json& file : record["driverFiles"]) {
      EXPECT_THAT(KeysOf(file), ElementsAre("name", "version", "classification"));
    }
  }
}

TEST_F(JsonTest, EveryValueIsTheRecords) {
  folder.Write("payload.exe", "x");
  folder.Write("full.xml", "");
  folder.Write("pack_a.xml", Pack({PackItself("pack_a.xml"),
                                   Package("orx_full")
                                       .Set("xmlFilename", "full.xml")
                                       .Set("buildNumber", "b1")
                                       .Set("description", "d \"q\" \\")
                                       .Set("updateSelection", "TRUE")
                                       .Set("rebootRequired", "False")
                                       .Set("severity", "Severe 2")
                                       .Set("category", "Audio")
                                       .Set("Version", "2.0")
                                       .Set("applicableDeviceId", {"i1"})
                                       .Set("preReq", {"p1", "p2"})
                                       .Set("coReq", {"c1"})
                                       .Set("supersede", {"orx_utl_sep"})
                                       .Set("driverFiles", {"x.sys-#1.1", "y.sys-#2"})
                                       .Set("driverFilesClassification", {"inf", "sys"})}));
  folder.Write("bare.xml",
               Descriptor("orx_utl_sep").For("1234", "11", "9").Set("type", "7").Individual());

  const Json full = {{"packageXmlFile", PathOf("full.xml")},
                     {"identificationCode", "orx_full"},
                     {"driverFiles",
                      {{{"name", "x.sys"}, {"version", "1.1"}, {"classification", "inf"}},
                       {{"name", "y.sys"}, {"version", "2"}, {"classification", "sys"}}}},
                     {"buildNumber", "b1"},
                     {"description", "d \"q\" \\"},
                     {"updateSelection", "TRUE"},
                     {"rebootRequired", "False"},
                     {"severity", "Severe 2"},
                     {"category", "Audio"},
                     {"payload", "payload.exe"},
                     {"type", "1"},
                     {"Version", "2.0"},
                     {"applicableDeviceId", Json::array({"i1"})},
                     {"preReq", Json::array({"p1", "p2"})},
                     {"coReq", Json::array({"c1"})},
                     {"kovuXmlFile", PathOf("pack_a.xml")},
                     {"kovuName", "pack_a"},
                     {"supersedesId", "orx_utl_sep"},
                     {"supersededById", ""},
                     {"platformFilterStatus", 1},
                     {"kovuFilterStatus", 1},
                     {"sepFilterStatus", 1},
                     {"payloadExistFilterStatus", 1},
                     {"supersedeFilterStatus", 1},
                     {"includeIdFilterStatus", 1},
                     {"excludeIdFilterStatus", 1},
                     {"updateTypeFilterStatus", 1}};
  const Json bare = {{"packageXmlFile", PathOf("bare.xml")},
                     {"identificationCode", "orx_utl_sep"},
                     {"driverFiles", Json::array()},
                     {"buildNumber", ""},
                     {"description", ""},
                     {"updateSelection", ""},
                     {"rebootRequired", ""},
                     {"severity", ""},
                     {"category", ""},
                     {"payload", ""},
                     {"type", "7"},
                     {"Version", ""},
                     {"applicableDeviceId", Json::array()},
                     {"preReq", Json::array()},
                     {"coReq", Json::array()},
                     {"kovuXmlFile", ""},
                     {"kovuName", ""},
                     {"supersedesId", ""},
                     {"supersededById", "orx_full"},
                     {"platformFilterStatus", 2},
                     {"kovuFilterStatus", 2},
                     {"sepFilterStatus", 2},
                     {"payloadExistFilterStatus", 2},
                     {"supersedeFilterStatus", 2},
                     {"includeIdFilterStatus", 2},
                     {"excludeIdFilterStatus", 2},
                     {"updateTypeFilterStatus", 2}};
  const Json expected = {{"schemaVersion", 2},
                         {"query",
                          {{"folder", folder.Path()},
                           {"machineType", "1234"},
                           {"osValue", 10},
                           {"arcValue", 9},
                           {"updateTypes", Json::array({1})},
                           {"includePackageIds", Json::array({"ORX_FULL"})},
                           {"excludePackageIds", Json::array({"orx_utl_SEP"})},
                           {"kovuFilter", true},
                           {"sepFilter", true},
                           {"payloadExistFilter", true},
                           {"supersedeFilter", true}}},
                         {"returnCode", 0},
                         {"records", Json::array({full, bare})},
                         {"answers", {"offered", "refused"}},
                         {"pack", {{"file", "pack_a.xml"}, {"version", "1"}}},
                         {"packText", "Pack in use: pack_a.xml, version 1."},
                         {"warnings", Json::array()},
                         {"hazard", nullptr}};
  const Json document =
      QueryJson({"--update-type", "1", "--include", "ORX_FULL", "--exclude", "orx_utl_SEP"});
  EXPECT_EQ(document.dump(2), expected.dump(2));
}

TEST_F(JsonTest, SlotsOfFiltersThatAreOffHold0) {
  WritePackage("a");
  const Json record = QueryJson({"--no-kovu-filter"})["records"][0];
  EXPECT_EQ(record["kovuFilterStatus"], 0);
  EXPECT_EQ(record["includeIdFilterStatus"], 0);
  EXPECT_EQ(record["excludeIdFilterStatus"], 0);
  EXPECT_EQ(record["updateTypeFilterStatus"], 0);
}

TEST_F(JsonTest, BytesThatAreNotUtf8BecomeReplacementCharacters) {
  folder.Write("a.xml", Package("a\xFF\x62")
                            .Set("description", "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80 \xE9t\xE9")
                            .Set("preReq", {"\xC3x"})
                            .Individual());
  const Outcome outcome = Query({"--format", "json", "--include", "\xFE"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  for (const char byte : outcome.out) EXPECT_LT(static_cast<unsigned char>(byte), 0x7FU);
  const Json document = Json::parse(outcome.out);
  const Json& record = document["records"][0];
  EXPECT_EQ(record["identificationCode"], "a\xEF\xBF\xBD\x62");
  EXPECT_EQ(record["description"], "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80 \xEF\xBF\xBDt\xEF\xBF\xBD");
  EXPECT_EQ(record["preReq"], Json::array({"\xEF\xBF\xBDx"}));
  EXPECT_EQ(document["query"]["includePackageIds"], Json::array({"\xEF\xBF\xBD"}));
}

TEST_F(JsonTest, NothingElseGoesToStandardOutput) {
  WritePackage("a");
  const Outcome outcome = Query({"--format", "json", "--log-level", "3"});
  EXPECT_TRUE(Json::accept(outcome.out)) << outcome.out;
  EXPECT_EQ(outcome.out.back(), '\n');
  EXPECT_THAT(outcome.err, HasSubstr("Check parameter validity - Start"));
}

}  // namespace
}  // namespace Vornik::Testing
