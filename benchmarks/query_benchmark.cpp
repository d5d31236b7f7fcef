// The time of a whole query, and of each filter alone on records in memory.
#include <LogSettings.h>
#include <benchmark/benchmark.h>

#include <boost/filesystem/operations.hpp>

#include "querypackageimp.h"
#include "repository_generator.h"

namespace Vornik::Benchmarks {
namespace {

namespace fs = boost::filesystem;
using Results = QueryPackageImp::Results;

constexpr std::size_t packages = 1'000;

void SetUp(QueryPackageImp& imp) {
  imp.osValue = static_cast<OsValue>(10);
  imp.arcValue = static_cast<ArcValue>(9);
  imp.machineType = "1234";
  imp.includePackageIds = {CodeOf(1), CodeOf(2)};
  imp.excludePackageIds = {CodeOf(3), CodeOf(4)};
  imp.updateTypes = {static_cast<UpdateType>(1), static_cast<UpdateType>(3)};
}

class Repository {
 public:
  Repository() : folder_(fs::temp_directory_path() / fs::unique_path()) {
    fs::create_directories(folder_);
    WriteRepository(folder_.string(), packages);
  }
  ~Repository() {
    boost::system::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Repository(const Repository&) = delete;
  Repository& operator=(const Repository&) = delete;

  std::string Folder() const { return folder_.string(); }

 private:
  fs::path folder_;
};

const Repository& SharedRepository() {
  static const Repository repository;
  return repository;
}

void WholeQuery(benchmark::State& state) {
  const std::string folder = SharedRepository().Folder();
  for (auto iteration : state) {
    (void)iteration;
    QueryPackageImp imp;
    SetUp(imp);
    imp.xmlPackageFolder = folder;
    Results results;
    if (imp.RunQuery(results) != QueryCode::Completed || results.size() != packages) {
      state.SkipWithError("the query did not complete");
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(packages));
}

void Filter(benchmark::State& state, void (QueryPackageImp::*filter)(Results&)) {
  QueryPackageImp imp;
  SetUp(imp);
  imp.xmlPackageFolder = SharedRepository().Folder();
  for (std::size_t i = 0; i < packages; ++i) {
    imp.packageXmlEntries.push_back({CodeOf(i) + ".xml", PropertiesOf(i)});
  }
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
