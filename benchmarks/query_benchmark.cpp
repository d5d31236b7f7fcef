// The time of a whole query, and of each filter alone on records in memory.
#include <benchmark/benchmark.h>

#include "benchmark_query.h"

namespace Vornik::Benchmarks {
namespace {

using Results = QueryPackageImp::Results;

constexpr std::size_t packages = 1'000;

// Written once: Google Benchmark calls every row several times.
std::string Folder() {
  static const TemporaryRepository repository(packages);
  return repository.Folder();
}

void WholeQuery(benchmark::State& state) {
  const std::string folder = Folder();
  for (auto iteration : state) {
    (void)iteration;
    if (FreshQuery(folder).Records() != packages) state.SkipWithError("packages are missing");
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(packages));
}

void Filter(benchmark::State& state, void (QueryPackageImp::*filter)(Results&)) {
  QueryPackageImp imp;
  Hold(imp, packages);
  imp.xmlPackageFolder = Folder();
  Results built;
  imp.CreateQueryPackageResults(built);
  for (auto iteration : state) {
    (void)iteration;
    state.PauseTiming();
    Results results = built;
    state.ResumeTiming();
    (imp.*filter)(results);
    benchmark::DoNotOptimize(results.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(packages));
}

BENCHMARK(WholeQuery)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Filter, duplicate, &QueryPackageImp::FilterDuplicate);
BENCHMARK_CAPTURE(Filter, platform, &QueryPackageImp::FilterPlatform);
BENCHMARK_CAPTURE(Filter, kovu, &QueryPackageImp::FilterKovu);
BENCHMARK_CAPTURE(Filter, sep, &QueryPackageImp::FilterSep);
BENCHMARK_CAPTURE(Filter, payloadExist, &QueryPackageImp::FilterPayloadExist);
BENCHMARK_CAPTURE(Filter, supersede, &QueryPackageImp::FilterSupersede);
BENCHMARK_CAPTURE(Filter, includeId, &QueryPackageImp::FilterIncludeId);
BENCHMARK_CAPTURE(Filter, excludeId, &QueryPackageImp::FilterExcludeId);
BENCHMARK_CAPTURE(Filter, updateType, &QueryPackageImp::FilterUpdateType);

}  // namespace
}  // namespace Vornik::Benchmarks

BENCHMARK_MAIN();
