#include "explain/written_folder.h"

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>

#include <map>

#include "plain_files.h"
#include "plain_properties.h"

namespace Vornik::Testing {

namespace {

// By a query.
bool IsRead(const std::string& name) {
  const bool isXml = name.size() >= 4 && name.substr(name.size() - 4) == ".xml";
  return isXml && name.find('/') == std::string::npos;
}

// Lists that suit many queries, so that a package can be offered.
void Suit(SupXmlProperties& properties, RandomPick& pick) {
  const auto add = [&properties](const char* name, const std::string& value) {
    properties.push_back({name, "string", {value}});
  };
  add("orderedMachineTypeList", pick.Of<std::string>({"1234", "5678"}));
  add("orderedOSList", pick.Of<std::string>({"10", "11", "0"}));
  add("orderedOSArchitectureList", pick.Of<std::string>({"9", "5", "0"}));
}

// A second code after the first one, which is then lost.
void RepeatCode(SupXmlProperties& properties, RandomPick& pick) {
  properties.push_back(
      {"identificationCode", "string", {pick.Of<std::string>({"a", "b", "second"})}});
}

// A pack none of whose instances is its own, so that the first one is taken for the pack.
void LoseOwnInstance(PlainFile& pack) {
  for (SupXmlProperties& properties : pack.instances) {
    if (!properties.empty()) properties.push_back({"xmlFilename", "string", {"other.xml"}});
  }
}

PlainFile WriteOne(RandomRepository& random, const std::string& name, const TempFolder& folder) {
  RandomPick& pick = random.Pick();
  if (pick.OneIn(20)) {
    boost::filesystem::create_directory(folder.Path() + "/" + name);
    return {name, PlainFile::Kind::Folder, {}};
  }
  PlainFile file = RandomPlainFile(random, name);
  if (file.kind == PlainFile::Kind::Pack && pick.OneIn(5)) LoseOwnInstance(file);
  for (SupXmlProperties& properties : file.instances) {
    if (!properties.empty() && pick.OneIn(2)) Suit(properties, pick);
    if (!properties.empty() && pick.OneIn(10)) RepeatCode(properties, pick);
  }
  folder.Write(name, TextOf(file));
  return AsRead(file);
}

void AddIds(const PlainFile& file, std::set<std::string>& ids) {
  ids.insert(file.name.substr(0, file.name.rfind('.')));
  ids.insert(file.name);
  for (const SupXmlProperties& properties : file.instances) {
    for (const SupXmlProperty& property : properties) {
      if (!PlainSameName(property.name, "identificationCode")) continue;
      ids.insert(property.values.begin(), property.values.end());
    }
  }
}

}  // namespace

WrittenFolder WriteRandomFolder(RandomRepository& random, const TempFolder& folder) {
  boost::filesystem::create_directory(folder.Path() + "/sub");
  std::map<std::string, PlainFile> files;
  for (const char* name :
       {"a.xml", "b.xml", "c.d.xml", ".xml", "g.xml", "x.xml", "e.XML", "f.xml.bak", "sub/s.xml"}) {
    if (!random.Pick().OneIn(3)) files[name] = WriteOne(random, name, folder);
  }
  std::set<std::string> regular{"p.exe", "sub/r.exe"};
  for (const std::string& name : regular) folder.Write(name, "bytes");
  WrittenFolder written;
  for (const auto& [name, file] : files) {
    if (file.kind == PlainFile::Kind::Folder) continue;
    regular.insert(name);
    if (!IsRead(name)) written.unread.push_back(file);
  }
  for (const auto& entry : boost::filesystem::directory_iterator(folder.Path())) {
    const auto file = files.find(entry.path().filename().string());
    if (file != files.end() && IsRead(file->first)) written.plain.files.push_back(file->second);
  }
  written.plain.holdsFile = [regular](const std::string& name) { return regular.count(name) != 0; };
  return written;
}

std::set<std::string> IdsFor(const WrittenFolder& written) {
  std::set<std::string> ids{"", "a", "A", "X", "UNKNOWN", "sub", "s", "S.XML"};
  for (const PlainFile& file : written.plain.files) AddIds(file, ids);
  for (const PlainFile& file : written.unread) AddIds(file, ids);
  return ids;
}

}  // namespace Vornik::Testing
