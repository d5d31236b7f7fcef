#include "random_folder.h"

#include <boost/filesystem/operations.hpp>

#include "model/folder_reading.h"

namespace Vornik::Testing {

namespace {

Descriptor WithProperties(const SupXmlProperties& properties) {
  Descriptor descriptor;
  for (const SupXmlProperty& property : properties) {
    descriptor.Set(property.name, property.values);
  }
  return descriptor;
}

// Half of them with ordered lists of one machine, so that many can be offered.
Descriptor RandomPackage(RandomRepository& random) {
  Descriptor package = WithProperties(random.Package());
  RandomPick& pick = random.Pick();
  if (pick.OneIn(2)) {
    const auto machineType = pick.Of<std::string>({"1234", "5678"});
    const auto os = pick.Of<std::string>({"10", "11", "0"});
    package.For(machineType, os, pick.Of<std::string>({"9", "5", "0"}));
  }
  return package;
}

}  // namespace

Cli::QuerySettings SettingsOf(const QueryPackageImp& query) {
  return {query.xmlPackageFolder,   query.machineType,    query.osValue,
          query.arcValue,           query.updateTypes,    query.includePackageIds,
          query.excludePackageIds,  query.kovuFilter,     query.sepFilter,
          query.payloadExistFilter, query.supersedeFilter};
}

void RandomFolderTest::WriteRepository(RandomRepository& random) {
  for (const std::string& name : names_) {
    boost::filesystem::remove(boost::filesystem::path(folder.Path()) / name);
  }
  names_.clear();
  random.SetFileNames({"i0.xml", "i0.xml", "i0.xml", "none.xml"}, {"p.exe", "p.exe", "none.exe"});
  const std::size_t individuals = random.Pick().Below(6);
  for (std::size_t i = 0; i <= individuals; ++i) {
    WriteFile("i" + std::to_string(i) + ".xml", RandomPackage(random).Individual());
  }
  const std::size_t packs = random.Pick().Below(4);
  for (std::size_t i = 0; i < packs; ++i) WritePack("k" + std::to_string(i) + ".xml", random);
}

void RandomFolderTest::WritePack(const std::string& name, RandomRepository& random) {
  std::vector<Descriptor> instances;
  if (!random.Pick().OneIn(10)) {
    instances.push_back(WithProperties(random.PackLevel()).Set("xmlFilename", name));
  }
  const std::size_t members = random.Pick().Below(4);
  for (std::size_t m = 0; m <= members; ++m) instances.push_back(RandomPackage(random));
  WriteFile(name, Pack(instances));
}

void RandomFolderTest::WriteFile(const std::string& name, const std::string& text) {
  folder.Write(name, text);
  names_.push_back(name);
}

Cli::QuerySettings RandomFolderTest::ValidSettings(RandomRepository& random) const {
  Cli::QuerySettings settings;
  while (!Cli::HasValidParameters(settings)) {
    QueryPackageImp query;
    random.Configure(query);
    query.xmlPackageFolder = folder.Path();
    settings = SettingsOf(query);
  }
  return settings;
}

}  // namespace Vornik::Testing
