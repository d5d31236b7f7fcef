#include "model/record_comparison.h"

#include <algorithm>
#include <tuple>

#include "model/filter_table.h"

namespace Vornik::Cli {

namespace {

using DriverFile = QueryPackageResult::DriverFile;

auto TextsOf(const QueryPackageResult& record) {
  return std::tie(record.packageXmlFile, record.identificationCode, record.buildNumber,
                  record.description, record.updateSelection, record.rebootRequired,
                  record.severity, record.category, record.payload, record.type, record.Version,
                  record.applicableDeviceId, record.preReq, record.coReq, record.kovuXmlFile,
                  record.kovuName, record.supersedesId, record.supersededById);
}

bool HaveSameVerdicts(const QueryPackageResult& a, const QueryPackageResult& b) {
  return std::all_of(Filters().begin(), Filters().end(), [&](const Filter& filter) {
    return filter.slot == nullptr || a.*filter.slot == b.*filter.slot;
  });
}

bool AreSameFiles(const std::vector<DriverFile>& a, const std::vector<DriverFile>& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(), [](const DriverFile& x, const DriverFile& y) {
        return x.name == y.name && x.version == y.version && x.classification == y.classification;
      });
}

}  // namespace

bool AreEqual(const QueryPackageResult& a, const QueryPackageResult& b) {
  return TextsOf(a) == TextsOf(b) && HaveSameVerdicts(a, b) &&
         AreSameFiles(a.driverFiles, b.driverFiles);
}

}  // namespace Vornik::Cli
