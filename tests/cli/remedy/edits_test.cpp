// Edits of the repository that make every filter match: each kind, with its place and its words,
// and the case in which it would be of no use.
#include "explain/explain_fixture.h"
#include "remedy/edit_text.h"

namespace Vornik::Testing {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using Texts = std::vector<std::string>;

Descriptor Member(const std::string& code) {
  return Package(code).Set("xmlFilename", "member.txt");
}

class EditsTest : public ExplainTest {
 protected:
  EditsTest() {
    folder.Write("payload.exe", "x");
    folder.Write("member.txt", "x");
  }

  std::string WritePack(std::vector<Descriptor> members) {
    members.insert(members.begin(), PackItself("p.xml"));
    const std::string text = Pack(members);
    folder.Write("p.xml", text);
    return text;
  }

  Json Repository(const std::string& id, const Arguments& more = {}) {
    return ExplainPackage(id, more)["wayOut"]["repository"];
  }

  // The edits of the first remedy, as file name, line and text.
  static Texts EditsOf(const Json& remedy) {
    Texts edits;
    for (const Json& edit : remedy["edits"]) {
      const std::string file = edit["file"];
      edits.push_back(file.substr(file.find_last_of("/\\") + 1) + ":" +
                      std::to_string(edit["line"].get<int>()) + ": " +
                      edit["text"].get<std::string>());
    }
    return edits;
  }

  Texts First(const std::string& id, const Arguments& more = {}) {
    const Json repository = Repository(id, more);
    EXPECT_EQ(repository["state"], "found") << repository.dump(2);
    return repository["smallest"].empty() ? Texts() : EditsOf(repository["smallest"][0]);
  }

  void ExpectNone(const std::string& id, const std::string& text, const Arguments& more = {}) {
    const Json repository = Repository(id, more);
    EXPECT_EQ(repository["state"], "none");
    EXPECT_THAT(repository["smallest"], IsEmpty());
    EXPECT_EQ(repository["text"], text);
  }
};

TEST_F(EditsTest, OfferedPackageNeedsNone) {
  WritePack({Member("a")});
  const Json repository = Repository("a");
  EXPECT_EQ(repository["state"], "notNeeded");
  EXPECT_EQ(repository["text"], "");
}

TEST_F(EditsTest, ValueOfOneOrderedList) {
  const std::string text = WritePack({Member("a").For("1234", "11", "9")});
  const Json repository = Repository("a");
  ASSERT_THAT(repository["smallest"], SizeIs(1));
  const Json& remedy = repository["smallest"][0];
  EXPECT_THAT(EditsOf(remedy), ElementsAre("p.xml:" + LineOf(text, "\"orderedOSList\"", 2) +
                                           ": write \"10\" for \"11\" in \"orderedOSList\""));
  EXPECT_EQ(remedy["edits"][0]["kind"], "setProperty");
  EXPECT_EQ(remedy["edits"][0]["from"], Json::array({"11"}));
  EXPECT_EQ(remedy["edits"][0]["to"], Json::array({"10"}));
  const Json lost = {{{"machineType", "1234"},
                      {"osValue", 11},
                      {"arcValue", 9},
                      {"withdrawn", {"a"}},
                      {"offered", Json::array()}}};
  EXPECT_EQ(remedy["effects"]["machines"], lost);
  EXPECT_THAT(EditsOf(repository["sparing"]), SizeIs(3));
  EXPECT_THAT(repository["sparing"]["effects"]["machines"], IsEmpty());
  EXPECT_THAT(
      Explain("a").out,
      HasSubstr("In the repository, 1 edit (1 more with --verbose, one without a loss):\n"));
  EXPECT_THAT(Explain("a").out,
              HasSubstr("\n  On 1 other machine, 1234/11/9, it withdraws \"a\".\n"));
  const std::string verbose = Explain("a", {"--verbose"}).out;
  EXPECT_THAT(verbose, HasSubstr("or, without a loss, 3 edits:\n  " + PathOf("p.xml")));
  EXPECT_THAT(verbose, HasSubstr("add \"1234\" with \"10\" and \"9\" to the ordered lists\n"));
}

TEST_F(EditsTest, SurplusValuesAreUsedWithoutALoss) {
  WritePack({Member("a")
                 .Set("orderedMachineTypeList", {"5678", "1234"})
                 .Set("orderedOSList", {"10", "0"})
                 .Set("orderedOSArchitectureList", {"9"})});
  const Json repository = Repository("a");
  EXPECT_THAT(EditsOf(repository["smallest"][0])[0],
              HasSubstr("add \"9\" to \"orderedOSArchitectureList\""));
  EXPECT_EQ(repository["sparing"], Json());
}

TEST_F(EditsTest, MissingOrderedListIsAdded) {
  WritePack({Descriptor("a")
                 .Set("orderedMachineTypeList", {"1234"})
                 .Set("orderedOSArchitectureList", {"9"})
                 .Set("payload", "payload.exe")
                 .Set("xmlFilename", "member.txt")});
  EXPECT_THAT(First("a")[0], HasSubstr("add \"orderedOSList\" with \"10\""));
}

TEST_F(EditsTest, EntryOfThePackInUse) {
  WritePack({Member("other")});
  WritePackage("a");
  EXPECT_THAT(First("a"), ElementsAre("p.xml:0: list \"a\" in " + PathOf("p.xml")));
  const Json edit = Repository("a")["smallest"][0]["edits"][0];
  EXPECT_EQ(edit["kind"], "addPackEntry");
  EXPECT_EQ(edit["instance"][0], Json({{"name", "identificationCode"}, {"values", {"a"}}}));
}

TEST_F(EditsTest, FolderWithoutAPackHasNoneToListItIn) {
  WritePackage("a");
  ExpectNone("a", "No edit of the repository was found that makes the kovu filter match.");
  EXPECT_THAT(Explain("a").out, HasSubstr("\nNo edit of the repository was found"));
}

TEST_F(EditsTest, ListsOfThePackThatNamesIt) {
  const std::string text =
      Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"}), Member("a")});
  folder.Write("p.xml", text);
  WritePackage("other");
  const Json repository = ExplainJson("a")["absenceWayOut"]["repository"];
  ASSERT_EQ(repository["state"], "found");
  EXPECT_THAT(EditsOf(repository["smallest"][0]),
              ElementsAre("p.xml:" + LineOf(text, "\"applicableMachineTypes\"", 2) +
                          ": add \"1234\" to \"applicableMachineTypes\""));
}

TEST_F(EditsTest, VersionOfAPackThatIsDisplaced) {
  folder.Write("p.xml", Pack({PackItself("p.xml", "2"), Member("b")}));
  folder.Write("q.xml", Pack({PackItself("q.xml", "3"), Member("c")}));
  folder.Write("r.xml", Pack({PackItself("r.xml", "1"), Member("a")}));
  std::size_t unused = 0;
  Texts texts;
  for (const char* code : {"a", "b", "c"}) {
    const Json wayOut = ExplainJson(code)["absenceWayOut"];
    if (wayOut.is_null()) continue;  // of the pack in use
    ++unused;
    for (const Json& remedy : wayOut["repository"]["smallest"]) {
      EXPECT_THAT(remedy["edits"], SizeIs(1));
      texts.push_back(remedy["edits"][0]["kind"]);
    }
  }
  EXPECT_EQ(unused, 2U);
  EXPECT_THAT(texts, Contains("setProperty"));
  EXPECT_THAT(texts, Contains("addPackEntry"));
}

TEST_F(EditsTest, LostFirstMemberGetsItsPackAnInstanceOfItsOwn) {
  folder.Write("p.xml", Pack({Member("a").Set("applicableMachineTypes", {"1234"}), Member("b")}));
  folder.Write("q.xml",
               Pack({PackItself("q.xml").Set("applicableMachineTypes", {"5678"}), Member("a")}));
  WritePackage("other");
  Texts texts;
  const Json repository = ExplainJson("a")["absenceWayOut"]["repository"];
  for (const Json& remedy : repository["smallest"]) {
    texts.push_back(EditsOf(remedy)[0]);
  }
  EXPECT_THAT(texts, Contains("p.xml:0: give " + PathOf("p.xml") + " an INSTANCE of its own"));
}

TEST_F(EditsTest, MissingPayload) {
  WritePack({Member("a").Set("payload", "gone.exe"), Member("b").Set("payload", "gone.exe"),
             Member("c").Set("payload", "other.exe")});
  const Json remedy = Repository("a")["smallest"][0];
  EXPECT_THAT(EditsOf(remedy), ElementsAre("gone.exe:0: add the file " + PathOf("gone.exe")));
  EXPECT_EQ(remedy["edits"][0]["kind"], "addFile");
  EXPECT_EQ(remedy["effects"]["offered"], Json::array({"b"}));
  EXPECT_THAT(Explain("a").out, HasSubstr("\n  It also offers \"b\".\n"));
}

TEST_F(EditsTest, FileIsNotAddedInPlaceOfAFolder) {
  boost::filesystem::create_directory(PathOf("gone.exe"));
  WritePack({Member("a").Set("payload", "gone.exe")});
  for (const std::string& edit : First("a")) EXPECT_THAT(edit, Not(HasSubstr("gone.exe:")));
}

TEST_F(EditsTest, MissingNames) {
  folder.Write("p.xml", Pack({PackItself("p.xml"), Member("other")}));
  folder.Write("a.xml", Descriptor("a").For("1234", "10", "9").Individual());
  EXPECT_THAT(First("a", {"--no-kovu-filter"}),
              ElementsAre(HasSubstr("a.xml:3: add \"xmlFilename\" with \"a.xml\""),
                          HasSubstr("a.xml:3: add \"payload\" with \"a.exe\""),
                          "a.exe:0: add the file " + PathOf("a.exe")));
}

TEST_F(EditsTest, SmallerNumberThatIsTheGreaterTextGetsAZero) {
  const std::string text =
      WritePack({Member("a").Set("driverFiles", {"x-#1"}).Set("Version", "10.1"),
                 Member("b").Set("driverFiles", {"x-#1"}).Set("Version", "9.0")});
  const Json repository = Repository("a");
  EXPECT_THAT(EditsOf(repository["smallest"][0]),
              ElementsAre("p.xml:" + LineOf(text, "\"Version\"", 3) +
                          ": write \"09.0\" for \"9.0\" in \"Version\""));
  EXPECT_EQ(repository["smallest"][0]["effects"]["withdrawn"], Json::array({"b"}));
}

TEST_F(EditsTest, GreaterNumberIsExceeded) {
  WritePack({Member("a").Set("driverFiles", {"x-#1"}).Set("Version", "1.0"),
             Member("b").Set("driverFiles", {"x-#1"}).Set("Version", "2.0")});
  EXPECT_THAT(First("a"), ElementsAre(HasSubstr("write \"2.0.1\" for \"1.0\" in \"Version\"")));
}

TEST_F(EditsTest, EachListThatNamesIt) {
  WritePack(
      {Member("a"), Member("b").Set("supersede", {"x", "A"}), Member("c").Set("supersede", {"a"})});
  EXPECT_THAT(First("a"),
              testing::UnorderedElementsAre(HasSubstr("take \"A\" out of \"supersede\""),
                                            HasSubstr("take \"a\" out of")));
}

TEST_F(EditsTest, UpdateType) {
  WritePack({Member("a").Set("type", "4")});
  EXPECT_THAT(First("a", {"--update-type", "2"}),
              ElementsAre(HasSubstr("write \"2\" for \"4\" in \"type\"")));
}

TEST_F(EditsTest, PlaceIsThatOfTheMemberThatShadowsTheDescriptor) {
  WritePack({Member("b")});
  folder.Write("q.xml", Pack({PackItself("q.xml").Set("applicableMachineTypes", {"5678"}),
                              Member("a").For("1234", "11", "9")}));
  WritePackage("a");
  EXPECT_THAT(First("a", {"--no-kovu-filter"}), ElementsAre(StartsWith("q.xml:")));
}

TEST_F(EditsTest, SettingsAndCodesThatNoEditChanges) {
  WritePack({Member("orx_utl_sep_1"), Member("a")});
  ExpectNone("orx_utl_sep_1",
             "No edit of the repository helps: the sep filter goes by the code and the settings.");
  ExpectNone(
      "a",
      "No edit of the repository helps: the includeId filter goes by the code and the settings.",
      {"--include", "b"});
  ExpectNone(
      "a",
      "No edit of the repository helps: the excludeId filter goes by the code and the settings.",
      {"--exclude", "A"});
}

TEST_F(EditsTest, ManyEditsAreCounted) {
  std::vector<Descriptor> members{Member("a")};
  for (char code = 'b'; code <= 'i'; ++code) {
    members.push_back(Member(std::string(1, code)).Set("supersede", {"a"}));
  }
  WritePack(members);
  const std::string out = Explain("a").out;
  EXPECT_THAT(out, AllOf(HasSubstr("In the repository, 8 edits:"), HasSubstr("  and 4 edits\n")));
  EXPECT_THAT(Repository("a")["smallest"][0]["edits"], SizeIs(8));
}

TEST(EditTextTest, TellsWhatToWrite) {
  const auto text = [](Texts before, Texts after) {
    Cli::Edit edit;
    edit.property = "list";
    edit.before = std::move(before);
    edit.after = std::move(after);
    return Cli::TextOf(edit);
  };
  EXPECT_EQ(text({}, {"1"}), "add \"list\" with \"1\"");
  EXPECT_EQ(text({"1"}, {"2"}), "write \"2\" for \"1\" in \"list\"");
  EXPECT_EQ(text({"1"}, {"1", "2"}), "add \"2\" to \"list\"");
  EXPECT_EQ(text({"1", "2", "3"}, {"1", "3"}), "take \"2\" out of \"list\"");
  EXPECT_EQ(text({"1"}, {}), "take \"1\" out of \"list\"");
  EXPECT_EQ(text({"1", "2"}, {"1", "3"}), "write \"3\" for \"2\" at position 2 of \"list\"");
}

}  // namespace
}  // namespace Vornik::Testing
