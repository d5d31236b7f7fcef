// Values written as a display name with a code in brackets.
//
//   "Desk 3 [1234]"  =>  "1234"
//   "a [] b"         =>  ""
//   "1234"           =>  "1234"
//   "]1234["         =>  "]1234["
#ifndef VORNIK_QUERYPACKAGE_TEXT_BRACKETED_TEXT_H
#define VORNIK_QUERYPACKAGE_TEXT_BRACKETED_TEXT_H

#include <string>

namespace Vornik {

// The text between the first "[" and the first "]" if they are in that order; otherwise the whole
// text.
std::string ExtractBracketed(const std::string& text);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_TEXT_BRACKETED_TEXT_H
