// The listing of a folder.
#include "cli_fixture.h"
#include "json_keys.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ListTest : public CliTest {
 protected:
  Outcome List(const Arguments& more = {}) {
    Arguments arguments{"list", folder.Path()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunCli(arguments);
  }

  Json ListJson(int status = 0) {
    const Outcome outcome = List({"--format", "json"});
    EXPECT_EQ(outcome.status, status) << outcome.err;
    return Json::parse(outcome.out);
  }

  // A pack for machine type 1234 under any system, with one member, and an individual package.
  void WriteSmallFolder() {
    folder.Write("p.xml", Pack({PackItself("p.xml", "2.0"),
                                Package("m").Set("xmlFilename", "m.xml").Set("Version", "1.5")}));
    folder.Write("a.xml", Descriptor("a").For("1234", "0", "9").Set("type", "3").Individual());
  }
};

TEST_F(ListTest, TablesHaveMachinesPacksAndPackages) {
  WriteSmallFolder();
  const Outcome outcome = List();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "MACHINE TYPE  OS     ARCH  PACKAGES  PACK\n"
            "1234          10     9     2         p.xml\n"
            "1234          other  9     1         p.xml\n"
            "\n"
            "PACK   VERSION  MEMBERS  MACHINE TYPES  OS\n"
            "p.xml  2.0      1        1234           any\n"
            "\n"
            "CODE  VERSION  TYPE  FILE\n"
            "a     -        3     a.xml\n"
            "m     1.5      1     p.xml\n"
            "\n"
            "\"other\" is every number that the folder does not name for the machine type.\n"
            "2 machines, 1 pack, 2 package descriptors with 2 codes in 2 files whose names end in "
            "\".xml\".\n"
            "To query the first machine: querypackage-cli query FOLDER --machine-type 1234 --os 10 "
            "--arch 9\n");
}

TEST_F(ListTest, ShowChoosesATable) {
  WriteSmallFolder();
  EXPECT_THAT(
      LinesOf(List({"--show", "machines"}).out),
      ElementsAre(StartsWith("MACHINE TYPE"), StartsWith("1234"), StartsWith("1234"), "",
                  StartsWith("\"other\" is"), StartsWith("2 machines, "), StartsWith("To query")));
  EXPECT_THAT(LinesOf(List({"--show", "packs"}).out),
              ElementsAre(StartsWith("PACK "), StartsWith("p.xml"), "", StartsWith("2 machines, "),
                          StartsWith("To query")));
  EXPECT_THAT(LinesOf(List({"--show", "packages"}).out),
              ElementsAre(StartsWith("CODE "), StartsWith("a "), StartsWith("m "), "",
                          StartsWith("2 machines, "), StartsWith("To query")));
}

TEST_F(ListTest, CsvIsOneTable) {
  WriteSmallFolder();
  folder.Write("q.xml", Descriptor("q, \"q\"").Individual());
  EXPECT_EQ(List({"--format", "csv"}).out,
            "identificationCode,version,type,file\n"
            "a,,3,a.xml\n"
            "m,1.5,1,p.xml\n"
            "\"q, \"\"q\"\"\",,,q.xml\n");
  EXPECT_EQ(
      List({"--format", "csv", "--show", "machines"}).out,
      "machineType,osValue,arcValue,packages,pack\n1234,10,9,2,p.xml\n1234,other,9,1,p.xml\n");
  EXPECT_EQ(List({"--format", "csv", "--show", "packs"}).out,
            "file,version,members,machineTypes,operatingSystems\np.xml,2.0,1,1234,any\n");
}

TEST_F(ListTest, DocumentHasEverything) {
  WriteSmallFolder();
  folder.Write("notes.xml", "<a/>");
  folder.Write("b.xml", Descriptor("b").For("12a4", "10", "9").Individual());
  const Json document = ListJson();
  EXPECT_EQ(
      document.dump(),
      (Json{{"schemaVersion", 1},
            {"folder", folder.Path()},
            {"files", 4},
            {"filesNotRead", {"notes.xml"}},
            {"complete", true},
            {"machines",
             {{{"machineType", "1234"},
               {"osValue", 10},
               {"osIsNamed", true},
               {"arcValue", 9},
               {"arcIsNamed", true},
               {"packages", 2},
               {"pack", "p.xml"}},
              {{"machineType", "1234"},
               {"osValue", 1},
               {"osIsNamed", false},
               {"arcValue", 9},
               {"arcIsNamed", true},
               {"packages", 1},
               {"pack", "p.xml"}}}},
            {"machinesComplete", true},
            {"invalidMachines",
             Json::array({{{"machineType", "12a4"}, {"osValue", 10}, {"arcValue", 9}}})},
            {"packs", Json::array({{{"file", "p.xml"},
                                    {"version", "2.0"},
                                    {"machineTypes", {"1234"}},
                                    {"operatingSystems", Json::array({0})},
                                    {"hasOwnInstance", true},
                                    {"members", {"m"}}}})},
            {"packages",
             {{{"identificationCode", "a"}, {"version", ""}, {"type", "3"}, {"file", "a.xml"}},
              {{"identificationCode", "b"}, {"version", ""}, {"type", ""}, {"file", "b.xml"}},
              {{"identificationCode", "m"}, {"version", "1.5"}, {"type", "1"}, {"file", "p.xml"}}}},
            {"hazards", Json::array()}})
          .dump());
}

TEST_F(ListTest, FolderThatNoQueryCanReadIsListedAndSaysSo) {
  WritePackage("a");
  folder.Write(
      "hangs.xml",
      "<CIM><!-- ORXQDL_SystemUpdateProduct -->\n<INSTANCE NAME='x' CLASSNAME='c'/></CIM>");
  folder.Write("aborts.xml", Package("bad")
                                 .Set("driverFiles", {"x-#1", "y-#1"})
                                 .Set("driverFilesClassification", {"one"})
                                 .Individual());
  folder.Write("pack.xml", Pack({PackItself("pack.xml").Set("applicableMachineTypes", {"5678"}),
                                 Package("worse")
                                     .Set("xmlFilename", "w.xml")
                                     .Set("driverFiles", {"x-#1", "y-#1"})
                                     .Set("driverFilesClassification", {"one"})}));
  const Outcome outcome = List();
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("hangs.xml:2: the first attribute of this INSTANCE is not "
                                     "CLASSNAME, which would keep the query from ever returning; "
                                     "put CLASSNAME first.\n"));
  EXPECT_THAT(outcome.out, HasSubstr(": package \"bad\" has 2 \"driverFiles\" but only 1 "));
  EXPECT_THAT(outcome.out, HasSubstr(": package \"worse\" has 2 \"driverFiles\" but only 1 "));
  EXPECT_THAT(outcome.out, Not(HasSubstr("--trust")));
  const Json hazards = ListJson()["hazards"];
  ASSERT_EQ(hazards.size(), 3U);
  EXPECT_EQ(hazards[1]["file"], PathOf("hangs.xml"));
  EXPECT_EQ(hazards[1]["line"], 2);
}

TEST_F(ListTest, EachDescriptorOfACodeIsListed) {
  WriteSmallFolder();
  folder.Write("m.xml", Package("m").Set("Version", "1.6").Individual());
  const Outcome outcome = List();
  EXPECT_THAT(outcome.out, HasSubstr("\nm     1.6      1     m.xml\nm     1.5      1     p.xml\n"));
  EXPECT_THAT(outcome.out, HasSubstr(" 3 package descriptors with 2 codes in 3 files "));
}

TEST_F(ListTest, PackWithoutItsOwnInstanceIsNoted) {
  folder.Write("p.xml", Pack({Package("m").Set("xmlFilename", "m.xml"),
                              Package("n").Set("xmlFilename", "n.xml")}));
  EXPECT_THAT(List().out, HasSubstr("p.xml has no instance of its own: its first member is taken "
                                    "for the pack.\n"));
  EXPECT_EQ(ListJson()["packs"][0]["members"], Json({"n"}));
  EXPECT_EQ(ListJson()["packs"][0]["hasOwnInstance"], false);
}

TEST_F(ListTest, MachineTypesThatNoQueryCanHaveAreNoted) {
  folder.Write("a.xml", Descriptor("a").For("12a4", "10", "9").Individual());
  EXPECT_THAT(List().out, HasSubstr("No query can have these machine types, which are not four "
                                    "digits: \"12a4\".\n0 machines, "));
}

TEST_F(ListTest, FilesThatContributeNothingAreNamed) {
  WritePackage("a");
  folder.Write("notes.xml", "<a/>");
  EXPECT_THAT(List().out, HasSubstr("1 file contributes no package: \"notes.xml\". "
                                    "\"querypackage-cli lint\" says why.\n"));
  folder.Write("broken.xml", "<");
  EXPECT_THAT(List().out, HasSubstr("2 files contribute no package: "));
}

TEST_F(ListTest, TextsOfDescriptorsDoNotSteerTheTerminal) {
  folder.Write("a.xml", Descriptor("a\xC2\x9B"
                                   "b")
                            .For("x\xC2\x9By", "1", "1")
                            .Individual());
  const Outcome outcome = List();
  EXPECT_THAT(outcome.out, HasSubstr("a\\xC2\\x9Bb"));
  EXPECT_THAT(outcome.out, HasSubstr("\"x\\xC2\\x9By\""));
  EXPECT_THAT(outcome.out, Not(HasSubstr("\xC2\x9B")));
}

TEST_F(ListTest, StatusSaysWhatTheFolderIs) {
  const Outcome empty = List();
  EXPECT_EQ(empty.status, 4);
  EXPECT_EQ(empty.out,
            "0 machines, 0 packs, 0 package descriptors with 0 codes in 0 files whose names end in "
            "\".xml\".\n");
  EXPECT_THAT(empty.err, HasSubstr("the folder has no file whose name ends in \".xml\""));

  folder.Write("notes.xml", "<a/>");
  const Outcome other = List({"--format", "json"});
  EXPECT_EQ(other.status, 4);
  EXPECT_THAT(other.err, HasSubstr("no file of the folder is a package descriptor"));
  EXPECT_EQ(Json::parse(other.out)["filesNotRead"], Json({"notes.xml"}));

  const Outcome none = RunCli({"list", folder.Path() + "/notes.xml"});
  EXPECT_EQ(none.status, 2);
  EXPECT_EQ(none.out, "");
  EXPECT_THAT(none.err, HasSubstr("notes.xml\" is no folder"));

  EXPECT_EQ(RunCli({"list"}).status, 64);
  EXPECT_EQ(List({"--format", "sarif"}).status, 64);
  EXPECT_EQ(List({"--show", "everything"}).status, 64);
}

TEST_F(ListTest, SampleRepositoryNamesItsMachines) {
  const Outcome outcome =
      RunCli({"list", ProjectFile("examples/repository"), "--format", "csv", "--show", "machines"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("\n1234,10,9,23,pack_desktop_1234.xml\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\n5678,11,9,"));
}

}  // namespace
}  // namespace Vornik::Testing
