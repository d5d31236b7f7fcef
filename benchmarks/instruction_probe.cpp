// The program whose instructions callgrind counts: one whole query, each filter once on records in
// memory, or a query of one file that is made to be expensive.
//
//   instruction_probe query PACKAGES
//   instruction_probe filters PACKAGES
//   instruction_probe SHAPE BYTES       a shape of hostileShapes
//
// callgrind counts only in the functions that its options name.
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "benchmark_query.h"
#include "hostile_folders.h"

namespace Vornik::Benchmarks {
namespace {

using Results = QueryPackageImp::Results;

// Separate functions, which callgrind can distinguish. They return a value so that the compiler
// does not leave one by a jump, which callgrind would not notice.
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

struct HostileShape {
  const char* name;
  std::string begin;
  std::string piece;  // repeated
};

// A search or a walk that goes back in the text for each piece costs the square of the size.
const HostileShape hostileShapes[] = {
    {"markers", "", std::string(1, '\0') + "SystemUpdateElement" + std::string(1'002, ' ')},
    {"elements", "<!-- SystemUpdateElement -->\n", "<a>"},
    {"attributes", "<!-- SystemUpdateElement -->\n<a", " b='&#x41;'"},
    {"references", "<!-- SystemUpdateElement -->\n<a>", "&#65;&"},
    {"line-ends", "<!-- SystemUpdateElement -->\n<a>", "\r\n\r"},
    {"comments", "<!-- SystemUpdateElement -->\n<a>", "<!-- -- -->"},
    {"unclosed", "<!-- SystemUpdateElement -->\n", "<!"},
};

int QueryHostileFile(const HostileShape& shape, std::size_t bytes) {
  const TemporaryRepository repository(0);
  std::string text = shape.begin;
  while (text.size() < bytes) text += shape.piece;
  std::ofstream(repository.Folder() + "/hostile.xml", std::ios::binary) << text;
  QueryPackageImp query;
  SetUp(query);
  query.xmlPackageFolder = repository.Folder();
  Results results;
  return query.RunQuery(results) == QueryCode::NoResults ? EXIT_SUCCESS : EXIT_FAILURE;
}

int QueryHostileFolder(const Testing::HostileFolder& folder, std::size_t bytes) {
  const TemporaryRepository repository(0);
  for (const auto& [name, text] : folder.make(bytes)) {
    std::ofstream(repository.Folder() + '/' + name, std::ios::binary) << text;
  }
  QueryPackageImp query;
  SetUp(query);
  query.xmlPackageFolder = repository.Folder();
  Results results;
  query.RunQuery(results);
  return EXIT_SUCCESS;
}

int Run(const std::string& what, std::size_t packages) {
  for (const Testing::HostileFolder& folder : Testing::HostileFolders()) {
    if (what == folder.name) return QueryHostileFolder(folder, packages);
  }
  for (const HostileShape& shape : hostileShapes) {
    if (what == shape.name) return QueryHostileFile(shape, packages);
  }
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
    std::cerr << "usage: instruction_probe query|filters|SHAPE|FOLDER NUMBER\n";
    return EXIT_FAILURE;
  }
  return Vornik::Benchmarks::Run(argv[1], std::stoul(argv[2]));
}
