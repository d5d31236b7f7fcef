// Which folder gives which code or exception, as docs/host-engineers.md lists them.
#include <boost/filesystem/operations.hpp>
#include <exception>

#include "captured_stdout.h"
#include "host_fixture.h"
#include "unqueryable_folder.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace Vornik::Testing {
namespace {

class FolderCodeTest : public HostTest {
 protected:
  // Records that only a query can remove.
  FolderCodeTest() { results.resize(3); }

  int Query(const std::string& path) {
    QueryPackage query;
    Prepare(query);
    query.SetXMLPackageFolder(path);
    const CapturedStdout reason;
    return query.RunQuery(results);
  }

  bool Throws(const std::string& path) {
    try {
      Query(path);
      return false;
    } catch (const std::exception&) {
      return true;
    }
  }

  std::string PathOf(const std::string& name) const { return folder.Path() + "/" + name; }
};

TEST_F(FolderCodeTest, NoFolderIsAnInvalidParameter) {
  folder.Write("file", "");
  for (const std::string& path : {std::string(), PathOf("none"), PathOf("file")}) {
    EXPECT_EQ(Query(path), QueryCode::InvalidParameter) << path;
    EXPECT_EQ(results.size(), 3U) << path;
  }
}

TEST_F(FolderCodeTest, AFolderThatCannotBeLookedAtThrows) {
  EXPECT_TRUE(Throws(UnqueryableFolder()));
  EXPECT_EQ(results.size(), 3U);
}

#ifndef _WIN32
TEST_F(FolderCodeTest, ALoopOfLinksThrows) {
  const std::string loop = PathOf("loop");
  boost::filesystem::create_symlink(loop, loop);
  EXPECT_TRUE(Throws(loop));
  EXPECT_EQ(results.size(), 3U);
}

TEST_F(FolderCodeTest, PermissionsDecideWhatCanBeRead) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser may read everything";
  namespace fs = boost::filesystem;
  const std::string inner = PathOf("outer/inner");
  fs::create_directories(inner);
  fs::permissions(inner, fs::no_perms);
  EXPECT_EQ(Query(inner), QueryCode::FolderFailed);
  fs::permissions(PathOf("outer"), fs::no_perms);
  EXPECT_TRUE(Throws(inner));
  fs::permissions(PathOf("outer"), fs::owner_all);
  fs::permissions(inner, fs::owner_all);
  EXPECT_EQ(results.size(), 3U);
}
#endif

TEST_F(FolderCodeTest, NoDescriptorThatLoadsLeavesTheVectorAlone) {
  const TempFolder empty;
  EXPECT_EQ(Query(empty.Path()), QueryCode::NoResults);
  empty.Write("broken.xml", "<CIM><!-- SystemUpdateElement -->");
  EXPECT_EQ(Query(empty.Path()), QueryCode::NoResults);
  EXPECT_EQ(results.size(), 3U);
}

TEST_F(FolderCodeTest, PacksForOtherMachinesAloneEmptyTheVector) {
  const TempFolder packs;
  packs.Write("pack.xml", Pack({Descriptor("pack")
                                    .Set("xmlFilename", "pack.xml")
                                    .Set("applicableMachineTypes", {"5678"})
                                    .Set("applicableOperatingSystems", {"10"}),
                                Descriptor("member").Set("xmlFilename", "member.xml")}));
  EXPECT_EQ(Query(packs.Path()), QueryCode::NoResults);
  EXPECT_TRUE(results.empty());
}

TEST_F(FolderCodeTest, ASoundDescriptorBesideABrokenOneIsARecord) {
  folder.Write("broken.xml", "<CIM><!-- SystemUpdateElement -->");
  EXPECT_EQ(Query(folder.Path()), QueryCode::Completed);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].identificationCode, "a");
}

}  // namespace
}  // namespace Vornik::Testing
