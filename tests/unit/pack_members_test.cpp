#include "pack_members.h"

#include <gtest/gtest.h>

#include "package_paths.h"

namespace Vornik {
namespace {

std::vector<std::string> FilesOf(const std::vector<const char*>& names) {
  PackMembers members("dir/P.xml");
  for (const char* name : names) members.Add({{"XMLFILENAME", "", {name}}});
  std::vector<std::string> files;
  for (const PackageXmlEntry& entry : members.Take()) files.push_back(entry.xmlFile);
  EXPECT_TRUE(members.Take().empty());
  return files;
}

std::string In(const char* name) { return PathInFolder("dir", name); }

TEST(PackMembers, OwnInstancesFirstInReverseOthersInOrder) {
  using Files = std::vector<std::string>;
  EXPECT_EQ(FilesOf({}), Files{});
  EXPECT_EQ(FilesOf({"a.xml", "P.xml", "b.xml"}), (Files{In("P.xml"), In("a.xml"), In("b.xml")}));
  EXPECT_EQ(FilesOf({"", "a.xml", "P.xml"}), (Files{In("P.xml"), In(""), In("a.xml")}));
  EXPECT_EQ(FilesOf({"b.xml", "a.xml"}), (Files{In("b.xml"), In("a.xml")}));
}

}  // namespace
}  // namespace Vornik
