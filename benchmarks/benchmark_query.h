// The query that the benchmarks run, and repositories on disk for it.
#ifndef VORNIK_BENCHMARKS_BENCHMARK_QUERY_H
#define VORNIK_BENCHMARKS_BENCHMARK_QUERY_H

#include <boost/filesystem/path.hpp>
#include <cstddef>
#include <cstdint>
#include <string>

#include "querypackageimp.h"
#include "repository_generator.h"

namespace Vornik::Benchmarks {

// All four switches on, all three lists set.
void SetUp(QueryPackageImp& query);

// The machine that it asks about.
inline constexpr char machineType[] = "1234";
inline constexpr char otherMachineType[] = "5678";  // packages name it with another system
inline constexpr std::uint32_t operatingSystem = 10;
inline constexpr std::uint32_t architecture = 9;

// A generated repository in its own folder, removed at the end.
class TemporaryRepository {
 public:
  explicit TemporaryRepository(std::size_t packages, std::size_t packs = 0,
                               std::size_t membersOfAPack = 0);
  TemporaryRepository(std::size_t packages, DriverShape shape);
  ~TemporaryRepository();
  TemporaryRepository(const TemporaryRepository&) = delete;
  TemporaryRepository& operator=(const TemporaryRepository&) = delete;

  std::string Folder() const { return folder_.string(); }

 private:
  TemporaryRepository();

  boost::filesystem::path folder_;
};

// A new object and vector. The constructor queries the folder, and throws std::runtime_error if the
// query does not complete.
class FreshQuery {
 public:
  explicit FreshQuery(const std::string& folder);

  std::size_t Records() const { return results_.size(); }

 private:
  QueryPackageImp query_;
  QueryPackageImp::Results results_;
};

// Lists the folder and loads each descriptor with TinyXML; returns their number.
std::size_t LoadFolder(const std::string& folder);

// Adds packages to the object as if it had loaded them.
void Hold(QueryPackageImp& query, std::size_t packages, DriverShape shape = DriverShape::Families);

}  // namespace Vornik::Benchmarks

#endif  // VORNIK_BENCHMARKS_BENCHMARK_QUERY_H
