#include "text/paths.h"

#include <gtest/gtest.h>

namespace Vornik {
namespace {

struct PathCase {
  const char* folderOrPack;
  const char* name;
  const char* path;
};

TEST(PackagePaths, MemberPathWithSlashes) {
  for (const PathCase& c :
       {PathCase{"/pkgs/P.xml", "m1.xml", "/pkgs/m1.xml"},
        PathCase{"/pkgs/P.xml", "sub/m3.xml", "/pkgs/sub/m3.xml"},
        PathCase{"/pkgs/P.xml", "", "/pkgs/"},
        PathCase{"/pkgs/P.xml", "../m.xml", "/pkgs/../m.xml"},
        PathCase{"/pkgs/P.xml", "a\\b.xml", "/pkgs/a\\b.xml"}, PathCase{"P.xml", "m.xml", "/m.xml"},
        PathCase{"/P.xml", "m.xml", "//m.xml"}}) {
    EXPECT_EQ(MemberPath(c.folderOrPack, c.name, '/'), c.path);
  }
}

TEST(PackagePaths, MemberPathWithBackslashes) {
  for (const PathCase& c :
       {PathCase{"C:/pkgs/P.xml", "m1.xml", "C:\\pkgs\\m1.xml"},
        PathCase{"C:/pkgs/P.xml", "P.xml", "C:\\pkgs\\P.xml"},
        PathCase{"C:/pkgs/P.xml", "sub/m3.xml", "C:\\pkgs\\sub\\m3.xml"},
        PathCase{"C:/pkgs/P.xml", "", "C:\\pkgs\\"},
        PathCase{"C:/pkgs/P.xml", "..\\m.xml", "C:\\pkgs\\..\\m.xml"},
        PathCase{"//server/share/P.xml", "m.xml", "\\\\server\\share\\m.xml"},
        PathCase{"/P.xml", "m.xml", "\\\\m.xml"}, PathCase{"P.xml", "m.xml", "\\m.xml"}}) {
    EXPECT_EQ(MemberPath(c.folderOrPack, c.name, '\\'), c.path);
  }
}

TEST(PackagePaths, PathInFolderWithSlashes) {
  for (const PathCase& c :
       {PathCase{"/pkgs", "p.exe", "/pkgs/p.exe"}, PathCase{"/pkgs/", "p.exe", "/pkgs//p.exe"},
        PathCase{"/pkgs", "sub/p.exe", "/pkgs/sub/p.exe"},
        PathCase{"/pkgs", "sub\\p.exe", "/pkgs/sub\\p.exe"}, PathCase{".", "p", "./p"}}) {
    EXPECT_EQ(PathInFolder(c.folderOrPack, c.name, '/'), c.path);
  }
}

TEST(PackagePaths, PathInFolderWithBackslashes) {
  for (const PathCase& c :
       {PathCase{"C:\\pkgs", "p.exe", "C:\\pkgs\\p.exe"},
        PathCase{"C:\\pkgs\\", "p.exe", "C:\\pkgs\\\\p.exe"},
        PathCase{"C:/pkgs/", "p.exe", "C:\\pkgs\\\\p.exe"},
        PathCase{"C:\\", "p.exe", "C:\\\\p.exe"},
        PathCase{"C:\\pkgs", "sub\\p.exe", "C:\\pkgs\\sub\\p.exe"},
        PathCase{"C:/pkgs", "sub/p.exe", "C:\\pkgs\\sub\\p.exe"}, PathCase{".", "p", ".\\p"}}) {
    EXPECT_EQ(PathInFolder(c.folderOrPack, c.name, '\\'), c.path);
  }
}

TEST(PackagePaths, SeparatorIsThePlatformsPreferredOne) {
#ifdef _WIN32
  EXPECT_EQ(PathInFolder("dir", "sub/p"), "dir\\sub\\p");
  EXPECT_EQ(MemberPath("dir/P.xml", "sub/m.xml"), "dir\\sub\\m.xml");
#else
  EXPECT_EQ(PathInFolder("dir", "sub/p"), "dir/sub/p");
  EXPECT_EQ(MemberPath("dir/P.xml", "sub/m.xml"), "dir/sub/m.xml");
#endif
}

TEST(PackagePaths, BackslashEndsAFolder) {
  EXPECT_EQ(MemberPath("C:\\pkgs\\P.xml", "m1.xml", '\\'), "C:\\pkgs\\m1.xml");
  EXPECT_EQ(MemberPath("C:\\pkgs/sub\\P.xml", "m1.xml", '\\'), "C:\\pkgs\\sub\\m1.xml");
  EXPECT_EQ(MemberPath("\\\\server\\share\\P.xml", "m.xml", '\\'), "\\\\server\\share\\m.xml");
  EXPECT_EQ(FileStem("C:\\pkgs\\pack_a.xml", '\\'), "pack_a");
  EXPECT_EQ(FileStem("C:\\pkgs.d\\pack", '\\'), "pack");
  EXPECT_EQ(FileStem("C:\\pkgs\\", '\\'), ".");
  EXPECT_TRUE(IsSelfInstance("C:\\pkgs\\P.xml", "P.xml", '\\'));
  EXPECT_FALSE(IsSelfInstance("C:\\pkgs\\P.xml", "p.xml", '\\'));
  EXPECT_FALSE(IsSelfInstance("C:\\pkgs\\P.xml", "pkgs\\P.xml", '\\'));
}

#ifdef _WIN32
TEST(PackagePaths, DriveEndsAFolder) {
  EXPECT_EQ(MemberPath("C:\\P.xml", "m.xml"), "C:\\\\m.xml");
  EXPECT_EQ(FileStem("C:pack_a.xml"), "pack_a");
  EXPECT_TRUE(IsSelfInstance("C:P.xml", "P.xml"));
}
#else
TEST(PackagePaths, BackslashIsALetterOnThisSystem) {
  EXPECT_EQ(FileStem("dir\\pack_a.xml"), "dir\\pack_a");
  EXPECT_FALSE(IsSelfInstance("dir\\P.xml", "P.xml"));
  EXPECT_TRUE(IsSelfInstance("dir\\P.xml", "dir\\P.xml"));
}

#endif

TEST(PackagePaths, OwnInstanceNamesNoFileOrThePackItself) {
  EXPECT_TRUE(IsSelfInstance("dir/P.xml", ""));
  EXPECT_TRUE(IsSelfInstance("dir/P.xml", "P.xml"));
  for (const char* other : {"p.xml", "P.XML", "dir/P.xml", "P.xml ", "./P.xml", "P"}) {
    EXPECT_FALSE(IsSelfInstance("dir/P.xml", other)) << other;
  }
}

TEST(PackagePaths, HasDescriptorExtension) {
  const std::pair<std::string, bool> cases[] = {
      {"a.xml", true},     {"a.b.xml", true},  {".xml", true},   {"/p/a b.xml", true},
      {"", false},         {"xml", false},     {"a.XML", false}, {"a.xml.bak", false},
      {"a.xml ", false},   {"axml", false},    {"a.xm", false},  {"a.xmll", false},
      {"/p.xml/a", false}, {"/p.xml/", false},
  };
  for (const auto& [path, expected] : cases) {
    EXPECT_EQ(HasDescriptorExtension(path), expected) << path;
    EXPECT_EQ(HasDescriptorExtension(std::wstring(path.begin(), path.end())), expected) << path;
  }
}

TEST(PackagePaths, FileStem) {
  for (const auto& [path, stem] :
       {std::pair{"dir/pack_a.xml", "pack_a"}, std::pair{"dir/p.1.xml", "p.1"},
        std::pair{"dir/.xml", ""}, std::pair{"dir/p", "p"}, std::pair{"", ""}, std::pair{".", "."},
        std::pair{"dir/..", ".."}, std::pair{"dir/", "."}}) {
    EXPECT_EQ(FileStem(path), stem) << path;
  }
}

TEST(PackagePaths, ContainsXmlExtension) {
  for (const char* path : {"a.xml", ".xml", "a.xml.bak", "dir.xml/a"}) {
    EXPECT_TRUE(ContainsXmlExtension(path)) << path;
  }
  for (const char* path : {"", "a.XML", "xml", "a.xm"})
    EXPECT_FALSE(ContainsXmlExtension(path)) << path;
}

}  // namespace
}  // namespace Vornik
