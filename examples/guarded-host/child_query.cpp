#include "child_query.h"

#include <QueryPackage.h>

#include <cstdio>
#include <iostream>
#include <vector>

#include "offered_packages.h"
#include "own_limits.h"
#include "should_offer.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

bool WriteToPipe(const std::string& bytes) {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() &&
         std::fflush(stdout) == 0;
}

}  // namespace

int QueryInChild(const Limits& limits, const std::string& folder, const std::string& machineType) {
  if (limits.mebibytes != 0 && !LimitOwnMemory(limits.mebibytes << 20U)) {
    std::cerr << "the memory of the query cannot be limited\n";
    return 1;
  }
  std::cout.rdbuf(nullptr);  // a refused query writes its reason there, which belongs in no pipe

  Vornik::QueryPackage query;
  query.SetXMLPackageFolder(folder);
  query.SetPlatform(static_cast<Vornik::OsValue>(10), static_cast<Vornik::ArcValue>(9),
                    machineType);
  std::vector<Vornik::QueryPackageResult> results;
  const int code = query.RunQuery(results);
  if (code != Vornik::QueryCode::Completed) {
    std::cerr << "the query returned " << code << '\n';
    return 1;
  }
  std::vector<OfferedPackage> packages;
  for (const Vornik::QueryPackageResult& result : results) {
    if (ShouldOffer(result) != Offer::Yes) continue;
    packages.push_back({result.identificationCode, result.Version, result.payload});
  }
  return WriteToPipe(Encode(packages)) ? 0 : 1;
}
