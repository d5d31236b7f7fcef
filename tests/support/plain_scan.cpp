#include "plain_scan.h"

#include "plain_properties.h"

namespace Vornik::Testing {

namespace {

using Kind = PlainFile::Kind;

bool EndsInXml(const std::string& name) {
  return name.size() >= 4 && name.substr(name.size() - 4) == ".xml";
}

std::string WithPreferredSeparators(std::string path) {
  for (char& c : path) {
    if (c == '/') c = PlainSeparator();
  }
  return path;
}

void LoadPack(const PlainFile& file, const std::string& path, QueryPackageImp& query,
              PlainLog& log) {
  log.Progress("Load Kovu XML file: " + path);
  if (file.kind == Kind::BrokenPack) {
    log.Error("Faile to load Kovu XML: " + path);
    return;
  }
  log.Progress("Load Kovu XML's root node");
  if (file.kind == Kind::RootlessPack) {
    log.Error("Faile to load Kovu XML's root node");
    return;
  }
  if (file.instances.empty()) {
    log.Error("UpdateElements in Kovu is empty");
    return;
  }
  KovuPackEntry pack{path, {}};
  for (const SupXmlProperties& properties : file.instances) {
    log.Progress("Get Kovu's UpdateElement XML's property value");
    if (properties.empty()) {
      log.Error("Faile to load Kovu's UpdateElement XML's property value");
      continue;
    }
    const std::string name = PlainValue("xmlFilename", properties);
    const std::string member =
        WithPreferredSeparators(query.xmlPackageFolder + PlainSeparator() + name);
    const bool isPackItself = name.empty() || name == file.name;
    pack.members.insert(isPackItself ? pack.members.begin() : pack.members.end(),
                        PackageXmlEntry{member, properties});
  }
  query.repository.Add(pack);
}

void LoadIndividual(const PlainFile& file, const std::string& path, QueryPackageImp& query,
                    PlainLog& log) {
  log.Progress("Load Package XML file: " + path);
  if (file.kind == Kind::BrokenIndividual) {
    log.Error("Faile to load Package XML: " + path);
    return;
  }
  log.Progress("Load Package XML's root node");
  if (file.kind == Kind::RootlessIndividual) {
    log.Error("Faile to load Package XML's root node");
    return;
  }
  log.Progress("Get Package XML's property value");
  if (file.instances.at(0).empty()) {
    log.Error("Faile to load Package XML's property value");
    return;
  }
  query.repository.Add(PackageXmlEntry{path, file.instances.at(0)});
}

bool IsPack(const PlainFile& file) {
  return file.kind == Kind::Pack || file.kind == Kind::BrokenPack ||
         file.kind == Kind::RootlessPack;
}

void Load(const PlainFile& file, QueryPackageImp& query, PlainLog& log) {
  const std::string path = query.xmlPackageFolder + PlainSeparator() + file.name;
  if (IsPack(file)) {
    log.Progress(path + " is Kovu xml");
    LoadPack(file, path, query, log);
    return;
  }
  log.Progress(path + " is not Kovu xml");
  if (file.kind == Kind::Neither || file.kind == Kind::Folder) {
    log.Progress(path + " is not individual xml");
    log.Error(file.name + " is not a valid ORX xml");
    return;
  }
  log.Progress(path + " is individual xml");
  LoadIndividual(file, path, query, log);
}

}  // namespace

char PlainSeparator() {
#ifdef _WIN32
  return '\\';
#else
  return '/';
#endif
}

void PlainScan(const std::vector<PlainFile>& files, QueryPackageImp& query, PlainLog& log) {
  for (const PlainFile& file : files) {
    if (EndsInXml(file.name)) Load(file, query, log);
  }
}

}  // namespace Vornik::Testing
