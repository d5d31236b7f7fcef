// The subcommand as its users meet it.
#include <algorithm>

#include "cli_fixture.h"
#include "json_keys.h"

namespace Vornik::Testing {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class MatrixTest : public CliTest {
 protected:
  Outcome Matrix(const Arguments& more = {}) {
    Arguments arguments{"matrix", folder.Path()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunCli(arguments);
  }

  // Of a file with these lines below the header machine_type,os,arch,name,count.
  Outcome MatrixOf(const std::string& lines, const Arguments& more = {}) {
    other_.Write("machines.csv", "machine_type,os,arch,name,count\n" + lines);
    Arguments arguments{"--machines", other_.Path() + "/machines.csv"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Matrix(arguments);
  }

  void WritePackageFor(const std::string& code, const std::string& type, const std::string& os) {
    const std::string file = "p" + std::to_string(files_++) + ".xml";  // not each code is a name
    folder.Write(file, Package(code).For(type, os, "9").Set("xmlFilename", file).Individual());
    folder.Write("payload.exe", "x");
  }

  TempFolder other_;
  int files_ = 0;
};

// Without the Kovu filter, which refuses each individual descriptor.
const Arguments noKovu{"--no-kovu-filter"};

Arguments With(Arguments arguments, const Arguments& more) {
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

TEST_F(MatrixTest, SummaryIsBeforeTheTable) {
  WritePackageFor("a", "1234", "0");
  WritePackageFor("b", "1234", "10");
  WritePackageFor("c", "5678", "10");
  const Outcome outcome = MatrixOf("1234,10,9,,\n1234,11,9,,\n9999,1,1,lonely,7\n", noKovu);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "9 machines of 3 kinds, 3 packages\n"
            "Kinds of machines that get nothing: 1\n"
            "  9999/1/1  3 of 3 packages: refused: platform\n"
            "Packages that no machine gets: 1\n"
            "  c  9 machines: refused: platform\n"
            "\n"
            "CODE  1234/10/9          1234/11/9          9999/1/1\n"
            "a     offered            offered            refused: platform\n"
            "b     offered            refused: platform  refused: platform\n"
            "c     refused: platform  refused: platform  refused: platform\n");
}

TEST_F(MatrixTest, QuietPrintsTheTableAlone) {
  WritePackageFor("a", "1234", "10");
  EXPECT_EQ(MatrixOf("1234,10,9,,\n", With(noKovu, {"--quiet"})).out,
            "CODE  1234/10/9\n"
            "a     offered\n");
}

TEST_F(MatrixTest, CsvIsOneTableOfFiveSections) {
  WritePackageFor("a", "1234", "0");
  WritePackageFor("b", "5678", "10");
  const Outcome outcome =
      MatrixOf("1234,10,9,,2\n1234,10,9,x,\n9999,1,1,,\n", With(noKovu, {"--format", "csv"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "section,kind,machine,machine_type,os,arch,count,package,answer,refused_by,"
            "undecided_by,reason\n"
            "nothing,9999/1/1,,,,,1,,refused,platform,,\n"
            "unreachable,,,,,,4,b,refused,platform,,\n"
            "machine,1234/10/9,1234/10/9,1234,10,9,2,,,,,\n"
            "machine,1234/10/9,x,1234,10,9,1,,,,,\n"
            "machine,9999/1/1,9999/1/1,9999,1,1,1,,,,,\n"
            "cell,1234/10/9,,,,,,a,offered,,,\n"
            "cell,1234/10/9,,,,,,b,refused,platform,,\n"
            "cell,9999/1/1,,,,,,a,refused,platform,,\n"
            "cell,9999/1/1,,,,,,b,refused,platform,,\n");
  EXPECT_THAT(MatrixOf("1234,10,9,,\n", With(noKovu, {"--format", "csv"})).out,
              HasSubstr("\neverywhere,,,,,,1,a,,,,\n"));
}

TEST_F(MatrixTest, TextInCsvIsQuotedAndNoFormula) {
  for (const char* code : {"=1+1", "+a", "-a", "@a", "a=b", "a,\"b"}) {
    WritePackageFor(code, "1234", "10");
  }
  const Outcome outcome =
      MatrixOf("1234,10,9,=cmd,\n1234,10,9,\"@x,\"\"y\",\n", With(noKovu, {"--format", "csv"}));
  const std::vector<std::string> lines = LinesOf(outcome.out);
  for (const char* line :
       {"cell,1234/10/9,,,,,,'=1+1,offered,,,", "cell,1234/10/9,,,,,,'+a,offered,,,",
        "cell,1234/10/9,,,,,,'-a,offered,,,", "cell,1234/10/9,,,,,,'@a,offered,,,",
        "cell,1234/10/9,,,,,,a=b,offered,,,", "cell,1234/10/9,,,,,,\"a,\"\"b\",offered,,,",
        "machine,1234/10/9,'=cmd,1234,10,9,1,,,,,",
        "machine,1234/10/9,\"'@x,\"\"y\",1234,10,9,1,,,,,"}) {
    EXPECT_THAT(lines, Contains(line));
  }
}

TEST_F(MatrixTest, JsonLinesAreTheJsonDocument) {
  WritePackageFor("a", "1234", "10");
  folder.Write("own.xml", Package("").Individual());
  const std::string machines = "1234,10,9,,\n1234,11,9,x,2\n";
  const Json document = Json::parse(MatrixOf(machines, {"--format", "json"}).out);
  EXPECT_THAT(KeysOf(document),
              ElementsAre("schemaVersion", "query", "summary", "machines", "kinds"));
  EXPECT_EQ(document["query"]["folder"], folder.Path());
  EXPECT_FALSE(document["query"].contains("machineType"));
  EXPECT_EQ(document["machines"][1], Json::parse(R"({"name":"x","count":2,"kind":"1234/11/9"})"));
  EXPECT_EQ(document["kinds"][0]["packages"][1],
            Json::parse(R"({"identificationCode":"a","answer":"refused","refusedBy":["kovu"],)"
                        R"("undecidedBy":[]})"));

  Json joined{{"schemaVersion", 1}};
  for (const std::string& line : LinesOf(MatrixOf(machines, {"--format", "jsonl"}).out)) {
    Json object = Json::parse(line);
    const std::string section = object["section"];
    object.erase("section");
    if (section == "summary") {
      joined["query"] = object["query"];
      joined["summary"] = object["summary"];
    } else {
      joined[section + 's'].push_back(object);
    }
  }
  EXPECT_EQ(joined, document);
}

TEST_F(MatrixTest, MemberOfAnUnusedPackIsAbsent) {
  folder.Write("k.xml",
               Pack({PackItself("k.xml").Set("applicableOperatingSystems", {"10"}),
                     Package("m").For("1234", "0", "9").Set("xmlFilename", "payload.exe")}));
  folder.Write("payload.exe", "x");
  const Outcome outcome = MatrixOf("1234,10,9,,\n1234,11,9,,\n", {"--format", "json"});
  const Json document = Json::parse(outcome.out);
  EXPECT_EQ(document["kinds"][0]["packages"][0]["answer"], "offered");
  EXPECT_EQ(document["kinds"][1]["packages"][0]["answer"], "absent");
  EXPECT_EQ(document["kinds"][1]["returnCode"], 4);
  EXPECT_THAT(MatrixOf("1234,11,9,,\n").out,
              HasSubstr("1234/11/9  the folder has no package for it"));
}

TEST_F(MatrixTest, MachinesOfTheFolderAreTheDefault) {
  WritePackageFor("a", "1234", "0");
  WritePackageFor("b", "1234", "10");
  const Outcome outcome = Matrix(With(noKovu, {"--quiet"}));
  EXPECT_EQ(outcome.out,
            "CODE  1234/10/9  1234/other/9\n"
            "a     offered    offered\n"
            "b     offered    refused: platform\n");
}

TEST_F(MatrixTest, NarrowsToPackagesAndMachines) {
  WritePackageFor("a1", "1234", "10");
  WritePackageFor("a2", "5678", "10");
  WritePackageFor("b", "1234", "10");
  const std::string machines = "1234,10,9,office,\n5678,10,9,,\n1234,11,9,,\n";
  EXPECT_EQ(MatrixOf(machines, With(noKovu, {"--package", "a*", "--machine", "5678/*", "--machine",
                                             "off?ce", "--quiet"}))
                .out,
            "CODE  1234/10/9          5678/10/9\n"
            "a1    offered            refused: platform\n"
            "a2    refused: platform  offered\n");
  const Outcome noPackage = MatrixOf(machines, {"--package", "z*"});
  EXPECT_EQ(noPackage.status, 64);
  EXPECT_THAT(noPackage.err, HasSubstr("no package of the folder matches --package"));
  const Outcome noMachine = MatrixOf(machines, {"--machine", "z*"});
  EXPECT_EQ(noMachine.status, 64);
  EXPECT_THAT(noMachine.err, HasSubstr("no machine matches --machine"));
}

TEST_F(MatrixTest, OnlyOfferedOmitsTheOtherCells) {
  WritePackageFor("a", "1234", "10");
  WritePackageFor("b", "9999", "10");
  const std::string machines = "1234,10,9,,\n1234,11,9,,\n";
  const Arguments only = With(noKovu, {"--only-offered", "--quiet"});
  EXPECT_EQ(MatrixOf(machines, only).out,
            "CODE  1234/10/9  1234/11/9\n"
            "a     offered    -\n");
  const std::string csv = MatrixOf(machines, With(only, {"--format", "csv"})).out;
  EXPECT_THAT(csv, EndsWith("\ncell,1234/10/9,,,,,,a,offered,,,\n"));
  EXPECT_THAT(csv, HasSubstr("\nunreachable,,,,,,2,b,refused,platform,,\n"));
}

TEST_F(MatrixTest, ReasonsAreTheWordsOfExplain) {
  WritePackageFor("a", "1234", "10");
  WritePackageFor("b", "5678", "10");
  folder.Write("c.xml", Package("c").Set("supersede", {"a"}).Set("orderedOSList", {}).Individual());
  folder.Write("k.xml", Pack({PackItself("k.xml").Set("applicableOperatingSystems", {"11"}),
                              Package("m").Set("xmlFilename", "m.xml")}));
  const Outcome csv = MatrixOf("1234,10,9,,\n", {"--with-reasons", "--format", "csv"});
  const std::vector<std::string> lines = LinesOf(csv.out);
  for (const char* line :
       {"cell,1234/10/9,,,,,,a,refused,kovu supersede,,\"kovu notInChosenPack, supersede c\"",
        "cell,1234/10/9,,,,,,b,refused,platform kovu,,"
        "\"platform noEntryMatches, kovu notInChosenPack\"",
        "cell,1234/10/9,,,,,,c,refused,kovu payloadExist,platform,"
        "\"kovu notInChosenPack, payloadExist noXmlFilename, platform noOperatingSystems\"",
        "cell,1234/10/9,,,,,,m,absent,,,packNotChosen"}) {
    EXPECT_THAT(lines, Contains(line));
  }
  const Outcome table = MatrixOf("1234,10,9,,\n", With(noKovu, {"--with-reasons", "--quiet"}));
  EXPECT_THAT(table.out, HasSubstr("\nb     refused: platform noEntryMatches\n"));
  const Json document =
      Json::parse(MatrixOf("1234,10,9,,\n", {"--with-reasons", "--format", "json"}).out);
  EXPECT_EQ(document["kinds"][0]["packages"][3]["reason"], "packNotChosen");
}

TEST_F(MatrixTest, FailsOnUnreachablePackages) {
  WritePackageFor("a", "1234", "10");
  const Arguments fail = With(noKovu, {"--fail-on", "unreachable"});
  EXPECT_EQ(MatrixOf("1234,10,9,,\n", fail).status, 0);
  const Outcome outcome = MatrixOf("1234,11,9,,\n", fail);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "querypackage-cli: no machine gets 1 of 1 package: see the summary\n");
  EXPECT_EQ(MatrixOf("1234,11,9,,\n", noKovu).status, 0);
}

TEST_F(MatrixTest, WrongLinesEndItUnlessTheyAreSkipped) {
  WritePackageFor("a", "1234", "10");
  const std::string lines = "1234,10,9,,\n12,10,9,,\n1234,10,0,,\n";
  const Outcome refused = MatrixOf(lines);
  EXPECT_EQ(refused.status, 64);
  EXPECT_EQ(refused.out, "");
  EXPECT_THAT(
      LinesOf(refused.err),
      ElementsAre(EndsWith("machines.csv: line 3: the machine type \"12\" is not four digits"),
                  HasSubstr("machines.csv: line 4: arch \"0\""),
                  HasSubstr("(2 lines are wrong: ")));
  const Outcome skipped = MatrixOf(lines, {"--skip-bad"});
  EXPECT_EQ(skipped.status, 0);
  EXPECT_THAT(skipped.out, HasSubstr("1 machine of 1 kind, "));
  EXPECT_EQ(LinesOf(skipped.err).size(), 2U);
  EXPECT_EQ(MatrixOf(lines, {"--skip-bad", "--quiet"}).err, "");
  EXPECT_EQ(MatrixOf("12,1,1,,\n", {"--skip-bad"}).status, 64);
}

TEST_F(MatrixTest, ManyWrongLinesAreCounted) {
  WritePackageFor("a", "1234", "10");
  std::string lines;
  for (int i = 0; i < 30; ++i) lines += "x,1,1,,\n";
  const std::vector<std::string> errors = LinesOf(MatrixOf(lines).err);
  ASSERT_EQ(errors.size(), 22U);
  EXPECT_THAT(errors[20], HasSubstr("10 more lines are wrong"));
}

TEST_F(MatrixTest, HazardEndsIt) {
  WritePackageFor("a", "1234", "10");
  const Descriptor bad = Package("bad")
                             .Set("xmlFilename", "bad.xml")
                             .Set("driverFiles", {"x-#1", "y-#1"})
                             .Set("driverFilesClassification", {"one"});
  folder.Write("k.xml", Pack({PackItself("k.xml").Set("applicableOperatingSystems", {"10"}), bad}));
  // Only a machine whose pack it is reaches it.
  EXPECT_EQ(MatrixOf("1234,11,9,,\n5678,10,9,,\n").status, 0);
  const Outcome reached = MatrixOf("1234,11,9,,\n1234,10,9,,\n");
  EXPECT_EQ(reached.status, 65);
  EXPECT_EQ(reached.out, "");
  EXPECT_THAT(reached.err, AllOf(HasSubstr("k.xml:"), HasSubstr("\"bad\"")));
  folder.Write("i.xml", bad.Individual());
  EXPECT_EQ(MatrixOf("1234,11,9,,\n").status, 65);
}

TEST_F(MatrixTest, WhatCannotBeUsedIsNamed) {
  const Outcome empty = MatrixOf("1234,10,9,,\n");
  EXPECT_EQ(empty.status, 4);
  EXPECT_THAT(empty.err, HasSubstr("the folder has no package"));
  EXPECT_EQ(Matrix().status, 4);
  WritePackageFor("a", "1234", "10");
  const Outcome noFile = Matrix({"--machines", other_.Path() + "/none.csv"});
  EXPECT_EQ(noFile.status, 64);
  EXPECT_THAT(noFile.err, HasSubstr("the file cannot be read"));
  EXPECT_EQ(Matrix({"--machines", other_.Path()}).status, 64);
  EXPECT_EQ(MatrixOf("").status, 64);
  EXPECT_EQ(Matrix({"--skip-bad"}).status, 64);
  EXPECT_EQ(Matrix({"--debug-records"}).status, 64);
  EXPECT_EQ(Matrix({"--include", "a", "--exclude", "a"}).status, 2);
  EXPECT_EQ(RunCli({"matrix", folder.Path() + "/none"}).status, 2);
  // The program has an empty standard input.
  EXPECT_THAT(Matrix({"--machines", "-"}).err,
              HasSubstr("\"-\" cannot be used (it has no header)"));
}

}  // namespace
}  // namespace Vornik::Testing
