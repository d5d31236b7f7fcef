// How many cells of a terminal a text takes.
#ifndef VORNIK_CLI_OUTPUT_CELL_WIDTH_H
#define VORNIK_CLI_OUTPUT_CELL_WIDTH_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Vornik::Cli {

// 2 for the ideographs, syllables and pictures of East Asia, 0 for marks that combine with the
// character before them, 1 for all others.
std::size_t CellWidth(std::uint32_t code);

// Of a text that Printable returned.
//
//   "a\xC3\xA9"     =>  2, a letter with an accent
//   "e\xCC\x81"     =>  1, a letter and an accent
//   "\xE6\x96\x87"  =>  2, an ideograph
std::size_t CellCount(std::string_view printable);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_CELL_WIDTH_H
