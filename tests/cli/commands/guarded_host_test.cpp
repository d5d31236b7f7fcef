// The example host for folders that nobody has checked.
#include <gmock/gmock.h>

#include "cli_fixture.h"
#include "sanitizers.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;

class GuardedHostTest : public CliTest {
 protected:
  Outcome Run(Arguments arguments, const std::string& machineType = "1234") {
    // Of two values the last one counts.
    arguments.insert(arguments.begin(), {"--seconds", "600"});
#ifdef QUERYPACKAGE_TEST_SANITIZED
    // A sanitizer reserves more address space than any limit would leave.
    arguments.insert(arguments.begin(), {"--mebibytes", "0"});
#endif
    arguments.push_back(folder.Path());
    arguments.push_back(machineType);
    return RunProgram(GUARDED_HOST, arguments);
  }

  // In the pack in use, so that the filters refuse none of them.
  void WriteOfferedPackages() {
    folder.Write("p.exe", "x");
    folder.Write("k.xml", Pack({PackItself("k.xml", "1"), Member("a"), Member("b 3:c")}));
  }

  static Descriptor Member(const std::string& code) {
    return Package(code).Set("xmlFilename", "p.exe").Set("payload", "p.exe").Set("Version", "1.0");
  }
};

TEST_F(GuardedHostTest, PrintsWhatTheChildFound) {
  WriteOfferedPackages();
  const Outcome outcome = Run({});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "a 1.0\nb 3:c 1.0\n");
}

TEST_F(GuardedHostTest, AQueryThatHangsIsEnded) {
  WritePackage("a");
  folder.Write("k.xml", "<CIM><!-- ORXQDL_SystemUpdateProduct --><INSTANCE NAME=\"a\"/></CIM>");
  const Outcome outcome = Run({"--seconds", "1"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("guarded-host: the query did not end within 1 s\n"));
}

TEST_F(GuardedHostTest, AQueryThatAbortsIsReported) {
  folder.Write("bad.xml", Package("bad")
                              .Set("driverFiles", {"x-#1", "y-#1"})
                              .Set("driverFilesClassification", {"one"})
                              .Individual());
  const Outcome outcome = Run({});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("guarded-host: the query failed\n"));
}

TEST_F(GuardedHostTest, ARefusedQueryIsReported) {
  const Outcome outcome = Run({}, "12");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("the query returned 2\n"));
}

TEST_F(GuardedHostTest, WrongCommandLinesAreRefused) {
  for (const Arguments& wrong : {Arguments{"--seconds", "x"}, Arguments{"--mebibytes", "2000000"},
                                 Arguments{"a third operand"}}) {
    const Outcome outcome = Run(wrong);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("usage: "));
  }
}

#if !defined(_WIN32) && !defined(QUERYPACKAGE_TEST_SANITIZED)
TEST_F(GuardedHostTest, AQueryThatTakesTooMuchMemoryFails) {
  folder.Write("a.xml", Package("a").Individual() + "<!--" + std::string(40'000'000, ' ') + "-->");
  const Outcome outcome = Run({"--mebibytes", "80"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("guarded-host: std::bad_alloc\n"));
  EXPECT_EQ(Run({}).status, 0);
}
#endif

}  // namespace
}  // namespace Vornik::Testing
