// What callgrind counts instructions of: one whole query, or each filter once on records in memory.
//
//   instruction_probe query PACKAGES
//   instruction_probe filters PACKAGES
//
// The counting is switched on by callgrind for the functions that it is told.
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

#include "benchmark_query.h"

namespace Vornik::Benchmarks {
namespace {

using Results = QueryPackageImp::Results;

// Functions of their own that callgrind can tell apart. What they return keeps the compiler from
// leaving one by a jump, which callgrind would not notice.
template <void (QueryPackageImp::*filter)(Results&)>
std::size_t RunFilter(QueryPackageImp& query, Results& results) {
  (query.*filter)(results);
  return results.size();
}

#define QP_PROBE(name)                                                                  \
  [[gnu::noinline]] std::size_t Probe##name(QueryPackageImp& query, Results& results) { \
    return RunFilter<&QueryPackageImp::Filter##name>(query, results);                   \
  }
QP_PROBE(Duplicate)
QP_PROBE(Platform)
QP_PROBE(Kovu)
QP_PROBE(Sep)
QP_PROBE(Supersede)
QP_PROBE(IncludeId)
QP_PROBE(ExcludeId)
QP_PROBE(UpdateType)
#undef QP_PROBE

void RunFilters(std::size_t packages) {
  QueryPackageImp query;
  Hold(query, packages);
  Results results;
  query.CreateQueryPackageResults(results);
  for (const auto probe : {ProbeDuplicate, ProbePlatform, ProbeKovu, ProbeSep, ProbeSupersede,
                           ProbeIncludeId, ProbeExcludeId, ProbeUpdateType}) {
    if (probe(query, results) == 0) throw std::runtime_error("no records are left");
  }
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
