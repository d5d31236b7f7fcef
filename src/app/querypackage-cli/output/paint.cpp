#include "output/paint.h"

#include <string_view>

namespace Vornik::Cli {

namespace {

std::string_view StartOf(Paint paint) {
  switch (paint) {
    case Paint::Good:
      return "\x1b[32m";
    case Paint::Bad:
      return "\x1b[31m";
    case Paint::Warning:
      return "\x1b[33m";
    case Paint::Faint:
      return "\x1b[2m";
    case Paint::None:
      break;
  }
  return "";
}

}  // namespace

std::string Painted(const std::string& text, Paint paint, bool colour) {
  if (!colour || paint == Paint::None) return text;
  return std::string(StartOf(paint)) + text + "\x1b[0m";
}

}  // namespace Vornik::Cli
