// The subcommand "check": finds what would hang a query or end the process, whatever the machine.
#include <gmock/gmock.h>

#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;

class CheckTest : public CliTest {
 protected:
  Outcome Check(const Arguments& more = {}) {
    Arguments arguments{"check", folder.Path()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunCli(arguments);
  }

  void WriteUnclassified(const std::string& code) {
    folder.Write(code + ".xml", Package(code)
                                    .Set("driverFiles", {"x-#1", "y-#1"})
                                    .Set("driverFilesClassification", {"one"})
                                    .Individual());
  }

  void WritePackWithoutClassName() {
    folder.Write("k.xml",
                 "<CIM><!-- ORXQDL_SystemUpdateProduct -->\n<INSTANCE NAME=\"a\">"
                 "<PROPERTY NAME=\"Version\"><VALUE>1</VALUE></PROPERTY></INSTANCE></CIM>");
  }
};

TEST_F(CheckTest, SoundFolderIsSaidToBeSound) {
  WritePackage("a");
  const Outcome outcome = Check();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "No descriptor would hang a query or end the process (1 file).\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(Check({"--quiet"}).out, "");
}

TEST_F(CheckTest, BothKindsAreFoundWithFileAndLine) {
  WriteUnclassified("a");
  WritePackWithoutClassName();
  const Outcome outcome = Check({"--quiet"});
  EXPECT_EQ(outcome.status, 65);
  EXPECT_THAT(outcome.out, HasSubstr("k.xml:2: the first attribute of this INSTANCE is not"));
  EXPECT_THAT(outcome.out, HasSubstr("package \"a\" has 2 \"driverFiles\" but only 1"));
  EXPECT_EQ(outcome.err,
            "querypackage-cli: 2 files would hang a query or end the process: correct them\n");
}

TEST_F(CheckTest, APackOfAnyMachineCounts) {
  folder.Write("k.xml",
               Pack({PackItself("k.xml", "1"), Package("m")
                                                   .Set("xmlFilename", "m.xml")
                                                   .Set("driverFiles", {"x-#1", "y-#1"})
                                                   .Set("driverFilesClassification", {"one"})}));
  EXPECT_EQ(Check().status, 65);
}

TEST_F(CheckTest, AFileThatDoesNotLoadIsNoneOfThem) {
  folder.Write("broken.xml", "<CIM><!-- ORXQDL_SystemUpdateProduct -->");
  EXPECT_EQ(Check().status, 0);
}

TEST_F(CheckTest, NoFolderIsReported) {
  const Outcome outcome = RunCli({"check", folder.Path() + "/none"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("is no folder"));
}

}  // namespace
}  // namespace Vornik::Testing
