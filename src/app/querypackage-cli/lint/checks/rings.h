// Rings in a graph.
#ifndef VORNIK_CLI_LINT_CHECKS_RINGS_H
#define VORNIK_CLI_LINT_CHECKS_RINGS_H

#include <cstddef>
#include <vector>

namespace Vornik::Cli {

// For each node the nodes that it leads to.
using Graph = std::vector<std::vector<std::size_t>>;

// The largest sets of two or more nodes that all lead to one another, each in ascending order, and
// by their first nodes. Takes time in proportion to the graph and calls nothing recursively.
std::vector<std::vector<std::size_t>> FindRings(const Graph& graph);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_RINGS_H
