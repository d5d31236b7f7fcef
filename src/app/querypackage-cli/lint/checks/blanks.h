// Blanks around a text, including those that an editor does not show.
//
//   "abc ", "\tabc", "\xC2\xA0" "abc"  =>  true
//   "abc", "a b", ""                  =>  false
#ifndef VORNIK_CLI_LINT_CHECKS_BLANKS_H
#define VORNIK_CLI_LINT_CHECKS_BLANKS_H

#include <string_view>

namespace Vornik::Cli {

// Whether the text begins or ends with a blank: of ASCII, or one of Unicode's in UTF-8.
bool HasBlankAround(std::string_view text);

// The text without them.
std::string_view WithoutBlanksAround(std::string_view text);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_BLANKS_H
