// The edits of a repository that make every filter match, as lines of text.
#ifndef VORNIK_CLI_EXPLAIN_EDITS_TEXT_H
#define VORNIK_CLI_EXPLAIN_EDITS_TEXT_H

#include <string>
#include <vector>

#include "explain/explanation.h"

namespace Vornik::Cli {

// Brief: one remedy, and how many others there are.
enum class EditDetail { Brief, Full };

std::vector<std::string> EditLines(const RepositoryRemedies& remedies, EditDetail detail);

// What else a remedy changes, in sentences; empty: nothing.
std::string TextOf(const EditEffects& effects);

// Why no edit was found: one sentence.
std::string NoEditText(const RepositoryRemedies& remedies);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_EDITS_TEXT_H
