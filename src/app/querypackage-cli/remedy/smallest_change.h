// The query that differs from a given one in the fewest settings and that a package passes.
//
// A setting is the machine type, the operating system, the architecture, one of the four switches
// or one of the three lists as a whole. New values are those of the repository: the entries of the
// descriptors' ordered lists and of the packs' system lists, the package's own code and type, and
// the codes of the packages that it is ranked with.
#ifndef VORNIK_CLI_REMEDY_SMALLEST_CHANGE_H
#define VORNIK_CLI_REMEDY_SMALLEST_CHANGE_H

#include <functional>
#include <string>

#include "explain/explanation.h"
#include "model/query_model.h"

namespace Vornik::Cli {

// Runs a query through the library and answers whether every filter matches the package of a code.
// It is never asked about a query that a descriptor would hold or that would end the process.
using Verification = std::function<bool(const QuerySettings& settings, const std::string& code)>;

// A query is only handed out after verify has agreed to it.
WayOut FindSmallestChange(QueryModel& model, const QuerySettings& settings, const std::string& code,
                          const Verification& verify);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_SMALLEST_CHANGE_H
