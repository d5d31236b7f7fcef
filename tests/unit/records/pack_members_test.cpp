#include "records/pack_members.h"

#include <gtest/gtest.h>

#include "text/paths.h"

namespace Vornik {
namespace {

std::string In(const char* name) { return PathInFolder("dir", name); }

std::vector<std::string> FilesOf(const std::vector<const char*>& names) {
  std::vector<SupXmlProperties> instances;
  for (const char* name : names) instances.push_back({{"XMLFILENAME", "", {name}}});
  std::vector<std::string> files;
  for (const PackageXmlEntry& entry : MembersOfPack("dir/P.xml", instances)) {
    files.push_back(entry.xmlFile);
    EXPECT_EQ(In(entry.properties.at(0).values.at(0).c_str()), entry.xmlFile);
  }
  return files;
}

TEST(MembersOfPack, OwnInstancesFirstInReverseOthersInOrder) {
  using Files = std::vector<std::string>;
  EXPECT_EQ(FilesOf({}), Files{});
  EXPECT_EQ(FilesOf({"a.xml", "P.xml", "b.xml"}), (Files{In("P.xml"), In("a.xml"), In("b.xml")}));
  EXPECT_EQ(FilesOf({"", "a.xml", "P.xml"}), (Files{In("P.xml"), In(""), In("a.xml")}));
  EXPECT_EQ(FilesOf({"b.xml", "a.xml"}), (Files{In("b.xml"), In("a.xml")}));
}

TEST(OrderMembers, CountsThePacksOwnInstances) {
  using Indices = std::vector<std::size_t>;
  const MemberOrder order = OrderMembers("dir/P.xml", {"a.xml", "", "p.xml", "P.xml"});
  EXPECT_EQ(order.instances, (Indices{3, 1, 0, 2}));
  EXPECT_EQ(order.ownInstances, 2U);
  EXPECT_EQ(OrderMembers("dir/P.xml", {"a.xml"}).ownInstances, 0U);
}

}  // namespace
}  // namespace Vornik
