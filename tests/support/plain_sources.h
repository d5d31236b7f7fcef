// Where a query that has run took a package's properties from, step by step. Shares no code with
// the product.
#ifndef VORNIK_TESTS_PLAIN_SOURCES_H
#define VORNIK_TESTS_PLAIN_SOURCES_H

#include <string>
#include <vector>

#include "plain_query.h"

namespace Vornik::Testing {

struct PlainSource {
  std::string file;  // that was loaded; empty: none has them
  SupXmlProperties properties;
};

struct PlainPlace {
  std::string file;  // empty: none
  int line = 0;
};

// A query that has run.
struct PlainFacts {
  const QueryPackageImp& query;  // with what it loaded
  const PlainFolder& folder;
  const PlainRecords& records;  // that it yielded
};

// As the filters look it up: in the members of all packs, then in the individual descriptors.
PlainSource PlainSourceOf(const QueryPackageImp& query, const std::string& code);

// What the records are built from, before repeats are dropped.
std::vector<PlainSource> PlainBuiltFrom(const QueryPackageImp& query);

// Of the first of them with the code.
PlainSource PlainOriginOf(const QueryPackageImp& query, const std::string& code);

std::string PlainPathOf(const PlainFacts& facts, const PlainFile& file);

// Where the source has the property; see PlainLineOf.
PlainPlace PlainPlaceOf(const PlainFacts& facts, const PlainSource& source,
                        const std::string& property, bool isList);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_SOURCES_H
