// The smallest useful host: prints the codes of the packages that no filter refused.
#include <QueryPackage.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

bool IsRefused(const Vornik::QueryPackageResult& package) {
  const auto verdicts = {package.platformFilterStatus,  package.kovuFilterStatus,
                         package.sepFilterStatus,       package.payloadExistFilterStatus,
                         package.supersedeFilterStatus, package.includeIdFilterStatus,
                         package.excludeIdFilterStatus, package.updateTypeFilterStatus};
  return std::count(verdicts.begin(), verdicts.end(), Vornik::FilterStatus::NotMatched) != 0;
}

int PrintPackages(const std::string& folder, const std::string& machineType) {
  Vornik::QueryPackage query;
  query.SetXMLPackageFolder(folder);
  query.SetPlatform(static_cast<Vornik::OsValue>(10), static_cast<Vornik::ArcValue>(9),
                    machineType);
  query.SetKovuFilter(false);  // accept packages from outside the machine's pack, too

  std::vector<Vornik::QueryPackageResult> packages;
  const int code = query.RunQuery(packages);
  for (const Vornik::QueryPackageResult& package : packages) {
    if (!IsRefused(package)) std::cout << package.identificationCode << '\n';
  }
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Usage: minimal-host FOLDER MACHINE-TYPE\n";
    return 1;
  }
  try {
    return PrintPackages(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
