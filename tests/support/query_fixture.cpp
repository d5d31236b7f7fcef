#include "query_fixture.h"

#include <utility>

#include "text/paths.h"

namespace Vornik::Testing {

QueryTest::QueryTest() {
  RecordingLog::Reset();
  imp.xmlPackageFolder = folder.Path();
  imp.osValue = os;
  imp.arcValue = arch;
  imp.machineType = "1234";
}

void QueryTest::TearDown() {
  for (const LogEntry& entry : RecordingLog::Entries()) {
    EXPECT_EQ(entry.file, "src/module/querypackage/querypackageimp.cpp") << entry.text;
    EXPECT_GT(entry.line, 0) << entry.text;
  }
  RecordingLog::Reset();
}

std::string QueryTest::WriteIndividual(const std::string& name, Descriptor descriptor) {
  Descriptor complete(name.substr(0, name.rfind('.')));
  complete.For("1234", "10", "9");
  for (const SupXmlProperty& property : descriptor.Properties()) {
    complete.Set(property.name, property.values);
  }
  return folder.Write(name, complete.Individual());
}

void QueryTest::Load(std::vector<PackageXmlEntry> entries) {
  imp.repository = {};
  for (PackageXmlEntry& entry : entries) imp.repository.Add(std::move(entry));
}

void QueryTest::LoadPacks(std::vector<KovuPackEntry> packs) {
  for (KovuPackEntry& pack : packs) imp.repository.Add(std::move(pack));
}

std::string QueryTest::PathOf(const std::string& name) const {
  return PathInFolder(folder.Path(), name);
}

std::vector<std::string> QueryTest::Codes() const {
  std::vector<std::string> codes;
  for (const QueryPackageResult& record : results) codes.push_back(record.identificationCode);
  return codes;
}

QueryPackageResult RecordOf(const std::string& code) {
  QueryPackageResult record;
  record.identificationCode = code;
  return record;
}

}  // namespace Vornik::Testing
