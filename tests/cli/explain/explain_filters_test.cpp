// Why each filter gave its verdict: reason, file, values and what the library logged.
#include "explain/explain_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::Contains;
using testing::HasSubstr;

class ExplainFiltersTest : public ExplainTest {
 protected:
  void Write(const std::string& code, Descriptor package) {
    folder.Write(code + ".xml", package.Set("xmlFilename", code + ".xml").Individual());
    folder.Write("payload.exe", "x");
  }
};

Descriptor WithLists(const std::string& code, const std::vector<std::string>& machineTypes,
                     const std::vector<std::string>& systems,
                     const std::vector<std::string>& architectures) {
  return Descriptor(code)
      .Set("orderedMachineTypeList", machineTypes)
      .Set("orderedOSList", systems)
      .Set("orderedOSArchitectureList", architectures)
      .Set("payload", "payload.exe")
      .Set("type", "1");
}

TEST_F(ExplainFiltersTest, EachPlatformReason) {
  const struct {
    const char* code = nullptr;
    Descriptor package;
    int status = 0;
    const char* reason = nullptr;
    const char* text = nullptr;
    const char* detail = nullptr;
    const char* log = nullptr;
  } cases[] = {
      {"match", WithLists("match", {"5678", "1234"}, {"10", "0"}, {"9", "9"}), 1, "entryMatches",
       "Position 2 of its lists fits the machine: machine type \"1234\", any operating system "
       "(\"0\"), "
       "architecture \"9\"",
       "", "match Platform Filter is matched!"},
      {"other", WithLists("other", {"5678"}, {"10"}, {"9"}), 2, "noEntryMatches",
       "None of the positions that count (1) has the machine type 1234.", "",
       "other Platform Filter is not matched!"},
      {"os", WithLists("os", {"1234"}, {"11"}, {"9"}), 2, "noEntryMatches", "none fits the machine",
       "Position 1 has the machine type, but the operating system \"11\" instead of 10.",
       "os Platform Filter is not matched!"},
      {"arch", WithLists("arch", {"1234"}, {"10"}, {"5"}), 2, "noEntryMatches",
       "none fits the machine",
       "Position 1 has the machine type, but the architecture \"5\" instead of 9.",
       "arch Platform Filter is not matched!"},
      {"both", WithLists("both", {"1234"}, {"11"}, {"5"}), 2, "noEntryMatches",
       "none fits the machine",
       "but the operating system \"11\" instead of 10 and the architecture \"5\" instead of 9.",
       "both Platform Filter is not matched!"},
      {"short", WithLists("short", {"5678", "1234"}, {"10"}, {"9", "9"}), 2, "noEntryMatches",
       "None of the positions that count (1) has",
       "Position 2 has the machine type, but does not count: the shortest list ends after 1.",
       "short Platform Filter is not matched!"},
      {"longer", WithLists("longer", {"1234x"}, {"10"}, {"9"}), 2, "noEntryMatches",
       "None of the positions that count (1) has",
       "Position 1 has \"1234x\", which is compared as a whole.",
       "longer Platform Filter is not matched!"},
      {"noTypes", WithLists("noTypes", {}, {"10"}, {"9"}), 0, "noMachineTypes",
       "\"orderedMachineTypeList\" is missing", "", "ERROR: Couldn't find orderedMachineTypeList!"},
      {"noSystems", WithLists("noSystems", {"1234"}, {}, {"9"}), 0, "noOperatingSystems",
       "\"orderedOSList\" is missing", "", "ERROR: Couldn't find orderedOSList!"},
      {"noArchs", WithLists("noArchs", {"1234"}, {"10"}, {}), 0, "noArchitectures",
       "\"orderedOSArchitectureList\" is missing", "",
       "ERROR: Couldn't find orderedOSArchitectureList!"},
  };
  for (const auto& one : cases) Write(one.code, one.package);
  for (const auto& one : cases) {
    SCOPED_TRACE(one.code);
    const Json filter = ExplainFilter(one.code, "platform");
    EXPECT_EQ(filter["status"], one.status);
    EXPECT_EQ(filter["reason"], one.reason);
    EXPECT_THAT(filter["text"].get<std::string>(), HasSubstr(one.text));
    EXPECT_EQ(filter["file"], PathOf(std::string(one.code) + ".xml"));
    EXPECT_EQ(filter["log"], Json::array({one.log}));
    if (*one.detail == '\0') {
      EXPECT_EQ(filter["details"], Json::array());
    } else {
      ASSERT_EQ(filter["details"].size(), 1U);
      EXPECT_THAT(filter["details"][0].get<std::string>(), HasSubstr(one.detail));
    }
  }
}

TEST_F(ExplainFiltersTest, PlatformShowsTheListsThatItRead) {
  Write("a", WithLists("a", {"5678", "1234"}, {"10"}, {"9", "5", "0"}));
  const Json expected = {{{"name", "orderedMachineTypeList"}, {"values", {"5678", "1234"}}},
                         {{"name", "orderedOSList"}, {"values", Json::array({"10"})}},
                         {{"name", "orderedOSArchitectureList"}, {"values", {"9", "5", "0"}}}};
  EXPECT_EQ(ExplainFilter("a", "platform")["properties"], expected);
}

TEST_F(ExplainFiltersTest, EachSepReason) {
  const struct {
    const char* code;
    int status;
    const char* reason;
    const char* text;
  } cases[] = {{"orx_utl_sep_1", 2, "sepCode", "holds \"orx_utl_sep\""},
               {"x_orx_utl_tsep", 2, "sepCode", "holds \"orx_utl_tsep\""},
               {"ORX_UTL_SEP", 1, "noSepCode", "none of the Sep ids"}};
  for (const auto& one : cases) WritePackage(one.code);
  for (const auto& one : cases) {
    const Json filter = ExplainFilter(one.code, "sep");
    EXPECT_EQ(filter["status"], one.status);
    EXPECT_EQ(filter["reason"], one.reason);
    EXPECT_THAT(filter["text"].get<std::string>(), HasSubstr(one.text));
    EXPECT_EQ(filter["log"].size(), 1U);
  }
}

TEST_F(ExplainFiltersTest, EachPayloadReason) {
  Write("found", Package("found"));
  folder.Write("a.xml", Package("noName").Individual());
  folder.Write(
      "b.xml",
      Descriptor("noPayload").For("1234", "10", "9").Set("xmlFilename", "b.xml").Individual());
  folder.Write("c.xml", Package("noFile").Set("xmlFilename", "gone.xml").Individual());
  folder.Write(
      "d.xml",
      Package("noPayloadFile").Set("payload", "gone.exe").Set("xmlFilename", "d.xml").Individual());
  const struct {
    const char* code;
    int status;
    const char* reason;
    std::string text;
    std::vector<std::string> log;
  } cases[] = {
      {"found",
       1,
       "found",
       "Both files are in the folder.",
       {"found PayloadExist Filter is matched!"}},
      {"noName",
       2,
       "noXmlFilename",
       "\"xmlFilename\" is missing or empty.",
       {"ERROR: Couldn't find xml!", "noName PayloadExist Filter is not matched!"}},
      {"noPayload",
       2,
       "noPayload",
       "\"payload\" is missing or empty.",
       {"ERROR: Couldn't find payload!", "noPayload PayloadExist Filter is not matched!"}},
      {"noFile",
       2,
       "descriptorMissing",
       PathOf("gone.xml") + ", which \"xmlFilename\" names, is no regular file.",
       {"noFile PayloadExist Filter is not matched!"}},
      {"noPayloadFile",
       2,
       "payloadMissing",
       PathOf("gone.exe") + ", which \"payload\" names, is no regular file.",
       {"noPayloadFile PayloadExist Filter is not matched!"}},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.code);
    const Json filter = ExplainFilter(one.code, "payloadExist");
    EXPECT_EQ(filter["status"], one.status);
    EXPECT_EQ(filter["reason"], one.reason);
    EXPECT_EQ(filter["text"], one.text);
    EXPECT_EQ(filter["log"], Json(one.log));
  }
}

TEST_F(ExplainFiltersTest, EachIdReason) {
  WritePackage("a");
  WritePackage("b");
  const struct {
    const char* id;
    const char* filter;
    Arguments arguments;
    int status;
    const char* reason;
    const char* text;
  } cases[] = {
      {"a", "includeId", {}, 0, "off", "It is off because no --include is given."},
      {"a", "includeId", {"--include", "a"}, 1, "listed", "The include list holds the code."},
      {"a",
       "includeId",
       {"--include", "A"},
       1,
       "listed",
       "The include list holds \"A\", which is the code in another case."},
      {"a",
       "includeId",
       {"--include", "b", "--include", "c"},
       2,
       "notListed",
       "The include list does not hold the code; it holds \"b\", \"c\"."},
      {"a", "excludeId", {}, 0, "off", "It is off because no --exclude is given."},
      {"a",
       "excludeId",
       {"--exclude", "A"},
       2,
       "listed",
       "The exclude list holds \"A\", which is the code in another case."},
      {"a",
       "excludeId",
       {"--exclude", "b"},
       1,
       "notListed",
       "The exclude list does not hold the code; it holds \"b\"."},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(testing::PrintToString(one.arguments));
    const Json filter = ExplainFilter(one.id, one.filter, one.arguments);
    EXPECT_EQ(filter["status"], one.status);
    EXPECT_EQ(filter["runs"], one.status != 0);
    EXPECT_EQ(filter["reason"], one.reason);
    EXPECT_EQ(filter["text"], one.text);
    EXPECT_EQ(filter["log"].size(), one.status == 0 ? 0U : 1U);
  }
}

TEST_F(ExplainFiltersTest, EachUpdateTypeReason) {
  Write("one", Package("one").Set("type", "1st"));
  Write("any", Package("any").Set("type", "99"));
  folder.Write("none.xml", Descriptor("none").For("1234", "10", "9").Individual());
  const struct {
    const char* id;
    Arguments arguments;
    int status;
    const char* reason;
    const char* text;
  } cases[] = {
      {"one", {}, 0, "off", "It is off because no --update-type is given."},
      {"one",
       {"--update-type", "2", "--update-type", "1"},
       1,
       "requested",
       "\"type\" \"1st\" reads as 1 and meets the request for 2, 1."},
      {"one",
       {"--update-type", "2"},
       2,
       "notRequested",
       "\"type\" \"1st\" reads as 1; asked for is 2."},
      {"any",
       {"--update-type", "2"},
       1,
       "requested",
       "\"type\" \"99\" reads as 99 and meets the request for 2."},
      {"none", {"--update-type", "2"}, 0, "noType", "\"type\" is missing or empty."},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.text);
    const Json filter = ExplainFilter(one.id, "updateType", one.arguments);
    EXPECT_EQ(filter["status"], one.status);
    EXPECT_EQ(filter["reason"], one.reason);
    EXPECT_EQ(filter["text"], one.text);
  }
}

TEST_F(ExplainFiltersTest, SwitchedOffFiltersSayByWhichOption) {
  WritePackage("a");
  const struct {
    const char* filter;
    const char* option;
  } switches[] = {{"kovu", "--no-kovu-filter"},
                  {"sep", "--no-sep-filter"},
                  {"payloadExist", "--no-payload-exist-filter"},
                  {"supersede", "--no-supersede-filter"}};
  for (const auto& one : switches) {
    const Json filter = ExplainFilter("a", one.filter, {one.option});
    EXPECT_EQ(filter["reason"], "off");
    EXPECT_EQ(filter["runs"], false);
    EXPECT_EQ(filter["status"], 0);
    EXPECT_EQ(filter["text"], std::string("It is switched off by ") + one.option + ".");
    EXPECT_EQ(filter["log"], Json::array());
  }
}

TEST_F(ExplainFiltersTest, KovuNamesThePackInUse) {
  folder.Write("p.xml", Pack({PackItself("p.xml"), Package("a").Set("xmlFilename", "a.xml")}));
  const Json filter = ExplainFilter("a", "kovu");
  EXPECT_EQ(filter["status"], 1);
  EXPECT_EQ(filter["reason"], "inChosenPack");
  EXPECT_EQ(filter["file"], PathOf("p.xml"));
}

TEST_F(ExplainFiltersTest, KovuSaysWhichPacksListThePackageAndWhyTheyAreNotInUse) {
  WritePackage("a");
  WritePackage("b");
  const auto member = [] { return Package("a").Set("xmlFilename", "a.xml"); };
  folder.Write("p.xml",
               Pack({PackItself("p.xml").Set("applicableMachineTypes", {"Lap [5678]"}), member()}));
  const Json filter = ExplainFilter("a", "kovu");
  EXPECT_EQ(filter["status"], 2);
  EXPECT_EQ(filter["reason"], "notInChosenPack");
  EXPECT_EQ(filter["details"],
            Json::array({PathOf("p.xml") +
                         " lists it; its \"applicableMachineTypes\" do not hold the machine type "
                         "1234: \"Lap [5678]\"."}));
  EXPECT_EQ(ExplainFilter("b", "kovu")["details"], Json::array({"No pack lists it."}));

  folder.Write("p.xml", Pack({member(), Package("c").Set("xmlFilename", "c.xml")}));
  EXPECT_THAT(ExplainFilter("a", "kovu")["details"][0].get<std::string>(),
              HasSubstr("lists it first, where the pack itself is expected, so that it is lost"));
}

TEST_F(ExplainFiltersTest, PackWithoutANameIsSaidToBeOne) {
  folder.Write(".xml", Pack({PackItself(".xml"), Package("a").Set("xmlFilename", "a.xml")}));
  const Json filter = ExplainFilter("a", "kovu");
  EXPECT_EQ(filter["status"], 2);
  EXPECT_EQ(filter["reason"], "packWithoutName");
}

TEST_F(ExplainFiltersTest, DuplicatesNameTheFilesThatWereDropped) {
  WritePackage("a");
  const std::string pack =
      Pack({PackItself("p.xml"), Package("a").Set("xmlFilename", "a.xml").Set("Version", "2"),
            Package("a").Set("xmlFilename", "z.xml").Set("Version", "3")});
  folder.Write("p.xml", pack);
  const std::string line = LineOf(pack, "\"identificationCode\"", 2);
  const Json package = ExplainPackage("a");
  const Json filter = FilterOf(package, "duplicate");
  EXPECT_EQ(filter["status"], 1);
  EXPECT_EQ(filter["reason"], "first");
  EXPECT_EQ(filter["text"],
            PathOf("p.xml") + ":" + line + " is the first and was kept; 2 repeats were dropped.");
  EXPECT_EQ(filter["log"],
            Json::array({"a is filtered in FilterDuplicate", "a is filtered in FilterDuplicate"}));
  const Json repeats = {
      {{"packageXmlFile", PathOf("z.xml")}, {"kovuXmlFile", PathOf("p.xml")}, {"version", "3"}},
      {{"packageXmlFile", PathOf("a.xml")}, {"kovuXmlFile", ""}, {"version", ""}}};
  EXPECT_EQ(package["repeats"], repeats);
  WritePackage("b");
  EXPECT_EQ(ExplainFilter("b", "duplicate")["reason"], "only");
}

TEST_F(ExplainFiltersTest, PropertiesOfAnotherFileAreSaidToBeSo) {
  WritePackage("a");
  folder.Write("p.xml",
               Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"}),
                     WithLists("a", {"5678"}, {"10"}, {"9"}).Set("xmlFilename", "a.xml")}));
  const Json package = ExplainPackage("a");
  EXPECT_EQ(package["source"]["file"], PathOf("p.xml"));
  EXPECT_EQ(package["source"]["isOwn"], false);
  EXPECT_THAT(
      package["source"]["text"].get<std::string>(),
      HasSubstr("not in its own descriptor: a package of the same code is found there first"));
  const Json platform = FilterOf(package, "platform");
  EXPECT_EQ(platform["status"], 2) << "the individual descriptor alone would match";
  EXPECT_EQ(platform["file"], PathOf("p.xml"));
  EXPECT_THAT(FilterOf(package, "supersede")["details"],
              Contains("Its driver files and its version are read from " + PathOf("a.xml") + "."));
}

TEST_F(ExplainFiltersTest, PropertiesOfAPackItselfAreSaidToBeSo) {
  WritePackage("pack");  // the code of the pack's own instance
  folder.Write("p.xml", Pack({PackItself("p.xml"), Package("b").Set("xmlFilename", "b.xml")}));
  const Json package = ExplainPackage("pack");
  EXPECT_THAT(package["source"]["text"].get<std::string>(),
              HasSubstr("the pack itself has the same code"));
  EXPECT_EQ(FilterOf(package, "platform")["reason"], "noMachineTypes");
}

TEST_F(ExplainFiltersTest, OwnPropertiesAreSaidToBeSo) {
  WritePackage("a");
  const Json source = ExplainPackage("a")["source"];
  EXPECT_EQ(source["file"], PathOf("a.xml"));
  EXPECT_EQ(source["isOwn"], true);
}

TEST_F(ExplainFiltersTest, PackageWithoutACodeHasNoProperties) {
  folder.Write("a.xml", Descriptor().For("1234", "10", "9").Individual());
  WritePackage("b");
  const Json package = ExplainPackage("", {"--update-type", "1"});
  EXPECT_EQ(package["source"]["file"], "");
  const Json lookUpFails = {"Package IdentificationCode is empty",
                            "ERROR: Couldn't find correct SupXmlProperties"};
  for (const char* name : {"platform", "updateType"}) {
    const Json filter = FilterOf(package, name);
    EXPECT_EQ(filter["reason"], "noProperties");
    EXPECT_EQ(filter["status"], 0);
    EXPECT_EQ(filter["log"], lookUpFails);
  }
  EXPECT_EQ(FilterOf(package, "supersede")["log"], lookUpFails);
  EXPECT_EQ(FilterOf(package, "payloadExist")["reason"], "noProperties");
  EXPECT_EQ(FilterOf(package, "payloadExist")["log"].size(), 3U);
  EXPECT_EQ(package["answer"], "refused");
  EXPECT_EQ(package["undecidedBy"], Json({"platform", "updateType"}));
}

TEST_F(ExplainFiltersTest, AnswerIsOfferedRefusedOrUndecided) {
  WritePackage("a");
  folder.Write("b.xml", Descriptor("b").Individual());
  const Json offered = ExplainPackage("a", {"--no-kovu-filter"});
  EXPECT_EQ(offered["answer"], "offered");
  EXPECT_EQ(offered["refusedBy"], Json::array());
  EXPECT_EQ(offered["wayOut"]["state"], "notNeeded");
  const Json refused = ExplainPackage("a");
  EXPECT_EQ(refused["answer"], "refused");
  EXPECT_EQ(refused["refusedBy"], Json::array({"kovu"}));
  const Json undecided = ExplainPackage("b", {"--no-kovu-filter", "--no-payload-exist-filter"});
  EXPECT_EQ(undecided["answer"], "undecided");
  EXPECT_EQ(undecided["undecidedBy"], Json::array({"platform"}));
}

TEST_F(ExplainFiltersTest, CodesThatDifferInCaseAreToldApartAndMentioned) {
  WritePackage("abc");
  folder.Write("upper.xml", Package("ABC").Set("xmlFilename", "upper.xml").Individual());
  const Json exact = ExplainPackage("abc");
  EXPECT_EQ(exact["identificationCode"], "abc");
  EXPECT_EQ(exact["otherCase"], false);
  EXPECT_EQ(exact["otherSpellings"], Json::array({"ABC"}));

  const Json both = ExplainJson("Abc");
  ASSERT_EQ(both["packages"].size(), 2U);
  EXPECT_EQ(both["absence"], Json::array());
  for (const Json& package : both["packages"]) EXPECT_EQ(package["otherCase"], true);
  EXPECT_NE(both["packages"][0]["identificationCode"], both["packages"][1]["identificationCode"]);
}

}  // namespace
}  // namespace Vornik::Testing
