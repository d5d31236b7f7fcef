// A folder, an implementation object set for machine 1234, operating system 10, architecture 9, and
// the records of its last query. Every log record of a test has to name the stages' source file.
#ifndef VORNIK_TESTS_QUERY_FIXTURE_H
#define VORNIK_TESTS_QUERY_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QueryPackage.h"
#include "descriptors.h"
#include "querypackageimp.h"
#include "recording_log.h"
#include "temp_folder.h"

namespace Vornik::Testing {

using Lines = std::vector<std::string>;

class QueryTest : public testing::Test {
 protected:
  QueryTest();
  void TearDown() override;

  int Run() { return imp.RunQuery(results); }

  // Writes a descriptor of that file name for the fixture's machine; its code is the name's stem.
  std::string WriteIndividual(const std::string& name, Descriptor descriptor = Descriptor());

  // Puts individual descriptors into the object, in place of all that it has loaded.
  void Load(std::vector<PackageXmlEntry> entries);
  // Adds packs to what the object has loaded.
  void LoadPacks(std::vector<KovuPackEntry> packs);

  // Full path of a name in the folder, as the folder scan builds it.
  std::string PathOf(const std::string& name) const;

  std::vector<std::string> Codes() const;

  static Lines Log() { return RecordingLog::Lines(); }
  static Lines Errors() { return RecordingLog::LinesOfLevel(1); }
  static Lines Warnings() { return RecordingLog::LinesOfLevel(2); }
  static Lines Progress() { return RecordingLog::LinesOfLevel(3); }

  static constexpr OsValue os = static_cast<OsValue>(10);
  static constexpr ArcValue arch = static_cast<ArcValue>(9);

  TempFolder folder;
  QueryPackageImp imp;
  QueryPackageImp::Results results;
};

// A record with that code and nothing else.
QueryPackageResult RecordOf(const std::string& code);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_QUERY_FIXTURE_H
