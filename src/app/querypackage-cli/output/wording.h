// How values appear in a sentence. Nothing is escaped here.
#ifndef VORNIK_CLI_OUTPUT_WORDING_H
#define VORNIK_CLI_OUTPUT_WORDING_H

#include <cstddef>
#include <string>
#include <vector>

#include "output/sentence.h"

namespace Vornik::Cli {

// "abc"
std::string Quoted(const std::string& text);

// The same for a text of any length: a long one is cut and followed by "...".
std::string QuotedBriefly(const std::string& text);

// "a", "b"; "nothing" for none.
std::string QuotedList(const std::vector<std::string>& texts, ListLength length);
inline std::string QuotedList(const std::vector<std::string>& texts) {
  return QuotedList(texts, ListLength::Short);
}

// The same without quotes.
std::string PlainList(const std::vector<std::string>& texts, ListLength length);

// A short list with each text quoted briefly.
std::string BriefList(const std::vector<std::string>& texts);

// A version with the text as which it is compared, if folding changes it.
//
//   1.0  =>  "1.0"
//   B2   =>  "B2" (as "b2")
std::string AsCompared(const std::string& version);

// A code in quotes, or words for an empty one.
std::string CodeText(const std::string& code);

// The same for several, each quoted briefly, as a short list.
std::string CodeList(const std::vector<std::string>& codes);

// The last component of a path.
std::string FileNameOf(const std::string& path);

// 1 package, 2 packages
std::string Count(std::size_t number, const std::string& noun);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_WORDING_H
