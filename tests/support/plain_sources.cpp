#include "plain_sources.h"

#include "plain_files.h"
#include "plain_properties.h"
#include "plain_results.h"

namespace Vornik::Testing {

namespace {

std::string CodeOf(const SupXmlProperties& properties) {
  return PlainValue("identificationCode", properties);
}

bool AreEqual(const SupXmlProperties& a, const SupXmlProperties& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i].name != b[i].name || a[i].values != b[i].values) return false;
  }
  return true;
}

}  // namespace

PlainSource PlainSourceOf(const QueryPackageImp& query, const std::string& code) {
  if (code.empty()) return {};
  for (const KovuPackEntry& pack : query.repository.kovuPackEntries()) {
    for (const PackageXmlEntry& member : pack.members) {
      if (CodeOf(member.properties) == code) return {pack.kovuXmlFile, member.properties};
    }
  }
  for (const PackageXmlEntry& entry : query.repository.packageXmlEntries()) {
    if (CodeOf(entry.properties) == code) return {entry.xmlFile, entry.properties};
  }
  return {};
}

std::vector<PlainSource> PlainBuiltFrom(const QueryPackageImp& query) {
  std::vector<PlainSource> built;
  PlainLog log;
  const int chosen = PlainPackChoice(query, log);
  if (chosen != -1) {
    const KovuPackEntry& pack =
        query.repository.kovuPackEntries()[static_cast<std::size_t>(chosen)];
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      built.push_back({pack.kovuXmlFile, pack.members[i].properties});
    }
  }
  for (const PackageXmlEntry& entry : query.repository.packageXmlEntries()) {
    built.push_back({entry.xmlFile, entry.properties});
  }
  return built;
}

PlainSource PlainOriginOf(const QueryPackageImp& query, const std::string& code) {
  for (const PlainSource& source : PlainBuiltFrom(query)) {
    if (CodeOf(source.properties) == code) return source;
  }
  return {};
}

std::string PlainPathOf(const PlainFacts& facts, const PlainFile& file) {
  std::string name = file.name;
  for (char& c : name) {
    if (c == '/') c = PlainSeparator();
  }
  return facts.query.xmlPackageFolder + PlainSeparator() + name;
}

PlainPlace PlainPlaceOf(const PlainFacts& facts, const PlainSource& source,
                        const std::string& property, bool isList) {
  for (const PlainFile& file : facts.folder.files) {
    if (PlainPathOf(facts, file) != source.file) continue;
    for (std::size_t i = 0; i < file.instances.size(); ++i) {
      if (!AreEqual(file.instances[i], source.properties)) continue;
      return {source.file, PlainLineOf(file, i, property, isList)};
    }
  }
  return {source.file, 0};
}

}  // namespace Vornik::Testing
