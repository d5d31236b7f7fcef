// What RunQuery refuses before it reads anything, and how it says so.
#include <boost/filesystem/exception.hpp>
#include <fstream>

#include "captured_stdout.h"
#include "global_locale.h"
#include "query_fixture.h"
#include "unqueryable_folder.h"

namespace Vornik::Testing {
namespace {

class ParameterCheckTest : public QueryTest {
 protected:
  // Runs a query that is to be refused with that report, on the log and on standard output.
  void ExpectRefusal(const std::string& report) {
    results = {RecordOf("kept")};
    RecordingLog::Reset();
    const CapturedStdout out;
    EXPECT_EQ(Run(), QueryCode::InvalidParameter);
    EXPECT_EQ(out.Text(), report);
    EXPECT_EQ(Log(), (Lines{"3 Check parameter validity - Start", "1 " + report}));
    EXPECT_EQ(Codes(), Lines{"kept"});
  }

  void ExpectAccepted() {
    const CapturedStdout out;
    EXPECT_TRUE(imp.CheckParameterValidity());
    EXPECT_EQ(out.Text(), "");
    EXPECT_EQ(Log(), Lines{});
  }
};

TEST_F(ParameterCheckTest, NewObjectHasNoFolder) {
  imp = QueryPackageImp();
  ExpectRefusal("xml package folder is not set");
}

TEST_F(ParameterCheckTest, FolderIsARegularFile) {
  imp.xmlPackageFolder = folder.Write("plain", "x");
  ExpectRefusal("xml package folder: " + imp.xmlPackageFolder + " is not valid folder");
}

TEST_F(ParameterCheckTest, FolderIsMissing) {
  imp.xmlPackageFolder = PathOf("missing");
  ExpectRefusal("xml package folder: " + imp.xmlPackageFolder + " is not valid folder");
}

TEST_F(ParameterCheckTest, FolderIsReportedExactlyAsSet) {
  imp.xmlPackageFolder = folder.Path() + "/./no such//folder/";
  ExpectRefusal("xml package folder: " + imp.xmlPackageFolder + " is not valid folder");
}

TEST_F(ParameterCheckTest, FolderMayEndInASeparator) {
  imp.xmlPackageFolder = folder.Path() + "/";
  ExpectAccepted();
}

TEST_F(ParameterCheckTest, MachineTypeIsEmpty) {
  imp.machineType = "";
  ExpectRefusal("MachineType is not set");
}

TEST_F(ParameterCheckTest, MachineTypeIsNotFourDigits) {
  for (const char* machineType : {"123", "12345", "12a4", " 123", "123 ", "-123",
                                  "12\xE9"
                                  "4"}) {
    SCOPED_TRACE(machineType);
    imp.machineType = machineType;
    ExpectRefusal("MachineType is invalid");
  }
}

TEST_F(ParameterCheckTest, MachineTypeHoldsAZeroByte) {
  imp.machineType = std::string(
      "12\0"
      "4",
      4);
  ExpectRefusal("MachineType is invalid");
}

TEST_F(ParameterCheckTest, MachineTypeWithALeadingZeroPasses) {
  imp.machineType = "0123";
  ExpectAccepted();
}

TEST_F(ParameterCheckTest, DigitsAreThoseOfTheGlobalLocale) {
  const GlobalLocaleGuard guard(std::locale(std::locale(), new HexLettersAreDigits));
  imp.machineType = "12af";
  ExpectAccepted();
  imp.machineType = "1239";
  ExpectRefusal("MachineType is invalid");
}

TEST_F(ParameterCheckTest, OsIsCheckedBeforeArc) {
  imp.osValue = OsValue::NotSet;
  imp.arcValue = ArcValue::NotSet;
  ExpectRefusal("OS is not set");
}

TEST_F(ParameterCheckTest, ArcIsNotSet) {
  imp.arcValue = ArcValue::NotSet;
  ExpectRefusal("Arc is not set");
}

TEST_F(ParameterCheckTest, IncludeListDrivesTheSearchForAnIdInBothLists) {
  imp.includePackageIds = {"A", "B"};
  imp.excludePackageIds = {"B", "A"};
  ExpectRefusal("A is in both IncludePackageIDs and ExcludePackageIDs");
}

TEST_F(ParameterCheckTest, IdsThatDifferInCaseAreNotTheSame) {
  imp.includePackageIds = {"a"};
  imp.excludePackageIds = {"A"};
  ExpectAccepted();
}

TEST_F(ParameterCheckTest, EmptyIdInBothLists) {
  imp.includePackageIds = {""};
  imp.excludePackageIds = {""};
  ExpectRefusal(" is in both IncludePackageIDs and ExcludePackageIDs");
}

TEST_F(ParameterCheckTest, OneEmptyListSkipsTheOverlapTest) {
  imp.includePackageIds = {"A"};
  ExpectAccepted();
  std::swap(imp.includePackageIds, imp.excludePackageIds);
  ExpectAccepted();
}

TEST_F(ParameterCheckTest, ReportsOfSeveralQueriesRunTogether) {
  const CapturedStdout out;
  imp.machineType = "";
  Run();
  imp.machineType = "12";
  Run();
  EXPECT_EQ(out.Text(), "MachineType is not setMachineType is invalid");
}

TEST_F(ParameterCheckTest, FailuresAreReportedInTheOrderOfTheChecks) {
  imp = QueryPackageImp();
  imp.includePackageIds = imp.excludePackageIds = {"A"};
  ExpectRefusal("xml package folder is not set");
  imp.xmlPackageFolder = folder.Path();
  ExpectRefusal("MachineType is not set");
  imp.machineType = "1";
  ExpectRefusal("MachineType is invalid");
  imp.machineType = "1234";
  ExpectRefusal("OS is not set");
  imp.osValue = os;
  ExpectRefusal("Arc is not set");
  imp.arcValue = arch;
  ExpectRefusal("A is in both IncludePackageIDs and ExcludePackageIDs");
}

TEST_F(ParameterCheckTest, FolderThatTheFileSystemCannotQueryThrows) {
  imp.xmlPackageFolder = UnqueryableFolder();
  const CapturedStdout out;
  results = {RecordOf("kept")};
  EXPECT_THROW(Run(), boost::filesystem::filesystem_error);
  EXPECT_EQ(Log(), Lines{"3 Check parameter validity - Start"});
  EXPECT_EQ(out.Text(), "");
  EXPECT_EQ(Codes(), Lines{"kept"});
}

#ifdef _WIN32

TEST_F(ParameterCheckTest, NameThatNoFolderOfThisSystemCanHaveIsNotValid) {
  for (const std::string& name : {std::string("a<b"), std::string("a*"), std::string("NUL"),
                                  std::string("CON"), std::string(100'000, 'x')}) {
    imp.xmlPackageFolder = name;
    ExpectRefusal("xml package folder: " + name + " is not valid folder");
  }
}

#endif

}  // namespace
}  // namespace Vornik::Testing
