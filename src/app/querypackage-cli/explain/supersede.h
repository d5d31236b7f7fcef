// Which packages replace one package or are replaced by it, and in which order that was decided.
#ifndef VORNIK_CLI_EXPLAIN_SUPERSEDE_H
#define VORNIK_CLI_EXPLAIN_SUPERSEDE_H

#include "explain/explanation.h"
#include "explain/filters.h"

namespace Vornik::Cli {

// The chain stays empty where the filter does not run.
FilterExplanation ExplainSupersede(const PackageContext& package, SupersedeChain& chain);

// The codes that stand above the package in the groups by driver file, and all other codes of
// these groups.
struct Rivals {
  std::vector<std::string> above;
  std::vector<std::string> all;
};

// The query runs the supersede filter.
Rivals RivalsOf(const ModelledQuery& query, std::size_t index);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_SUPERSEDE_H
