// An explanation as text for a person.
#ifndef VORNIK_CLI_EXPLAIN_TEXT_H
#define VORNIK_CLI_EXPLAIN_TEXT_H

#include <string>

#include "explain/explanation.h"

namespace Vornik::Cli {

// For each package a headline with the answer, a block for each filter and the remedies; then why
// no record has the id, where none has. Texts of descriptors go through Printable.
std::string ExplanationText(const Explanation& explanation, bool colour);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_TEXT_H
