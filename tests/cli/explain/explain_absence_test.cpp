// Why there is no package of an id: every reason, alone and together.
#include <boost/filesystem/operations.hpp>

#include "explain/explain_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

class ExplainAbsenceTest : public ExplainTest {
 protected:
  // The only reason for an id.
  Json OnlyReason(const std::string& id) {
    const Json document = ExplainJson(id);
    EXPECT_EQ(document["answer"], "absent");
    EXPECT_EQ(document["packages"], Json::array());
    if (document["absence"].size() != 1) throw std::runtime_error(document.dump(2));
    return document["absence"][0];
  }
};

Descriptor Member(const std::string& code) {
  return Package(code).Set("xmlFilename", code + ".xml");
}

std::string Truncated(const Descriptor& descriptor) {
  const std::string text = descriptor.Individual();
  return text.substr(0, text.find("</INSTANCE>"));
}

TEST_F(ExplainAbsenceTest, IdThatNothingKnowsEndsWith1) {
  WritePackage("a");
  const Json document = ExplainJson("b", {}, 1);
  EXPECT_EQ(document["answer"], "unknown");
  EXPECT_EQ(document["packages"], Json::array());
  EXPECT_EQ(document["absence"], Json::array());
  EXPECT_EQ(document["absenceWayOut"], Json());
  const Outcome outcome = Explain("other");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out,
              testing::StartsWith("other: UNKNOWN. No descriptor of the folder has this code,"));
  EXPECT_EQ(outcome.err,
            "querypackage-cli: nothing in the folder is known as \"other\": check the spelling; "
            "\"querypackage-cli list\" lists the packages\n");
}

TEST_F(ExplainAbsenceTest, NearestIdsOfAnUnknownOneAreNamed) {
  WritePackage("orx_drv_audio_6");
  folder.Write("p.xml", Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"}),
                              Member("orx_drv_adio_7")}));
  const Outcome outcome = Explain("orx_drv_adio_6");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "querypackage-cli: nothing in the folder is known as \"orx_drv_adio_6\"; the nearest: "
            "\"orx_drv_audio_6\", \"orx_drv_adio_7\"\n");
}

TEST_F(ExplainAbsenceTest, EmptyFolderKnowsNothing) {
  const Json document = ExplainJson("a", {}, 1);
  EXPECT_EQ(document["returnCode"], 4);
  EXPECT_EQ(document["answer"], "unknown");
}

// Blanks around a text are not part of it, and a search for blanks ends.
TEST_F(ExplainAbsenceTest, TextOfAFileThatDoesNotLoad) {
  WritePackage("other");
  const std::string blanks(300'000, ' ');
  folder.Write("b.xml", "<!-- SystemUpdateElement --><a><b>\n a \t</b><c>a b</c><d>x>a</d>" +
                            blanks + "</x>");
  for (const char* id : {"A", "a b", " a", "a  ", "\n a"}) {
    const bool isText = std::string(id) != "a  ";
    EXPECT_EQ(ExplainJson(id, {}, isText ? 0 : 1)["absence"].size(), isText ? 1U : 0U) << id;
  }
  EXPECT_EQ(OnlyReason(" ")["reason"], "notLoaded");
  EXPECT_EQ(OnlyReason(std::string(1'000, ' '))["reason"], "notLoaded");
  ExplainJson("b ", {}, 1);
}

TEST_F(ExplainAbsenceTest, CodeThatIsTooLongIsNamed) {
  const std::string code(4097, 'c');
  WritePackage("other");
  folder.Write("long.xml", Package(code).Individual());
  Json reason = OnlyReason(code);
  EXPECT_EQ(reason["reason"], "notLoaded");
  EXPECT_THAT(reason["text"].get<std::string>(),
              HasSubstr("the identification code has more than 4,096 bytes"));
  EXPECT_EQ(OnlyReason("long")["reason"], "notLoaded");

  folder.Write("long.xml", Pack({Descriptor("p").Set("xmlFilename", "long.xml"), Member(code)}));
  reason = OnlyReason(code);
  EXPECT_EQ(reason["reason"], "codeTooLong");
  EXPECT_EQ(reason["file"], PathOf("long.xml"));
  EXPECT_EQ(reason["code"], code);

  folder.Write("long.xml", Pack({Descriptor(code).Set("xmlFilename", "long.xml"), Member("m")}));
  EXPECT_EQ(OnlyReason(code)["reason"], "packItself");
}

TEST_F(ExplainAbsenceTest, DescriptorThatFailsToLoadIsNamedWithTheLibrarysLine) {
  WritePackage("other");
  folder.Write("draft.xml", Truncated(Package("a")));
  const Json reason = OnlyReason("A");
  EXPECT_EQ(reason["reason"], "notLoaded");
  EXPECT_EQ(reason["file"], PathOf("draft.xml"));
  EXPECT_EQ(reason["code"], "a");
  EXPECT_THAT(reason["text"].get<std::string>(), HasSubstr("failed to load (line "));
  EXPECT_THAT(reason["text"].get<std::string>(), HasSubstr("its text holds \"a\""));
  EXPECT_EQ(reason["log"], Json::array({"Faile to load Package XML: " + PathOf("draft.xml")}));
  EXPECT_NE(reason["remedy"], "");
}

TEST_F(ExplainAbsenceTest, CodeInsideALongerTextIsNone) {
  WritePackage("other");
  for (const char* text : {"about a package", "written as a", "a is what it is", "ba", "ab"}) {
    folder.Write("draft.xml", Truncated(Package("a1").Set("description", text)));
    EXPECT_EQ(ExplainJson("a", {}, 1)["answer"], "unknown") << text;
  }
}

TEST_F(ExplainAbsenceTest, CodeWithMarkupIsFoundInABrokenFile) {
  WritePackage("other");
  folder.Write("draft.xml", Truncated(Package("a<&>b")));
  EXPECT_EQ(OnlyReason("a<&>b")["file"], PathOf("draft.xml"));
}

TEST_F(ExplainAbsenceTest, FileOfThatNameIsNamed) {
  WritePackage("other");
  folder.Write("a.xml", "<CIM><!-- SystemUpdateElement --></CIM>");
  for (const char* id : {"a", "A.XML"}) {
    const Json reason = OnlyReason(id);
    EXPECT_EQ(reason["reason"], "notLoaded");
    EXPECT_EQ(reason["text"], PathOf("a.xml") + " has no property; it has this name.");
    EXPECT_EQ(reason["log"], Json::array({"Faile to load Package XML's property value"}));
  }
}

TEST_F(ExplainAbsenceTest, FileOfNeitherKindIsNamed) {
  WritePackage("other");
  std::string text = Package("a").Individual();
  text.replace(text.find("SystemUpdateElement"), 6, "Sistem");
  folder.Write("notes.xml", text);
  const Json reason = OnlyReason("a");
  EXPECT_EQ(reason["reason"], "notADescriptor");
  EXPECT_EQ(reason["log"], Json::array({"notes.xml is not a valid ORX xml"}));
}

TEST_F(ExplainAbsenceTest, FileThatIsNoDescriptorIsSaidToBeWhatItIs) {
  WritePackage("other");
  folder.Write("utf.xml", std::string("\xFF\xFE<\0a\0", 6));
  EXPECT_EQ(OnlyReason("utf")["reason"], "notADescriptor");
  EXPECT_EQ(OnlyReason("utf")["text"], PathOf("utf.xml") +
                                           " is in UTF-16, in which no marker is found; it has "
                                           "this name.");
  folder.Write("empty.xml", "");
  EXPECT_EQ(OnlyReason("empty")["text"], PathOf("empty.xml") + " is empty; it has this name.");
  boost::filesystem::create_directory(PathOf("sub.xml"));
  const Json isFolder = OnlyReason("sub");
  EXPECT_EQ(isFolder["reason"], "notRead");
  EXPECT_EQ(isFolder["text"], PathOf("sub.xml") + " is a folder; it has this name.");
  EXPECT_NE(isFolder["remedy"], "correct the file");
}

#ifndef _WIN32
TEST_F(ExplainAbsenceTest, LinkToNothingCannotBeOpened) {
  WritePackage("other");
  boost::filesystem::create_symlink("nowhere", PathOf("a.xml"));
  const Json reason = OnlyReason("a");
  EXPECT_EQ(reason["reason"], "notRead");
  EXPECT_EQ(reason["text"],
            PathOf("a.xml") + " cannot be opened (No such file or directory); it has this name.");
}
#endif

TEST_F(ExplainAbsenceTest, CodeOfAnotherInstanceOfAnIndividualDescriptorIsLost) {
  std::string text = Package("t_a").Individual();
  const std::string second = Package("t_b").Individual();
  const std::size_t begin = second.find("<INSTANCE ");
  const std::size_t end = second.find("</INSTANCE>") + std::string("</INSTANCE>").size();
  text.insert(text.find("</INSTANCE>") + std::string("</INSTANCE>").size(),
              second.substr(begin, end - begin));
  for (const char* name : {"t_a.xml", "both.xml"}) {
    const std::string file = folder.Write(name, text);
    const Json reason = OnlyReason("t_a");
    EXPECT_EQ(reason["reason"], "sharedFile");
    EXPECT_EQ(reason["code"], "t_a");
    EXPECT_EQ(reason["text"], file +
                                  " holds the code \"t_a\", but is read as one package, whose code "
                                  "is the last one in it, \"t_b\".");
    EXPECT_EQ(ExplainJson("t_b")["absence"], Json::array());
    boost::filesystem::remove(file);
  }
}

TEST_F(ExplainAbsenceTest, IdOfAPackNotInUseIsNotAnsweredForAnotherCase) {
  WritePackage("P0");
  folder.Write("p.xml", Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"}),
                              Member("p0").For("5678", "10", "9")}));
  const Json document = ExplainJson("p0", {"--no-payload-exist-filter"});
  EXPECT_EQ(document["answer"], "absent");
  ASSERT_EQ(document["packages"].size(), 1U);
  EXPECT_EQ(document["packages"][0]["otherCase"], true);
  ASSERT_EQ(document["absenceWayOut"]["state"], "found");
  EXPECT_EQ(document["absenceWayOut"]["code"], "p0");
  ExpectPasses(document["absenceWayOut"]["smallest"][0], "p0");
  EXPECT_EQ(ExplainJson("P0")["absenceWayOut"], Json());
}

TEST_F(ExplainAbsenceTest, BrokenPackThatHoldsTheCodeIsNamed) {
  WritePackage("other");
  const std::string text = Pack({PackItself("p.xml"), Member("a")});
  folder.Write("p.xml", text.substr(0, text.size() - 8));
  const Json reason = OnlyReason("a");
  EXPECT_EQ(reason["reason"], "notLoaded");
  EXPECT_EQ(reason["log"], Json::array({"Faile to load Kovu XML: " + PathOf("p.xml")}));
}

TEST_F(ExplainAbsenceTest, NameThatDoesNotEndInTheExtensionIsNamed) {
  WritePackage("other");
  for (const char* name : {"x.XML", "x.Xml", "x.xml.bak"}) {
    folder.Write(name, Package("a").Individual());
    const Json reason = OnlyReason("a");
    EXPECT_EQ(reason["reason"], "otherExtension") << name;
    EXPECT_EQ(reason["file"], PathOf(name));
    EXPECT_THAT(reason["text"].get<std::string>(), HasSubstr("does not end in exactly \".xml\""));
    EXPECT_EQ(reason["log"], Json::array());
    boost::filesystem::remove(PathOf(name));
  }
}

TEST_F(ExplainAbsenceTest, FileInASubfolderIsNamed) {
  WritePackage("other");
  boost::filesystem::create_directory(PathOf("old"));
  const std::string file = folder.Write("old/a.xml", Package("a").Individual());
  const Json reason = OnlyReason("a");
  EXPECT_EQ(reason["reason"], "inSubfolder");
  EXPECT_EQ(reason["file"], file);
}

TEST_F(ExplainAbsenceTest, MemberOfAPackThatIsNotInUseIsExplained) {
  WritePackage("other");
  const struct {
    Descriptor pack;
    const char* text = nullptr;
  } cases[] = {
      {PackItself("p.xml").Set("applicableMachineTypes", {"Lap [5678]", "12345"}),
       "its \"applicableMachineTypes\" do not hold the machine type 1234: \"Lap [5678]\", "
       "\"12345\"."},
      {PackItself("p.xml").Set("applicableMachineTypes", std::vector<std::string>()),
       "it has no \"applicableMachineTypes\", so it never applies."},
      {Member("first").Set("applicableOperatingSystems", {"10"}),
       "it has no INSTANCE of its own, and the first member, which is taken for the pack, no "
       "\"applicableMachineTypes\", so it never applies."},
      {Member("first").Set("applicableMachineTypes", {"5678"}),
       "it has no INSTANCE of its own, and the \"applicableMachineTypes\" of the first member, "
       "which is taken for the pack, do not hold the machine type 1234: \"5678\"."},
      {PackItself("p.xml").Set("applicableOperatingSystems", {"11", "12"}),
       "its \"applicableOperatingSystems\" do not hold the operating system 10 or 0: \"11\", "
       "\"12\"."},
      {PackItself("p.xml").Set("applicableOperatingSystems", std::vector<std::string>()),
       "it has no \"applicableOperatingSystems\", so it never applies."},
  };
  for (const auto& one : cases) {
    folder.Write("p.xml", Pack({one.pack, Member("a")}));
    const Json reason = OnlyReason("a");
    EXPECT_EQ(reason["reason"], "packNotChosen");
    EXPECT_EQ(reason["text"],
              PathOf("p.xml") + " lists it, but is not the pack in use: " + one.text);
  }
}

TEST_F(ExplainAbsenceTest, MemberOfADisplacedPackNamesTheOther) {
  folder.Write("p1.xml", Pack({PackItself("p1.xml", "1"), Member("a1")}));
  folder.Write("p2.xml", Pack({PackItself("p2.xml", "2"), Member("a2")}));
  // Which of the two is found first is up to the system; the second one found is in use.
  const auto codes = CodesOf(QueryJson());
  ASSERT_EQ(codes.size(), 1U);
  const std::string number = codes.front() == "a1" ? "1" : "2";
  const Json reason = OnlyReason(number == "1" ? "a2" : "a1");
  EXPECT_EQ(reason["reason"], "packNotChosen");
  EXPECT_THAT(reason["text"].get<std::string>(),
              HasSubstr("the version of the pack found first is never compared: p" + number +
                        ".xml with the version \"" + number + "\" displaced it"));
}

TEST_F(ExplainAbsenceTest, FirstMemberOfAPackWithoutAnOwnInstanceIsLost) {
  WritePackage("other");
  folder.Write("p.xml", Pack({Member("a")
                                  .Set("applicableMachineTypes", {"1234"})
                                  .Set("applicableOperatingSystems", {"0"}),
                              Member("b")}));
  const Json reason = OnlyReason("a");
  EXPECT_EQ(reason["reason"], "packFirstMember");
  EXPECT_THAT(reason["remedy"].get<std::string>(), HasSubstr("\"p.xml\""));

  folder.Write("p.xml", Pack({Member("a"), Member("b")}));
  const Json document = ExplainJson("a");
  EXPECT_THAT(ReasonsOf(document["absence"]), ElementsAre("packFirstMember", "packNotChosen"));
}

TEST_F(ExplainAbsenceTest, PackItselfIsNoPackage) {
  WritePackage("other");
  folder.Write("p.xml", Pack({PackItself("p.xml"), Member("a")}));
  for (const char* id : {"pack", "p"}) {
    const Json reason = OnlyReason(id);
    EXPECT_EQ(reason["reason"], "packItself");
    EXPECT_EQ(reason["file"], PathOf("p.xml"));
    EXPECT_EQ(reason["code"], "pack");
  }
}

TEST_F(ExplainAbsenceTest, NameOfADescriptorWithAnotherCodeIsExplained) {
  folder.Write("name.xml", Package("a").Set("xmlFilename", "name.xml").Individual());
  const Json other = OnlyReason("name");
  EXPECT_EQ(other["reason"], "otherCode");
  EXPECT_EQ(other["code"], "a");

  folder.Write("p.xml", Pack({PackItself("p.xml"), Member("a")}));
  const Json dropped = OnlyReason("name.xml");
  EXPECT_EQ(dropped["reason"], "duplicate");
  EXPECT_EQ(dropped["text"], PathOf("name.xml") +
                                 " is the descriptor of \"a\", and was dropped as a repeat of the "
                                 "one in " +
                                 PathOf("p.xml") + ".");
}

TEST_F(ExplainAbsenceTest, AllReasonsAreGiven) {
  WritePackage("other");
  folder.Write("a.xml", Truncated(Package("a")));
  folder.Write("old.XML", Package("a").Individual());
  folder.Write("p.xml",
               Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"}), Member("a")}));
  EXPECT_THAT(ReasonsOf(ExplainJson("a")["absence"]),
              ElementsAre("packNotChosen", "notLoaded", "otherExtension"));
}

TEST_F(ExplainAbsenceTest, PackageInAnotherCaseIsExplainedBesideTheReasons) {
  WritePackage("abc");
  folder.Write("draft.xml", Truncated(Package("ABC")));
  const Json document = ExplainJson("ABC");
  ASSERT_EQ(document["packages"].size(), 1U);
  EXPECT_EQ(document["packages"][0]["otherCase"], true);
  EXPECT_EQ(document["answer"], "refused");
  EXPECT_THAT(ReasonsOf(document["absence"]), ElementsAre("notLoaded"));
  EXPECT_EQ(ExplainJson("abc")["absence"], Json::array());
}

TEST_F(ExplainAbsenceTest, PacksThatDoNotApplyAreExplainedWithoutAnyRecord) {
  folder.Write("p.xml", Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"}),
                              Member("a").For("5678", "10", "9")}));
  folder.Write("a.xml.old", "");
  const Json document = ExplainJson("a");
  EXPECT_EQ(document["returnCode"], 4);
  EXPECT_THAT(ReasonsOf(document["absence"]), UnorderedElementsAre("packNotChosen"));
}

}  // namespace
}  // namespace Vornik::Testing
