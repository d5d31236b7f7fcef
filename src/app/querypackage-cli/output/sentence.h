// Sentences with lists, at full length and shortened.
#ifndef VORNIK_CLI_OUTPUT_SENTENCE_H
#define VORNIK_CLI_OUTPUT_SENTENCE_H

#include <string>
#include <utility>

namespace Vornik::Cli {

// Short: of more than ten items the first ones, and the number of the others.
enum class ListLength { Short, Full };

// A sentence that may contain lists.
struct Sentence {
  Sentence() = default;
  Sentence(std::string text) : full(std::move(text)), brief(full) {}
  Sentence(const char* text) : Sentence(std::string(text)) {}
  Sentence(std::string fullText, std::string briefText)
      : full(std::move(fullText)), brief(std::move(briefText)) {}

  std::string full;
  std::string brief;  // with short lists
};

// write: from a ListLength to the text with lists of this length.
template <typename Write>
Sentence SentenceWithLists(Write write) {
  return {write(ListLength::Full), write(ListLength::Short)};
}

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_SENTENCE_H
