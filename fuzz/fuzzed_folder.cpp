#include "fuzzed_folder.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "plain_cimxml.h"
#include "plain_markers.h"
#include "requirement.h"

namespace Vornik::Fuzzing {

namespace {

using Testing::PlainFile;
using Kind = PlainFile::Kind;

Kind KindOf(const DescriptorMarkers& markers, const Testing::PlainContent& content) {
  if (markers.pack) {
    if (!content.loaded) return Kind::BrokenPack;
    return content.hasRoot ? Kind::Pack : Kind::RootlessPack;
  }
  if (!markers.individual) return Kind::Neither;
  if (!content.loaded) return Kind::BrokenIndividual;
  return content.hasRoot ? Kind::Individual : Kind::RootlessIndividual;
}

}  // namespace

FuzzedFolder::FuzzedFolder() {
  std::filesystem::create_directory(folder_.Path() + "/folder.xml");
  std::filesystem::create_directory(folder_.Path() + "/sub");
  folder_.Write("sub/p.exe", "bytes");
}

void FuzzedFolder::Hold(const std::map<std::string, std::string>& files) {
  for (const auto& [name, bytes] : files_) {
    if (files.count(name) != 0) continue;
    Require(std::remove((folder_.Path() + "/" + name).c_str()) == 0, "a file that can be removed");
  }
  for (const auto& [name, bytes] : files) {
    const auto before = files_.find(name);
    if (before == files_.end() || before->second != bytes) folder_.Write(name, bytes);
  }
  files_ = files;
}

Testing::PlainFolder FuzzedFolder::Plain() const {
  Testing::PlainFolder plain;
  std::map<std::string, PlainFile> byName;
  byName["folder.xml"] = {"folder.xml", Kind::Neither, {}};
  for (const auto& [name, bytes] : files_) byName[name] = PlainFileOf(name, bytes);
  for (const auto& [name, file] : byName) plain.files.push_back(file);
  plain.holdsFile = [this](const std::string& name) { return HoldsFile(name); };
  return plain;
}

// A name may lead anywhere, so this checks the file system, through another library than the
// product's.
bool FuzzedFolder::HoldsFile(const std::string& name) const {
  try {
    std::error_code error;
    return std::filesystem::is_regular_file(folder_.Path() + "/" + name, error);
  } catch (const std::system_error&) {
    return false;  // the name is not text in the file system's encoding
  }
}

PlainFile PlainFileOf(const std::string& name, const std::string& bytes) {
  const Testing::PlainContent content = Testing::PlainContentOf(bytes);
  PlainFile file{name, KindOf(Testing::PlainMarkersInBytes(bytes), content), {}};
  if (file.kind == Kind::Individual) file.instances = {content.properties};
  if (file.kind == Kind::Pack) file.instances = content.instances;
  return file;
}

}  // namespace Vornik::Fuzzing
