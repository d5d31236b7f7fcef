// An explanation as text for a person.
#ifndef VORNIK_CLI_EXPLAIN_TEXT_H
#define VORNIK_CLI_EXPLAIN_TEXT_H

#include <string>

#include "explain/explanation.h"

namespace Vornik::Cli {

// Brief: the answer and the main reason in the first line, the pack in use, the filters that refuse
// or cannot decide, and the remedies. Full: each filter with its rule and what it read.
enum class TextDetail { Brief, Full };

// Of each package; then why no record has the id, where none has. Texts of descriptors go through
// Printable.
std::string ExplanationText(const Explanation& explanation, TextDetail detail, bool colour);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_TEXT_H
