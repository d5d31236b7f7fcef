#include "xml_limits.h"

#include <algorithm>

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

}  // namespace

XmlScan ScanXml(std::string_view text, const XmlLimits& limits) {
  const bool isWalked = CountOf('<', text) > limits.nesting ||
                        CountOf('=', text) > limits.attributes || MayContainLaterDeclaration(text);
  XmlWalk walk(text.data(), limits);
  return isWalked ? walk.Run() : walk.RunFirstDeclaration();
}

}  // namespace Vornik
