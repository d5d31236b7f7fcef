// Findings about one fault are one finding, and say what is so.
#include <algorithm>

#include "lint/lint_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

class LintStatementTest : public LintTest {
 protected:
  Json Errors() {
    Json errors = Json::array();
    const Json document = LintJson();
    for (const Json& finding : document["findings"]) {
      if (finding["severity"] == "error") errors.push_back(finding);
    }
    return errors;
  }

  // The codes of the records of a query for the fixture's machine.
  std::vector<std::string> QueriedCodes() { return CodesOf(QueryJson()); }
};

TEST_F(LintStatementTest, OwnInstanceInAnotherCaseIsOneError) {
  WriteFiles(SoundPackage("m"));
  const std::string own = PutValue(OwnInstance("Pk.xml"), "xmlFilename", "pk.xml");
  folder.Write("Pk.xml", PackText({own, SoundInstance("m")}));
  Json errors = Errors();
  ASSERT_EQ(errors.size(), 1U) << errors;
  EXPECT_EQ(errors[0]["id"], "pack-own-missing");
  EXPECT_EQ(
      errors[0]["text"],
      "No INSTANCE has the \"xmlFilename\" \"Pk.xml\" (this one has \"pk.xml\", which differs "
      "in case), so this one, \"code-of-Pk.xml\", is taken for the pack, because it is the "
      "first.");

  folder.Write("Pk.xml", PackText({SoundInstance("m"), own}));
  errors = Errors();
  ASSERT_EQ(errors.size(), 1U) << errors;
  EXPECT_THAT(errors[0]["text"].get<std::string>(),
              EndsWith("so this one becomes a package, and the first one, \"m\", is taken for the "
                       "pack and lost."));
}

TEST_F(LintStatementTest, MisfitOwnInstanceHasThePacksClass) {
  const std::string own =
      Replace(OwnInstance("p.xml"), "<INSTANCE CLASSNAME", "<INSTANCE NAME=\"x\" CLASSNAME");
  WriteFiles(SoundPackage("m"));
  folder.Write("p.xml", "<!-- SystemUpdateElement -->\n" + PackText({own, SoundInstance("m")}));
  EXPECT_THAT(IdsIn(LintJson()), testing::ElementsAre("instance-misfit"));
}

TEST_F(LintStatementTest, FaultOfOnePackageInSeveralFilesIsOneFinding) {
  folder.Write("m.xml", SoundText("m"));
  for (const char* pack : {"p.xml", "q.xml"}) {
    folder.Write(pack,
                 PackText({PutValue(OwnInstance(pack), "Version", pack), SoundInstance("m")}));
  }
  const Json document = LintJson({"--only", "payload-missing"});
  ASSERT_EQ(document["findings"].size(), 1U);
  const Json& finding = document["findings"][0];
  EXPECT_EQ(finding["file"], "m.xml");
  EXPECT_EQ(finding["code"], "m");
  ASSERT_EQ(finding["also"].size(), 2U);
  const std::string pack = PackText({OwnInstance("p.xml"), SoundInstance("m")});
  const std::string place = ValueOf(pack, "payload");
  EXPECT_EQ(finding["also"][0]["file"], "p.xml");
  EXPECT_EQ(finding["also"][0]["line"].dump() + ":" + finding["also"][0]["column"].dump(), place);
  EXPECT_EQ(finding["also"][1]["file"], "q.xml");
  EXPECT_THAT(Lint({"--only", "payload-missing"}).out,
              HasSubstr("\n    Also in " + PathOf("p.xml") + ":" + place + ", " + PathOf("q.xml") +
                        ":" + place + "\n"));
}

// Two packages may have the same text for different reasons.
TEST_F(LintStatementTest, FaultsOfSeveralPackagesStaySeparate) {
  for (const char* code : {"a", "b"}) {
    WriteFiles(PackageFiles(code, PutValue(SoundText(code), "type", "x")));
  }
  EXPECT_EQ(LintJson({"--only", "type-not-number"})["findings"].size(), 2U);
}

TEST_F(LintStatementTest, CountsAreInTheRightNumber) {
  WriteFiles(
      PackageFiles("a", PutValues(SoundText("a"), "orderedMachineTypeList", {"1234", "1235"})));
  EXPECT_EQ(TextOf("lists-unequal"),
            "The ordered lists have 2 machine types, 1 operating system and 1 architecture, so of "
            "each only the first one counts.");
  std::string text = PutValues(SoundText("a"), "orderedMachineTypeList", {"1", "2", "3"});
  text = PutValues(PutValues(text, "orderedOSList", {"1", "2"}), "orderedOSArchitectureList",
                   {"1", "2"});
  WriteFiles(PackageFiles("a", text));
  EXPECT_EQ(TextOf("lists-unequal"),
            "The ordered lists have 3 machine types, 2 operating systems and 2 architectures, so "
            "of each only the first 2 count.");
}

TEST_F(LintStatementTest, PackageWithoutACodeIsCalledSo) {
  WriteFiles(PackageFiles("a", PutValue(SoundText("a"), "payload", "b.exe")) +
             PackageFiles("b", Drop(SoundText("b"), "identificationCode")));
  const Json findings = LintJson({"--only", "payload-shared"})["findings"];
  ASSERT_EQ(findings.size(), 2U);
  EXPECT_THAT(findings[0]["text"].get<std::string>(),
              EndsWith("is that of 2 packages: the package without a code, \"a\"."));
}

TEST_F(LintStatementTest, RepeatedCodeDependsOnTheListingWhereNoPackListsIt) {
  WriteFiles(PackageFiles("a", SoundText("a")) +
             PackageFiles("b", PutValue(SoundText("b"), "identificationCode", "a")));
  const auto texts = [this] {
    std::vector<std::string> found;
    const Json document = LintJson({"--only", "code-repeated"});
    for (const Json& finding : document["findings"]) found.push_back(finding["text"]);
    return found;
  };
  EXPECT_THAT(texts(), testing::ElementsAre(
                           "2 packages have the code \"a\"; one of the others is in b.xml, line 4, "
                           "and the folder's listing decides which is kept.",
                           "2 packages have the code \"a\"; one of the others is in a.xml, line 4, "
                           "and the folder's listing decides which is kept."));
  folder.Write("p.xml", PackText({OwnInstance("p.xml"), SoundInstance("a")}));
  EXPECT_THAT(texts(), testing::Each(testing::Not(HasSubstr("listing"))));
  EXPECT_EQ(QueriedCodes().size(), 1U);
  EXPECT_THAT(QueryJson()["records"][0]["kovuXmlFile"].get<std::string>(), EndsWith("p.xml"));
}

TEST_F(LintStatementTest, TextNamesTheTargetWhereItIsAnother) {
  WriteFiles(SoundPackage("a"));
  for (const char* target : {"windows", "posix"}) {
    EXPECT_EQ(Lint({"--target", target}).out,
              "0 errors, 0 warnings, 0 infos in 1 descriptor file" + ReadAs(target) + ".\n");
  }
}

// What follows asks a query whether the sentence is true.

TEST_F(LintStatementTest, UnreadInstanceGivesNoRecord) {
  const std::string member = Replace(SoundInstance("m"), "<INSTANCE", "<Instance");
  folder.Write("p.xml", PackText({OwnInstance("p.xml"), SoundInstance("a"),
                                  Replace(member, "</INSTANCE>", "</Instance>")}));
  EXPECT_EQ(TextOf("instance-unread"),
            "\"Instance\" is not INSTANCE, so it is not read and its package is lost.");
  EXPECT_EQ(QueriedCodes(), std::vector<std::string>{"a"});
}

TEST_F(LintStatementTest, OfMergedInstancesOnePackageIsLeft) {
  WriteFiles(PackageFiles(
      "a", Replace(SoundText("a"), "</CIM>", SoundInstance("b") + SoundInstance("c") + "</CIM>")));
  const Json findings = LintJson({"--only", "instances-merged"})["findings"];
  ASSERT_EQ(findings.size(), 2U);
  EXPECT_EQ(findings[1]["text"],
            "The file has 3 instances and is read as one package, \"c\", so this one, \"b\", is "
            "lost.");
  EXPECT_EQ(QueriedCodes(), std::vector<std::string>{"c"});
}

TEST_F(LintStatementTest, TextInMisplacedAndMisspelledElementsIsNotRead) {
  const std::string sound =
      "<PROPERTY NAME=\"description\" TYPE=\"string\"><VALUE>d</VALUE></PROPERTY>";
  for (const char* faulty :
       {"<Property NAME='description'><VALUE>d</VALUE></Property>",
        "<PROPERTY NAME='description'><value>d</value></PROPERTY>",
        "<PROPERTY NAME='description'><VALUE.ARRAY><VALUE>d</VALUE></VALUE.ARRAY></PROPERTY>",
        "<PROPERTY.ARRAY NAME='description'><VALUE>d</VALUE></PROPERTY.ARRAY>",
        "<PROPERTY name='description'><VALUE>d</VALUE></PROPERTY>"}) {
    WriteFiles(
        PackageFiles("a", Replace(PutValue(SoundText("a"), "description", "d"), sound, faulty)));
    EXPECT_EQ(LintJson()["errors"], 1) << faulty;
    EXPECT_EQ(QueryJson()["records"][0]["description"], "") << faulty;
  }
}

TEST_F(LintStatementTest, KovuFilterRefusesWhatNoPackLists) {
  WriteFiles(SoundPackage("a") + SoundPackage("b"));
  folder.Write("p.xml", PackText({OwnInstance("p.xml"), SoundInstance("b")}));
  EXPECT_EQ(PlacesOf("package-unlisted").size(), 1U);
  const Json document = QueryJson();
  ASSERT_EQ(document["records"].size(), 2U);
  for (const Json& record : document["records"]) {
    EXPECT_EQ(record["kovuFilterStatus"], record["identificationCode"] == "a" ? 2 : 1);
  }
}

TEST_F(LintStatementTest, PackageOfAPackForOtherMachinesHasNoRecordOfIt) {
  const std::string own =
      PutValues(OwnInstance("p.xml"), "applicableOperatingSystems", {"11", "12"});
  folder.Write("p.xml", PackText({own, SoundInstance("a")}));
  WriteFiles(SoundPackage("a"));
  EXPECT_EQ(TextOf("package-listed-elsewhere"),
            "\"a\" is for none of the machines of the only pack that lists it: \"p.xml\".");
  const Json records = QueryJson()["records"];
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0]["kovuFilterStatus"], 2);
}

class LintSupersedeTest : public LintStatementTest {
 protected:
  static std::string Listing(const std::string& code, const std::vector<std::string>& listed) {
    return listed.empty() ? SoundText(code) : PutValues(SoundText(code), "supersede", listed);
  }

  // In order.
  std::vector<std::string> Kept() {
    std::vector<std::string> codes;
    const Json document = QueryJson();
    for (const Json& record : document["records"]) {
      if (record["supersedeFilterStatus"] == 1) codes.push_back(record["identificationCode"]);
    }
    std::sort(codes.begin(), codes.end());
    return codes;
  }
};

TEST_F(LintSupersedeTest, ChainKeepsWhatIsSuperseded) {
  WriteFiles(PackageFiles("a", Listing("a", {"b"})) + PackageFiles("b", Listing("b", {"c"})) +
             SoundPackage("c"));
  EXPECT_EQ(TextOf("supersede-chain"),
            "\"supersede\" names \"b\", but the list of \"b\" is applied after this one and keeps "
            "\"b\".");
  EXPECT_EQ(Kept(), (std::vector<std::string>{"a", "b"}));
}

TEST_F(LintSupersedeTest, PackageThatALaterListNamesIsNoChain) {
  WriteFiles(PackageFiles("a", Listing("a", {"b"})) + PackageFiles("b", Listing("b", {"c"})) +
             SoundPackage("c") + PackageFiles("d", Listing("d", {"b"})));
  EXPECT_THAT(PlacesOf("supersede-chain"), IsEmpty());
  EXPECT_EQ(Kept(), (std::vector<std::string>{"a", "d"}));
}

TEST_F(LintSupersedeTest, PackagesThatNoMachineGetsTogetherAreNoChain) {
  WriteFiles(PackageFiles("a", PutValues(Listing("a", {"b"}), "orderedOSList", {"11"})) +
             PackageFiles("b", Listing("b", {"c"})) + SoundPackage("c"));
  EXPECT_THAT(PlacesOf("supersede-chain"), IsEmpty());
}

TEST_F(LintSupersedeTest, RingIsNoChain) {
  WriteFiles(PackageFiles("a", Listing("a", {"b"})) + PackageFiles("b", Listing("b", {"a"})));
  EXPECT_THAT(PlacesOf("supersede-chain"), IsEmpty());
  EXPECT_EQ(PlacesOf("supersede-ring").size(), 2U);
}

TEST_F(LintSupersedeTest, GreaterVersionOverridesTheList) {
  const auto text = [](const std::string& listing, const std::string& version) {
    return PutValue(PutValues(listing, "driverFiles", {"one.sys-#1"}), "Version", version);
  };
  WriteFiles(PackageFiles("a", text(Listing("a", {"b"}), "10.1")) +
             PackageFiles("b", text(SoundText("b"), "9.0")));
  EXPECT_EQ(TextOf("supersede-overridden"),
            "\"supersede\" names \"b\", but they share a driver file, and as text \"9.0\" of \"b\" "
            "is greater than \"10.1\", so this package is superseded instead.");
  EXPECT_EQ(Kept(), std::vector<std::string>{"b"});

  WriteFiles(PackageFiles("b", text(SoundText("b"), "10.1")));
  EXPECT_THAT(PlacesOf("supersede-overridden"), IsEmpty()) << "equal versions are another finding";
}

}  // namespace
}  // namespace Vornik::Testing
