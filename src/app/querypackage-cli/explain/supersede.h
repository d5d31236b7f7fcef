// Which packages replace one package or are replaced by it, and in which order that was decided.
#ifndef VORNIK_CLI_EXPLAIN_SUPERSEDE_H
#define VORNIK_CLI_EXPLAIN_SUPERSEDE_H

#include "explain/explanation.h"
#include "explain/filters.h"

namespace Vornik::Cli {

FilterExplanation ExplainSupersede(const PackageContext& package);

// Empty where the filter does not run.
SupersedeChain SupersedeChainOf(const PackageContext& package);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_SUPERSEDE_H
