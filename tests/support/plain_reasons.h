// Why each filter gave a package its verdict: a straightforward reading of the rules, which shares
// no code with the product.
#ifndef VORNIK_TESTS_PLAIN_REASONS_H
#define VORNIK_TESTS_PLAIN_REASONS_H

#include <cstdint>
#include <string>
#include <vector>

#include "plain_sources.h"

namespace Vornik::Testing {

struct PlainFilterReason {
  std::string filter;
  std::uint32_t status = 0;  // of the duplicate filter, which has no slot: 1
  std::string word;
  std::string file;  // whose properties decided; empty: none did
  PlainPlace place;  // of what decided, where the filter does not match
};

// One for each filter, in the order in which they run.
std::vector<PlainFilterReason> PlainFilterReasons(const PlainFacts& facts,
                                                  const QueryPackageResult& record);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_REASONS_H
