// The smallest useful host: prints the codes of the packages that may be installed on a machine.
#include <QueryPackage.h>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "should_offer.h"

namespace {

void Print(const Vornik::QueryPackageResult& package, const FiltersThatRan& filters) {
  switch (ShouldOffer(package, filters)) {
    case Offer::Yes:
      std::cout << package.identificationCode << '\n';
      break;
    case Offer::Undecided:
      std::cerr << package.identificationCode << ": its descriptor lacks data\n";
      break;
    case Offer::No:
      break;
  }
}

int PrintPackages(const std::string& folder, const std::string& machineType) {
  Vornik::QueryPackage query;
  query.SetXMLPackageFolder(folder);
  query.SetPlatform(static_cast<Vornik::OsValue>(10), static_cast<Vornik::ArcValue>(9),
                    machineType);
  FiltersThatRan filters;
  filters.kovu = false;  // accept packages from outside the machine's pack, too
  query.SetKovuFilter(filters.kovu);

  std::vector<Vornik::QueryPackageResult> packages;
  const int code = query.RunQuery(packages);
  if (code != Vornik::QueryCode::Completed) return code;  // nothing else says what packages holds
  for (const Vornik::QueryPackageResult& package : packages) Print(package, filters);
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
