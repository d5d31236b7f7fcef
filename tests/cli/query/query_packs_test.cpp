// What a query says of packs, and of what its answer depends on.
#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class QueryPacksTest : public CliTest {
 protected:
  void WritePack(const std::string& name, const std::string& version,
                 const std::vector<std::string>& types, const std::vector<std::string>& systems) {
    folder.Write(name, Pack({PackItself(name, version)
                                 .Set("applicableMachineTypes", types)
                                 .Set("applicableOperatingSystems", systems),
                             Package("m-" + name).Set("xmlFilename", "m.xml")}));
  }

  std::string PackText() { return QueryJson()["packText"]; }

  std::vector<std::string> Warnings(const Arguments& more = {}) {
    return QueryJson(more)["warnings"];
  }
};

TEST_F(QueryPacksTest, PackInUseIsNamed) {
  WritePack("p.xml", "2.0", {"1234"}, {"10"});
  EXPECT_EQ(PackText(), "Pack in use: p.xml, version 2.0.");
  EXPECT_EQ(QueryJson()["pack"], (Json{{"file", "p.xml"}, {"version", "2.0"}}));
  EXPECT_THAT(Query().out, HasSubstr("\nPack in use: p.xml, version 2.0.\n1 package: "));
  WritePack("p.xml", "", {"1234"}, {"10"});
  EXPECT_EQ(PackText(), "Pack in use: p.xml, without a version.");
  EXPECT_EQ(PackText(), QueryJson({"--trust"})["packText"]);
}

TEST_F(QueryPacksTest, WithoutAPackItSaysWhy) {
  WritePackage("a");
  EXPECT_EQ(PackText(), "No pack is used: the folder has none.");
  EXPECT_EQ(QueryJson()["pack"], Json());
  WritePack("p.xml", "2.0", {"5678", "Desk [1235]"}, {"10"});
  EXPECT_EQ(PackText(), "No pack is used: those of the folder name the machine types 1235, 5678.");
  WritePack("q.xml", "2.0", {"1234"}, {"11", "12"});
  EXPECT_EQ(PackText(),
            "No pack is used: those for machine type 1234 name the operating systems 11, 12.");
  WritePack("q.xml", "2.0", {"1234"}, {});
  EXPECT_EQ(PackText(), "No pack is used: those for machine type 1234 name no operating system.");
}

TEST_F(QueryPacksTest, FolderWithPacksForOtherMachinesOnlySaysSo) {
  WritePack("p.xml", "2.0", {"5678"}, {"10"});
  const Outcome outcome = Query({"--log-level", "0"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err,
            "querypackage-cli: the folder has no package for this machine: it has no individual "
            "descriptor. No pack is used: those of the folder name the machine types 5678.\n");
}

TEST_F(QueryPacksTest, PackWithoutOtherMembersSaysSo) {
  folder.Write("p.xml", Pack({PackItself("p.xml")}));
  EXPECT_EQ(Query({"--log-level", "0"}).err,
            "querypackage-cli: the folder has no package for this machine: it has no individual "
            "descriptor, and p.xml, the pack in use, lists no package\n");
}

TEST_F(QueryPacksTest, FolderWithoutDescriptorsSaysWhatItNeeds) {
  EXPECT_THAT(Query({"--log-level", "0"}).err,
              HasSubstr("it needs package descriptors whose file names end in \".xml\""));
}

TEST_F(QueryPacksTest, IdThatNoPackageHasIsWarnedOf) {
  WritePackage("orx_drv_a");
  WritePackage("orx_drv_b");
  EXPECT_THAT(Warnings({"--include", "ORX_DRV_A", "--exclude", "orx_drv_b"}), IsEmpty());
  EXPECT_THAT(Warnings({"--include", "orx_drv_c", "--exclude", "other", "--exclude", "other"}),
              ElementsAre("no package of the query has the id \"orx_drv_c\" of --include; the "
                          "nearest: \"orx_drv_a\", \"orx_drv_b\"",
                          "no package of the query has the id \"other\" of --exclude"));
  const Outcome outcome = Query({"--exclude", "other", "--log-level", "0"});
  EXPECT_EQ(outcome.err,
            "querypackage-cli: warning: no package of the query has the id \"other\" of "
            "--exclude\n");
}

TEST_F(QueryPacksTest, ManyWarningsOfAKindAreCounted) {
  WritePackage("a");
  Arguments ids;
  for (int i = 0; i != 15; ++i) ids.insert(ids.end(), {"--include", "none" + std::to_string(i)});
  const auto warnings = Warnings(ids);
  ASSERT_EQ(warnings.size(), 11U);
  EXPECT_EQ(warnings.back(), "and 5 other ids like this");
}

TEST_F(QueryPacksTest, SoundFolderHasNoWarning) {
  WritePack("p.xml", "2.0", {"1234"}, {"10"});
  WritePackage("a");
  EXPECT_THAT(Warnings(), IsEmpty());
  EXPECT_THAT(Query({"--log-level", "0"}).err, Not(HasSubstr("warning")));
}

}  // namespace
}  // namespace Vornik::Testing
