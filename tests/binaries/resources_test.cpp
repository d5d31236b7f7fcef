// The resources of the Windows files: what their properties show, and the program's manifest.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Testing {
namespace {

// A file's version resource; empty if it has none.
std::vector<char> VersionResource(const std::string& file) {
  std::vector<char> resource(GetFileVersionInfoSizeA(file.c_str(), nullptr));
  const auto size = static_cast<DWORD>(resource.size());
  if (GetFileVersionInfoA(file.c_str(), 0, size, resource.data()) == 0) resource.clear();
  return resource;
}

std::string TextIn(const std::vector<char>& resource, const std::string& name) {
  const std::string path = "\\StringFileInfo\\040904B0\\" + name;
  void* text = nullptr;
  UINT length = 0;
  if (VerQueryValueA(resource.data(), path.c_str(), &text, &length) == 0) return "missing";
  return static_cast<const char*>(text);
}

VS_FIXEDFILEINFO NumbersIn(const std::vector<char>& resource) {
  void* numbers = nullptr;
  UINT length = 0;
  if (VerQueryValueA(resource.data(), "\\", &numbers, &length) == 0) return {};
  return *static_cast<const VS_FIXEDFILEINFO*>(numbers);
}

std::string ManifestOf(const std::string& file) {
  const std::unique_ptr<std::remove_pointer_t<HMODULE>, decltype(&FreeLibrary)> module(
      LoadLibraryExA(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE), &FreeLibrary);
  const HRSRC found = FindResourceA(module.get(), MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(24));
  if (found == nullptr) return {};
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module.get(), found)));
  return {bytes, SizeofResource(module.get(), found)};
}

struct File {
  const char* path;
  const char* name;
  DWORD type;
};

class ResourcesTest : public testing::TestWithParam<File> {};

TEST_P(ResourcesTest, NameTheFileAndItsVersion) {
  const std::vector<char> resource = VersionResource(GetParam().path);
  ASSERT_FALSE(resource.empty());
  EXPECT_EQ(TextIn(resource, "FileVersion"), QUERYPACKAGE_VERSION_STRING);
  EXPECT_EQ(TextIn(resource, "ProductVersion"), QUERYPACKAGE_VERSION_STRING);
  EXPECT_EQ(TextIn(resource, "ProductName"), "querypackage");
  EXPECT_EQ(TextIn(resource, "OriginalFilename"), GetParam().name);

  const VS_FIXEDFILEINFO numbers = NumbersIn(resource);
  EXPECT_EQ(numbers.dwFileVersionMS,
            DWORD{QUERYPACKAGE_VERSION_MAJOR} << 16U | DWORD{QUERYPACKAGE_VERSION_MINOR});
  EXPECT_EQ(numbers.dwFileVersionLS, DWORD{QUERYPACKAGE_VERSION_PATCH} << 16U);
  EXPECT_EQ(numbers.dwProductVersionMS, numbers.dwFileVersionMS);
  EXPECT_EQ(numbers.dwProductVersionLS, numbers.dwFileVersionLS);
  EXPECT_EQ(numbers.dwFileType, GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Files, ResourcesTest,
                         testing::Values(File{QUERYPACKAGE_DLL, "querypackage.dll", VFT_DLL},
                                         File{VORNIKLOG_DLL, "vorniklog.dll", VFT_DLL},
                                         File{QUERYPACKAGE_CLI, "querypackage-cli.exe", VFT_APP}));

TEST(Manifest, AsksForUtf8AndLongPaths) {
  const std::string manifest = ManifestOf(QUERYPACKAGE_CLI);
  EXPECT_THAT(manifest, testing::HasSubstr(">UTF-8</activeCodePage>"));
  EXPECT_THAT(manifest, testing::HasSubstr(">true</longPathAware>"));
}

}  // namespace
}  // namespace Vornik::Testing
