// A whole query step by step, with scans and copies and nothing else: what RunQuery is compared
// with. It shares no code with the product; of QueryPackageImp it uses the data members alone.
#ifndef VORNIK_TESTS_PLAIN_QUERY_H
#define VORNIK_TESTS_PLAIN_QUERY_H

#include <functional>
#include <string>
#include <vector>

#include "plain_log.h"
#include "plain_scan.h"
#include "plain_supersede.h"
#include "querypackageimp.h"

namespace Vornik::Testing {

// The folder of a query, as a test knows it.
struct PlainFolder {
  bool isDirectory = true;
  std::vector<PlainFile> files;                            // in the order of their names
  std::function<bool(const std::string& name)> holdsFile;  // a regular file of that name
};

struct PlainOutcome {
  int code = 0;
  PlainRecords records;
  PlainLog log;
  std::string standardOutput;
};

// query: the settings, and the descriptors that are already loaded; what the folder holds is added
// to them. records: the host's vector before the query.
PlainOutcome PlainRunQuery(QueryPackageImp& query, const PlainFolder& folder,
                           const PlainRecords& records);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_QUERY_H
