// Numbers in descriptors: what the C library's atoi reads, with one result everywhere.
//
//   "10"           =>  10
//   " \t-7 rest"   =>  -7
//   "x86"          =>  0
//   "4294967296"   =>  0     (cut to 32 bits)
//   "99999999999999999999"  =>  -1  (the largest 64-bit number, cut)
#ifndef VORNIK_QUERYPACKAGE_TEXT_DECIMAL_H
#define VORNIK_QUERYPACKAGE_TEXT_DECIMAL_H

#include <cstdint>
#include <string>

namespace Vornik {

std::int32_t ParseDecimal(const std::string& text);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_TEXT_DECIMAL_H
