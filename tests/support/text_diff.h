// What differs between two texts, line by line, as a unified diff shows it.
#ifndef VORNIK_TESTS_TEXT_DIFF_H
#define VORNIK_TESTS_TEXT_DIFF_H

#include <string>

namespace Vornik::Testing {

// Empty for equal texts. Lines that only the expected text has begin with '-', lines that only the
// actual text has with '+'; each change has up to three equal lines around it, after a line
// "@@ -line +line @@".
std::string TextDiff(const std::string& expected, const std::string& actual);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_TEXT_DIFF_H
