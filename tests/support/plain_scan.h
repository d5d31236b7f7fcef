// What reading a package folder logs and loads, derived from what a test wrote into it.
#ifndef VORNIK_TESTS_PLAIN_SCAN_H
#define VORNIK_TESTS_PLAIN_SCAN_H

#include <string>
#include <vector>

#include "plain_log.h"
#include "querypackageimp.h"

namespace Vornik::Testing {

// One file that a test wrote.
struct PlainFile {
  enum class Kind {
    Individual,        // with one instance
    Pack,              // with any number of them
    Neither,           // well-formed, and without a marker
    Folder,            // of that name
    BrokenIndividual,  // the marker in a document that cannot be read
    BrokenPack,
    RootlessIndividual,  // the marker in a document that is read but has no element
    RootlessPack,
  };

  std::string name;
  Kind kind = Kind::Neither;
  std::vector<SupXmlProperties> instances;
};

// The separator between a folder and a name.
char PlainSeparator();

// Appends to the query's lists. files: in the order of their names.
void PlainScan(const std::vector<PlainFile>& files, QueryPackageImp& query, PlainLog& log);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_SCAN_H
