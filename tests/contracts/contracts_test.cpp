// The two contents of a folder that hang or abort the process that queries it.
#include <gtest/gtest.h>

#include "child_process.h"
#include "descriptors.h"
#include "temp_folder.h"

namespace Vornik::Testing {
namespace {

using namespace std::chrono_literals;

class ContractsTest : public testing::Test {
 protected:
  ChildOutcome Query(std::chrono::milliseconds limit) const {
    return RunChild(QUERYPACKAGE_CONTRACT_HOST, {folder.Path()}, limit);
  }

  void ExpectAbort(const Descriptor& descriptor, const std::vector<std::string>& lastLines) {
    folder.Write("a.xml", descriptor.Individual());
    const ChildOutcome outcome = Query(60s);
    EXPECT_TRUE(outcome.ended);
    EXPECT_TRUE(outcome.aborted) << outcome.exitStatus;
    ASSERT_GE(outcome.lines.size(), lastLines.size());
    const std::vector<std::string> end(
        outcome.lines.end() - static_cast<std::ptrdiff_t>(lastLines.size()), outcome.lines.end());
    EXPECT_EQ(end, lastLines);
  }

  TempFolder folder;
};

TEST_F(ContractsTest, HostAnswersASoundFolder) {
  folder.Write("a.xml", Descriptor("a").For("1234", "10", "9").Individual());
  const ChildOutcome outcome = Query(60s);
  EXPECT_TRUE(outcome.ended);
  EXPECT_FALSE(outcome.aborted);
  EXPECT_EQ(outcome.exitStatus, 0);
}

TEST_F(ContractsTest, InstanceThatDoesNotNameItsClassFirstMakesTheLoadSleep) {
  folder.Write("p.xml",
               "<CIM><!-- ORXQDL_SystemUpdateProduct --><INSTANCE ID='1' CLASSNAME='c'>"
               "<PROPERTY NAME='x'/></INSTANCE></CIM>");
  const std::string lastLine = "3 Load Kovu XML's root node";
  const SleepingChild child =
      RunChildUntilItSleeps(QUERYPACKAGE_CONTRACT_HOST, {folder.Path()}, lastLine, 60s);
  EXPECT_TRUE(child.sleeps);
  ASSERT_FALSE(child.lines.empty());
  EXPECT_EQ(child.lines.back(), lastLine);
}

TEST_F(ContractsTest, FewerClassificationsThanDriverFilesAbortTheProcess) {
  ExpectAbort(Descriptor("a")
                  .Set("driverFiles", {"a.sys-#1", "b.sys-#2"})
                  .Set("driverFilesClassification", {"x"}),
              {"3 Create Query Package Results - Start"});
}

TEST_F(ContractsTest, LineOfAValueThatDoesNotParseComesFirst) {
  ExpectAbort(
      Descriptor("a")
          .Set("driverFiles", {"a.sys-#1", "bad"})
          .Set("driverFilesClassification", {"x"}),
      {"3 Create Query Package Results - Start", "2 Fail to parse driverFiles's property value"});
}

}  // namespace
}  // namespace Vornik::Testing
