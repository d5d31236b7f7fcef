// A host for contents that hang or abort its process: it prints each log record as it is completed.
#include <LogSettings.h>

#include <iostream>

#include "QueryPackage.h"

int main(int argc, char** argv) {
  if (argc != 2) return 64;
  Vornik::SetMinLogLevel(3);
  Vornik::LogToFunction([](const Vornik::LogRecord& record) {
    std::cout << record.level << ' ' << record.text << std::endl;
  });
  Vornik::QueryPackage query;
  query.SetXMLPackageFolder(argv[1]);
  query.SetPlatform(static_cast<Vornik::OsValue>(10), static_cast<Vornik::ArcValue>(9), "1234");
  std::vector<Vornik::QueryPackageResult> results;
  return query.RunQuery(results);
}
