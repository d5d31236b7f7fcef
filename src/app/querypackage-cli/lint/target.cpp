#include "lint/target.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "output/console_text.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

// Of one part of a name: bytes on POSIX, and on Windows never more characters than bytes.
constexpr std::size_t longestPart = 255;

constexpr std::string_view forbiddenOnWindows = "<>:\"|?*";

constexpr std::array<std::string_view, 6> devices{"con", "prn", "aux", "nul", "conin$", "conout$"};
constexpr std::array<std::string_view, 2> numberedDevices{"com", "lpt"};

std::string_view SeparatorsOf(LintTarget target) {
  return target == LintTarget::Windows ? "/\\" : "/";
}

// Windows reserves these words with any extension.
bool IsDevice(std::string_view part) {
  const std::string stem = FoldByGlobalLocale(part.substr(0, part.find('.')));
  if (std::find(devices.begin(), devices.end(), stem) != devices.end()) return true;
  if (stem.size() != 4 || stem.back() < '0' || stem.back() > '9') return false;
  return std::find(numberedDevices.begin(), numberedDevices.end(), stem.substr(0, 3)) !=
         numberedDevices.end();
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20U; }

std::string WindowsFault(std::string_view part) {
  const auto forbidden = part.find_first_of(forbiddenOnWindows);
  if (forbidden != std::string_view::npos) {
    return fmt::format("holds the character '{}', which Windows forbids", part[forbidden]);
  }
  if (std::any_of(part.begin(), part.end(), IsControl)) {
    return "holds a control character, which Windows forbids";
  }
  if (part != ".." && (part.back() == '.' || part.back() == ' ')) {
    return "has a part that ends in a full stop or blank, which Windows drops";
  }
  if (IsDevice(part)) return "is or begins with the name of a device of Windows";
  return "";
}

std::string PartFault(std::string_view part, LintTarget target) {
  if (part.size() > longestPart)
    return fmt::format("has a part of more than {} bytes", longestPart);
  return target == LintTarget::Windows ? WindowsFault(part) : "";
}

}  // namespace

const char* NameOf(LintTarget target) {
  return target == LintTarget::Windows ? "windows" : "posix";
}

TextMode TextModeOf(LintTarget target) {
  return target == LintTarget::Windows ? TextMode::Windows : TextMode::Posix;
}

std::string TextAsSearched(const std::string& bytes, LintTarget target) {
  return target == LintTarget::Windows ? TranslateTextMode(bytes) : bytes;
}

std::vector<std::string> NameParts(std::string_view name, LintTarget target) {
  const std::string_view separators = SeparatorsOf(target);
  std::vector<std::string> parts;
  while (!name.empty()) {
    const std::size_t end = std::min(name.find_first_of(separators), name.size());
    const std::string_view part = name.substr(0, end);
    if (!part.empty() && part != ".") parts.emplace_back(part);
    name.remove_prefix(std::min(end + 1, name.size()));
  }
  return parts;
}

bool LeadsOutside(const std::vector<std::string>& parts) {
  std::size_t depth = 0;
  for (const std::string& part : parts) {
    if (part != "..") {
      ++depth;
    } else if (depth-- == 0) {
      return true;
    }
  }
  return false;
}

std::vector<std::string> WithoutParents(const std::vector<std::string>& parts) {
  std::vector<std::string> kept;
  for (const std::string& part : parts) {
    if (part == ".." && !kept.empty() && kept.back() != "..") {
      kept.pop_back();
    } else {
      kept.push_back(part);
    }
  }
  return kept;
}

std::string NameKey(const std::vector<std::string>& parts, LintTarget target) {
  const std::string key = fmt::format("{}", fmt::join(WithoutParents(parts), "/"));
  return target == LintTarget::Windows ? FoldByGlobalLocale(key) : key;
}

std::string NameFault(std::string_view name, LintTarget target) {
  for (const std::string& part : NameParts(name, target)) {
    if (std::string fault = PartFault(part, target); !fault.empty()) return fault;
  }
  return "";
}

std::string EncodingFault(std::string_view name, LintTarget target) {
  if (!IsUtf8(name)) return "is not UTF-8";
  const bool isAscii = std::all_of(name.begin(), name.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
  if (target == LintTarget::Posix || isAscii) return "";
  return "holds characters beyond ASCII, which not every code page of Windows has";
}

}  // namespace Vornik::Cli
