// The look at descriptors that would make a query hang or end the process.
#include <algorithm>

#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class HazardTest : public CliTest {
 protected:
  // Asserts that the query is refused, in one line that names the place, and says what to change.
  void ExpectRefused(const std::string& place, const std::vector<std::string>& says,
                     const Arguments& more = {}) {
    const Outcome outcome = Query(more);
    EXPECT_EQ(outcome.status, 65);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(LinesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, StartsWith("querypackage-cli: " + place + ": "));
    for (const std::string& part : says) EXPECT_THAT(outcome.err, HasSubstr(part));
  }
};

// Three driver files, two classifications.
Descriptor Unclassified(const std::string& code) {
  return Package(code)
      .Set("driverFiles", {"a.sys-#1", "b.sys-#1", "c.sys-#1"})
      .Set("driverFilesClassification", {"x", "y"});
}

std::string PackWithMisfit() {
  return "<CIM><!-- ORXQDL_SystemUpdateProduct -->\n"
         "<INSTANCE CLASSNAME=\"Pack\"/>\n"
         "  <INSTANCE NAME=\"x\" CLASSNAME=\"Package\"/>\n"
         "</CIM>\n";
}

const std::string classifications = "\"driverFilesClassification\"";
const std::vector<std::string> misfitTexts{"CLASSNAME", "put CLASSNAME first", "--trust"};

TEST_F(HazardTest, InstanceThatDoesNotBeginWithClassnameIsRefusedWithItsLine) {
  WritePackage("a");
  folder.Write("pack.xml", PackWithMisfit());
  ExpectRefused(PathOf("pack.xml") + ":3", misfitTexts);
  ExpectRefused(PathOf("pack.xml") + ":3", misfitTexts, {"--format", "csv"});
}

TEST_F(HazardTest, PackForAnotherMachineIsLoadedTooAndRefused) {
  std::string pack = Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"})});
  pack.insert(pack.find("</CIM>"), "<INSTANCE ID='1'/>");
  folder.Write("p.xml", pack);
  ExpectRefused(PathOf("p.xml") + ":" + LineOf(pack, "<INSTANCE", 2), misfitTexts);
}

TEST_F(HazardTest, FirstOfTwoMisfitsInOneFileIsNamed) {
  folder.Write("p.xml",
               "<CIM><!-- ORXQDL_SystemUpdateProduct -->\n\n"
               "<INSTANCE A='1'/>\n<INSTANCE B='1'/>\n</CIM>\n");
  ExpectRefused(PathOf("p.xml") + ":3", misfitTexts);
}

TEST_F(HazardTest, MisfitsThatNoQueryReachesAreNone) {
  WritePackage("a");
  std::string individual = Package("b").Individual();
  individual.replace(individual.find("CLASSNAME"), 9, "NAME");
  folder.Write("b.xml", individual);                  // instances of individuals are not looked at
  folder.Write("p.XML", PackWithMisfit());            // not a name that is read
  folder.Write("notes.xml", "<INSTANCE NAME='x'/>");  // neither kind
  std::string broken = PackWithMisfit();
  broken.resize(broken.find("</CIM>"));
  folder.Write("broken.xml", broken);  // not loaded
  folder.Write("bare.xml", "<CIM><!-- ORXQDL_SystemUpdateProduct --><INSTANCE/></CIM>");
  const Outcome outcome = Query({"--log-level", "0"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
}

TEST_F(HazardTest, IndividualWithTooFewClassificationsIsRefused) {
  WritePackage("a");
  const std::string text = Unclassified("orx_b").Individual();
  folder.Write("b.xml", text);
  ExpectRefused(PathOf("b.xml") + ":" + LineOf(text, classifications, 1),
                {"\"orx_b\"", "3 \"driverFiles\"", "2 \"driverFilesClassification\"", "--trust"});
}

TEST_F(HazardTest, LineIsFoundWherePropertiesStandOutsideInstances) {
  std::string text = Unclassified("orx_b").Individual();
  const std::string start = "<INSTANCE CLASSNAME=\"Package\">";
  text.replace(text.find(start), start.size(), "<PLAIN>");
  text.replace(text.find("</INSTANCE>"), 11, "</PLAIN>");
  folder.Write("b.xml", text);
  ExpectRefused(PathOf("b.xml") + ":" + LineOf(text, classifications, 1), {"\"orx_b\""});
}

TEST_F(HazardTest, LineIsThatOfTheLastClassifications) {
  const std::string text =
      Unclassified("orx_b").Set("DriverFilesClassification", {"one"}).Individual();
  folder.Write("b.xml", text);
  ExpectRefused(PathOf("b.xml") + ":" + LineOf(text, "\"DriverFilesClassification\"", 1),
                {"\"orx_b\"", "1 \"driverFilesClassification\""});
}

TEST_F(HazardTest, MemberOfTheChosenPackWithTooFewClassificationsIsRefused) {
  const std::string pack = Pack({Package("a").Set("xmlFilename", "a.xml"), PackItself("p.xml"),
                                 Package("b").Set("xmlFilename", "b.xml"),
                                 Unclassified("orx_c").Set("xmlFilename", "c.xml"),
                                 Unclassified("orx_d").Set("xmlFilename", "d.xml")});
  folder.Write("p.xml", pack);
  ExpectRefused(PathOf("p.xml") + ":" + LineOf(pack, classifications, 1), {"\"orx_c\"", "3", "2"});
}

TEST_F(HazardTest, MembersOfThePackComeBeforeIndividuals) {
  folder.Write("a.xml", Unclassified("orx_a").Individual());
  const std::string pack =
      Pack({PackItself("z.xml"), Unclassified("orx_z").Set("xmlFilename", "y.xml")});
  folder.Write("z.xml", pack);
  ExpectRefused(PathOf("z.xml") + ":" + LineOf(pack, classifications, 1), {"\"orx_z\""});
}

TEST_F(HazardTest, MisfitsComeBeforeMissingClassifications) {
  folder.Write("a.xml", Unclassified("orx_a").Individual());
  folder.Write("p.xml", PackWithMisfit());
  ExpectRefused(PathOf("p.xml") + ":3", misfitTexts);
}

TEST_F(HazardTest, MissingClassificationsThatNoQueryReachesAreNone) {
  WritePackage("a");
  // The pack's own instance is never built; neither are the members of packs that are not chosen.
  folder.Write("own.xml", Pack({Unclassified("own")
                                    .Set("xmlFilename", "own.xml")
                                    .Set("Version", "9")
                                    .Set("applicableMachineTypes", {"1234"})
                                    .Set("applicableOperatingSystems", {"0"}),
                                Package("m").Set("xmlFilename", "m.xml")}));
  folder.Write("other.xml", Pack({PackItself("other.xml").Set("applicableMachineTypes", {"5678"}),
                                  Unclassified("b").Set("xmlFilename", "b.xml")}));
  folder.Write("system.xml",
               Pack({PackItself("system.xml").Set("applicableOperatingSystems", {"11"}),
                     Unclassified("c").Set("xmlFilename", "c.xml")}));
  // No classification at all, and more than enough, are both in order.
  folder.Write("d.xml", Package("d").Set("driverFiles", {"a.sys-#1", "b.sys-#1"}).Individual());
  folder.Write("e.xml", Package("e")
                            .Set("driverFiles", {"a.sys-#1"})
                            .Set("driverFilesClassification", {"x", "y"})
                            .Individual());
  const Outcome outcome = Query({"--log-level", "0", "--quiet"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  // The same folder for the machine type of the other pack.
  const Outcome other = RunCli({"query", folder.Path(), "--machine-type", "5678", "--os", "10",
                                "--arch", "9", "--log-level", "0"});
  EXPECT_EQ(other.status, 65);
  EXPECT_THAT(other.err, HasSubstr(PathOf("other.xml")));
}

TEST_F(HazardTest, PacksThatAreDisplacedHideTheirMembers) {
  // One of the two with the greatest version is chosen in any order of the listing; many others,
  // so that one of them is all but certain to be listed first.
  for (int i = 0; i < 40; ++i) {
    const bool greatest = i < 2;
    const std::string file = "pack" + std::to_string(i) + ".xml";
    Descriptor member = greatest ? Package("m") : Unclassified("m");
    folder.Write(
        file, Pack({PackItself(file, greatest ? "9" : "1"), member.Set("xmlFilename", "m.xml")}));
  }
  const Outcome outcome = Query({"--log-level", "0", "--quiet"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
}

TEST_F(HazardTest, ParametersThatFailEndTheQueryBeforeTheHazard) {
  folder.Write("p.xml", PackWithMisfit());
  folder.Write("a.xml", Unclassified("a").Individual());
  EXPECT_EQ(Query({"--include", "x", "--exclude", "x"}).status, 2);
  EXPECT_EQ(
      RunCli({"query", folder.Path(), "--machine-type", "123", "--os", "10", "--arch", "9"}).status,
      2);
}

TEST_F(HazardTest, TrustRunsTheQueryAsItIs) {
  WritePackage("a");
  const Outcome trusted = Query({"--trust"});
  EXPECT_EQ(trusted.status, 0);
  EXPECT_EQ(trusted.out, Query().out);
  EXPECT_EQ(trusted.err, "");
}

TEST_F(HazardTest, TrustSkipsTheLook) {
  folder.Write("a.xml", Unclassified("a").Individual());
#ifdef _WIN32
  constexpr int aborted = 3;  // the C library's exit status
#else
  constexpr int aborted = 6;  // the number of the signal
#endif
  EXPECT_EQ(Query({"--trust"}).status, aborted);
}

TEST_F(HazardTest, LookWritesNothingWhenAllIsWell) {
  WritePackage("a");
  folder.Write("notes.xml", "<a/>");
  folder.Write("broken.xml", "SystemUpdateElement <");
  const Outcome looked = Query({"--log-level", "1"});
  EXPECT_EQ(looked.status, 0);
  EXPECT_EQ(LinesOf(looked.err).size(), 2U) << "one record of each bad file:\n" << looked.err;
}

}  // namespace
}  // namespace Vornik::Testing
