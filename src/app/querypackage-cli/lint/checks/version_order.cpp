#include "lint/checks/version_order.h"

#include <algorithm>
#include <string_view>

#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Takes the digits at the front, or the text before the next digit.
std::string_view TakeRun(std::string_view& text, bool digits) {
  std::size_t end = 0;
  while (end < text.size() && IsDigit(text[end]) == digits) ++end;
  const std::string_view run = text.substr(0, end);
  text.remove_prefix(end);
  return run;
}

std::string_view WithoutZeros(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

// Of any length: the number with more digits is the greater one.
int CompareDigits(std::string_view a, std::string_view b) {
  a = WithoutZeros(a);
  b = WithoutZeros(b);
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

bool IsSeparator(char c) { return c == '.' || c == '-' || c == '_' || c == ','; }

}  // namespace

bool IsNumbersOnly(const std::string& version) {
  char before = '.';
  for (const char c : version) {
    if (!IsDigit(c) && (!IsSeparator(c) || !IsDigit(before))) return false;
    before = c;
  }
  return IsDigit(before);
}

int CompareAsNumbers(const std::string& a, const std::string& b) {
  const std::string foldedA = FoldByGlobalLocale(a);
  const std::string foldedB = FoldByGlobalLocale(b);
  std::string_view restA = foldedA;
  std::string_view restB = foldedB;
  for (bool digits = false; !restA.empty() || !restB.empty(); digits = !digits) {
    const std::string_view runA = TakeRun(restA, digits);
    const std::string_view runB = TakeRun(restB, digits);
    const int order = digits ? CompareDigits(runA, runB) : runA.compare(runB);
    if (order != 0) return order;
  }
  return 0;
}

}  // namespace Vornik::Cli
