// What callgrind counts instructions of: one whole query, or each filter once on records in memory.
//
//   instruction_probe query PACKAGES
//   instruction_probe filters PACKAGES
//
// The counting is switched on by callgrind for the functions that it is told.
#include <cstdlib>
#include <iostream>
#include <string>

#include "benchmark_query.h"

namespace Vornik::Benchmarks {
namespace {

void RunFilters(std::size_t packages) {
  QueryPackageImp query;
  Hold(query, packages);
  QueryPackageImp::Results results;
  query.CreateQueryPackageResults(results);
  query.FilterDuplicate(results);
  query.FilterPlatform(results);
  query.FilterKovu(results);
  query.FilterSep(results);
  query.FilterSupersede(results);
  query.FilterIncludeId(results);
  query.FilterExcludeId(results);
  query.FilterUpdateType(results);
}

int Run(const std::string& what, std::size_t packages) {
  if (what == "filters") {
    RunFilters(packages);
    return EXIT_SUCCESS;
  }
  const TemporaryRepository repository(packages);
  return FreshQuery(repository.Folder()).Records() == packages ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace Vornik::Benchmarks

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: instruction_probe query|filters PACKAGES\n";
    return EXIT_FAILURE;
  }
  return Vornik::Benchmarks::Run(argv[1], std::stoul(argv[2]));
}
