#include "model/record_comparison.h"

#include <algorithm>
#include <tuple>

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

auto VerdictsOf(const QueryPackageResult& record) {
  return std::tie(record.platformFilterStatus, record.kovuFilterStatus, record.sepFilterStatus,
                  record.payloadExistFilterStatus, record.supersedeFilterStatus,
                  record.includeIdFilterStatus, record.excludeIdFilterStatus,
                  record.updateTypeFilterStatus);
}

bool AreSameFiles(const std::vector<DriverFile>& a, const std::vector<DriverFile>& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(), [](const DriverFile& x, const DriverFile& y) {
        return x.name == y.name && x.version == y.version && x.classification == y.classification;
      });
}

}  // namespace

bool AreEqual(const QueryPackageResult& a, const QueryPackageResult& b) {
  return TextsOf(a) == TextsOf(b) && VerdictsOf(a) == VerdictsOf(b) &&
         AreSameFiles(a.driverFiles, b.driverFiles);
}

bool AreEqual(const std::vector<QueryPackageResult>& a, const std::vector<QueryPackageResult>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const auto& x, const auto& y) { return AreEqual(x, y); });
}

}  // namespace Vornik::Cli
