#include "xml_limits.h"

#include <algorithm>
#include <iterator>

#include "xml_walk.h"

namespace Vornik {

namespace {

std::size_t CountOf(char c, std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), c));
}

bool MayContainLaterDeclaration(std::string_view text) {
  const std::size_t first = text.find('<');
  if (first == std::string_view::npos) return false;
  std::size_t at = text.find('?', first + 2);
  while (at != std::string_view::npos && text[at - 1] != '<') at = text.find('?', at + 1);
  return at != std::string_view::npos;
}

// The attributes of an element have different names: at most one of them is NAME, and one TYPE. So
// a text in which few '=' follow other words is within the limit, whatever its elements are.
bool MayHaveTooManyAttributes(std::string_view text, std::size_t limit) {
  constexpr std::string_view usualNames[] = {" NAME", " TYPE"};
  if (CountOf('=', text) <= limit) return false;
  std::size_t others = 0;
  for (std::size_t at = text.find('='); at != std::string_view::npos; at = text.find('=', at + 1)) {
    const std::string_view before = text.substr(0, at);
    const bool isUsual =
        std::any_of(std::begin(usualNames), std::end(usualNames), [before](std::string_view name) {
          return before.size() >= name.size() &&
                 before.compare(before.size() - name.size(), name.size(), name) == 0;
        });
    if (!isUsual) ++others;
  }
  return others + std::size(usualNames) > limit;
}

}  // namespace

XmlScan ScanXml(std::string_view text, const XmlLimits& limits) {
  const bool isWalked = CountOf('<', text) > limits.nesting ||
                        MayHaveTooManyAttributes(text, limits.attributes) ||
                        MayContainLaterDeclaration(text);
  XmlLimits ofText = limits;
  ofText.depths = std::max(limits.depths, limits.depthsPerByte * text.size());
  XmlWalk walk(text.data(), ofText);
  return isWalked ? walk.Run() : walk.RunFirstDeclaration();
}

}  // namespace Vornik
