// The names closest to one that is not known: of options, subcommands, identification codes.
#ifndef VORNIK_CLI_MODEL_EDIT_DISTANCE_H
#define VORNIK_CLI_MODEL_EDIT_DISTANCE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Vornik::Cli {

// How many characters have to be inserted, removed, replaced, or exchanged with their neighbour to
// turn one text into the other, at most limit + 1. A byte counts as a character; case counts.
//
//   EditDistance("color", "colour", 2)  =>  1
//   EditDistance("kovu", "kvou", 2)     =>  1
//   EditDistance("a", "xyz", 1)         =>  2
std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit);

// The known names that are closest to a name, without regard to case: up to three, in their order.
// None is farther away than a third of the name's length, or than 1 for a short one.
std::vector<std::string> NearestNames(const std::string& name,
                                      const std::vector<std::string>& known);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_EDIT_DISTANCE_H
