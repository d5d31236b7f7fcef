// Packages of the sample repository, explained as its description says.
#include "explain/explain_fixture.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string repository = ProjectFile("examples/repository");

class ExplainSampleTest : public ExplainTest {
 protected:
  Json ExplainSample(const std::string& id, int status = 0) {
    const Outcome outcome =
        RunCli({"explain", repository, "--machine-type", "1234", "--os", "10", "--arch", "9",
                "--log-level", "0", "--format", "json", "--package", id});
    EXPECT_EQ(outcome.status, status) << outcome.err;
    return Json::parse(outcome.out);
  }
};

std::string InRepository(const std::string& name) {
  constexpr char separator = static_cast<char>(boost::filesystem::path::preferred_separator);
  return repository + separator + name;
}

TEST_F(ExplainSampleTest, BlockStorageDriverLosesToTheOneThatItListsByTextualVersions) {
  const Json package = ExplainSample("orx_drv_blkstor_10_1")["packages"][0];
  EXPECT_EQ(package["refusedBy"], Json::array({"supersede"}));
  const Json& chain = package["supersede"];
  EXPECT_EQ(chain["lists"], Json::array({"orx_drv_blkstor_9_0"}));
  EXPECT_EQ(chain["listsUnknown"], Json::array({"orx_drv_blkstor_8_0"}));
  EXPECT_EQ(chain["listOverridden"], true);
  ASSERT_EQ(chain["groups"].size(), 1U);
  EXPECT_EQ(chain["groups"][0]["ranking"][0]["version"], "10.1");
  EXPECT_EQ(chain["groups"][0]["ranking"][1]["code"], "orx_drv_blkstor_9_0");
  EXPECT_EQ(ChangesOf(package["wayOut"]["smallest"][0]),
            std::vector<std::string>{"add --exclude \"orx_drv_blkstor_9_0\""});
  ExpectPasses(package["wayOut"]["smallest"][0], "orx_drv_blkstor_10_1");
}

TEST_F(ExplainSampleTest, NetworkDriverStandsLowestOfThree) {
  const Json package = ExplainSample("orx_drv_ethlan_1_2")["packages"][0];
  EXPECT_EQ(package["refusedBy"], Json({"kovu", "supersede"}));
  std::vector<std::string> ranked;
  for (const Json& one : package["supersede"]["groups"][0]["ranking"]) {
    ranked.push_back(one["version"]);
  }
  EXPECT_THAT(ranked, ElementsAre("1.2", "1.3", "1.4"));
  EXPECT_EQ(package["supersede"]["groups"][0]["driverFiles"], Json::array({"ethlan.sys"}));
  EXPECT_THAT(ChangesOf(package["wayOut"]["smallest"][0]),
              ElementsAre("add --exclude \"orx_drv_ethlan_1_3\" --exclude \"orx_drv_ethlan_1_4\"",
                          "add --no-kovu-filter"));
}

TEST_F(ExplainSampleTest, GraphicsDriverLacksItsPayload) {
  const Json package = ExplainSample("orx_drv_gfx_31")["packages"][0];
  EXPECT_EQ(package["refusedBy"], Json::array({"payloadExist"}));
  EXPECT_EQ(FilterOf(package, "payloadExist")["reason"], "payloadMissing");
  EXPECT_THAT(package["wayOut"]["inTheRepository"][0].get<std::string>(),
              HasSubstr("gfx_31.exe is no regular file"));
}

TEST_F(ExplainSampleTest, TouchpadDriverIsForAnotherMachineAndItsPack) {
  const Json package = ExplainSample("orx_drv_touchpad_5")["packages"][0];
  EXPECT_EQ(package["refusedBy"], Json({"platform", "kovu"}));
  EXPECT_EQ(package["source"]["file"], InRepository("pack_laptop_5678.xml"));
  EXPECT_EQ(package["source"]["isOwn"], false);
  std::vector<std::vector<std::string>> changes;
  for (const Json& smallest : package["wayOut"]["smallest"]) {
    changes.push_back(ChangesOf(smallest));
    ExpectPasses(smallest, "orx_drv_touchpad_5");
  }
  EXPECT_THAT(changes, Contains(ElementsAre("--machine-type 5678 instead of 1234",
                                            "--os 11 instead of 10")));
}

TEST_F(ExplainSampleTest, DockDriverIsNotWellFormed) {
  const Json document = ExplainSample("orx_drv_dock_4");
  ASSERT_EQ(ReasonsOf(document["absence"]), std::vector<std::string>{"notLoaded"});
  const Json& reason = document["absence"][0];
  EXPECT_EQ(reason["file"], InRepository("orx_drv_dock_4_unfinished.xml"));
  EXPECT_EQ(reason["log"], Json::array({"Faile to load Package XML: " +
                                        InRepository("orx_drv_dock_4_unfinished.xml")}));
}

TEST_F(ExplainSampleTest, BluetoothDriverHasAnExtensionInCapitals) {
  const Json document = ExplainSample("orx_drv_bluetooth_4");
  EXPECT_EQ(ReasonsOf(document["absence"]), std::vector<std::string>{"otherExtension"});
}

TEST_F(ExplainSampleTest, ArchivedDriverIsInASubfolder) {
  EXPECT_EQ(ReasonsOf(ExplainSample("orx_drv_blkstor_8_0")["absence"]),
            std::vector<std::string>{"inSubfolder"});
}

TEST_F(ExplainSampleTest, KeymapsDifferInCaseAlone) {
  const Json document = ExplainSample("orx_utl_keymap_1");
  ASSERT_EQ(document["packages"].size(), 1U);
  EXPECT_EQ(document["packages"][0]["otherSpellings"], Json::array({"ORX_UTL_KEYMAP_1"}));
  EXPECT_EQ(ExplainSample("Orx_Utl_Keymap_1")["packages"].size(), 2U);
  EXPECT_EQ(ReasonsOf(ExplainSample("orx_utl_keymap_1_reissue")["absence"]),
            std::vector<std::string>{"otherCode"});
}

TEST_F(ExplainSampleTest, ReissuedFirmwareIsReadFromThePack) {
  const Json package = ExplainSample("orx_fw_ssd_2_4")["packages"][0];
  EXPECT_EQ(package["answer"], "offered");
  EXPECT_EQ(package["repeats"][0]["packageXmlFile"], InRepository("orx_fw_ssd_2_4.xml"));
}

TEST_F(ExplainSampleTest, WebcamHasAPositionThatDoesNotCount) {
  const Json package = ExplainSample("orx_drv_webcam_2")["packages"][0];
  EXPECT_THAT(FilterOf(package, "platform")["details"].dump(), HasSubstr("does not count"));
}

TEST_F(ExplainSampleTest, NameThatNothingHasIsUnknown) {
  EXPECT_EQ(ExplainSample("orx_drv_nothing", 1)["answer"], "unknown");
}

}  // namespace
}  // namespace Vornik::Testing
