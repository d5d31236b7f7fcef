// Whole queries of folders as they are named on Windows.
#ifdef _WIN32

#include <algorithm>
#include <boost/filesystem/operations.hpp>

#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

class WindowsPathsTest : public QueryTest {
 protected:
  // A pack whose member lies in a sub-folder, and an individual descriptor; both have a payload.
  void SetUp() override {
    boost::filesystem::create_directory(folder.Path() + "\\sub");
    folder.Write("sub\\m3.xml", "descriptor");
    folder.Write("sub\\m3.exe", "payload");
    folder.Write(
        "P.xml",
        Pack({Descriptor("p")
                  .Set("xmlFilename", "P.xml")
                  .Set("applicableMachineTypes", {"1234"})
                  .Set("applicableOperatingSystems", {"0"}),
              Descriptor("m3").Set("xmlFilename", "sub/m3.xml").Set("payload", "sub/m3.exe")}));
    WriteIndividual("a.xml", Descriptor().Set("xmlFilename", "a.xml").Set("payload", "a.exe"));
    folder.Write("a.exe", "payload");
  }

  // Queries the folder under that name and compares where the records are from.
  void ExpectRecords(const std::string& name, const std::string& member, const std::string& pack,
                     const std::string& individual) {
    SCOPED_TRACE(name);
    QueryPackageImp query;
    query.xmlPackageFolder = name;
    query.osValue = os;
    query.arcValue = arch;
    query.machineType = "1234";
    ASSERT_EQ(query.RunQuery(results), QueryCode::Completed);
    ASSERT_EQ(Codes(), (Lines{"m3", "a"}));
    EXPECT_EQ(results[0].packageXmlFile, member);
    EXPECT_EQ(results[0].kovuXmlFile, pack);
    EXPECT_EQ(results[0].kovuName, "P");
    EXPECT_EQ(results[1].packageXmlFile, individual);
    for (const QueryPackageResult& record : results) {
      EXPECT_EQ(record.payloadExistFilterStatus, FilterStatus::Matched);
    }
  }
};

TEST_F(WindowsPathsTest, MemberPathHasBackslashesAlone) {
  const std::string& path = folder.Path();
  ExpectRecords(path, path + "\\sub\\m3.xml", path + "\\P.xml", path + "\\a.xml");
}

TEST_F(WindowsPathsTest, TrailingBackslashIsTheOneThatTheScanPutsBehindTheFolder) {
  const std::string& path = folder.Path();
  ExpectRecords(path + "\\", path + "\\sub\\m3.xml", path + "\\P.xml", path + "\\a.xml");
}

TEST_F(WindowsPathsTest, ForwardSlashesOfTheFolderStayButInAMembersPath) {
  const std::string& path = folder.Path();
  std::string slashes = path;
  std::replace(slashes.begin(), slashes.end(), '\\', '/');
  ExpectRecords(slashes, path + "\\sub\\m3.xml", slashes + "\\P.xml", slashes + "\\a.xml");
}

TEST_F(WindowsPathsTest, ExtensionIsComparedExactlyThoughNamesAreNot) {
  folder.Write("B.XML", Descriptor("b").Individual());
  folder.Write("c.Xml", Descriptor("c").Individual());
  ASSERT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(Codes(), (Lines{"m3", "a"}));
}

}  // namespace
}  // namespace Vornik::Testing

#endif
