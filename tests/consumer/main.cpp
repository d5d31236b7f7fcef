// Queries the folder that it is given and prints the code of each package.
#include <LogSettings.h>
#include <QueryPackage.h>

#include <iostream>

int main(int argc, char** argv) {
  if (argc != 2) return 64;
  Vornik::SetMinLogLevel(0);
  Vornik::QueryPackage query;
  query.SetXMLPackageFolder(argv[1]);
  query.SetPlatform(static_cast<Vornik::OsValue>(10), static_cast<Vornik::ArcValue>(9), "1234");
  std::vector<Vornik::QueryPackageResult> results;
  const int code = query.RunQuery(results);
  for (const auto& record : results) std::cout << record.identificationCode << '\n';
  return code;
}
