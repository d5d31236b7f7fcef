// A host of the shared library: a folder with the package "a", and a vector for the records.
#ifndef VORNIK_TESTS_HOST_FIXTURE_H
#define VORNIK_TESTS_HOST_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QueryPackage.h"
#include "descriptors.h"
#include "temp_folder.h"

namespace Vornik::Testing {

using Lines = std::vector<std::string>;

class HostTest : public testing::Test {
 protected:
  void SetUp() override { WritePackage("a"); }

  // A package for the machine that Prepare sets.
  void WritePackage(const std::string& code) {
    folder.Write(code + ".xml",
                 Descriptor(code).For("1234", "10", "9").Set("type", "3").Individual());
  }

  void Prepare(QueryPackage& query) {
    query.SetXMLPackageFolder(folder.Path());
    query.SetPlatform(os, arch, "1234");
  }

  Lines Codes() const {
    Lines codes;
    for (const QueryPackageResult& record : results) codes.push_back(record.identificationCode);
    return codes;
  }

  static constexpr OsValue os = static_cast<OsValue>(10);
  static constexpr ArcValue arch = static_cast<ArcValue>(9);
  TempFolder folder;
  std::vector<QueryPackageResult> results;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_HOST_FIXTURE_H
