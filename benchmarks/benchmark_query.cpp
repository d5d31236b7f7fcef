#include "benchmark_query.h"

#include <tinyxml.h>

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <stdexcept>

namespace Vornik::Benchmarks {

namespace fs = boost::filesystem;

void SetUp(QueryPackageImp& query) {
  query.osValue = static_cast<OsValue>(operatingSystem);
  query.arcValue = static_cast<ArcValue>(architecture);
  query.machineType = machineType;
  query.includePackageIds = {CodeOf(1), CodeOf(2)};
  query.excludePackageIds = {CodeOf(3), CodeOf(4)};
  query.updateTypes = {static_cast<UpdateType>(1), static_cast<UpdateType>(3)};
}

TemporaryRepository::TemporaryRepository()
    : folder_(fs::temp_directory_path() / fs::unique_path()) {
  fs::create_directories(folder_);
}

TemporaryRepository::TemporaryRepository(std::size_t packages, DriverShape shape)
    : TemporaryRepository() {
  WriteRepository(folder_.string(), packages, shape);
}

TemporaryRepository::TemporaryRepository(std::size_t packages, std::size_t packs,
                                         std::size_t membersOfAPack)
    : TemporaryRepository() {
  WriteRepository(folder_.string(), packages);
  for (std::size_t pack = 0; pack < packs; ++pack) {
    WritePack(folder_.string(), pack, pack * membersOfAPack, membersOfAPack);
  }
}

TemporaryRepository::~TemporaryRepository() {
  boost::system::error_code ignored;
  fs::remove_all(folder_, ignored);
}

FreshQuery::FreshQuery(const std::string& folder) {
  SetUp(query_);
  query_.xmlPackageFolder = folder;
  if (query_.RunQuery(results_) != QueryCode::Completed) {
    throw std::runtime_error("the query did not complete");
  }
}

std::size_t LoadFolder(const std::string& folder) {
  std::size_t loaded = 0;
  for (fs::directory_iterator entry(folder), end; entry != end; ++entry) {
    if (entry->path().extension() != ".xml") continue;
    TiXmlDocument document;
    if (document.LoadFile(entry->path().string().c_str())) ++loaded;
  }
  return loaded;
}

void Hold(QueryPackageImp& query, std::size_t packages, DriverShape shape) {
  SetUp(query);
  for (std::size_t i = 0; i < packages; ++i) {
    query.repository.Add(PackageXmlEntry{CodeOf(i) + ".xml", PropertiesOf(i, shape)});
  }
}

}  // namespace Vornik::Benchmarks
