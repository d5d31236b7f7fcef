#include "offered_packages.h"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace {

constexpr char endMark[] = "end";

void Append(const std::string& text, std::string& bytes) {
  bytes += std::to_string(text.size()) + ':' + text;
}

// Takes a text from the front.
std::optional<std::string> Take(std::string_view& bytes) {
  std::size_t length = 0;
  const char* const end = bytes.data() + bytes.size();
  const auto [colon, fault] = std::from_chars(bytes.data(), end, length);
  if (fault != std::errc() || colon == end || *colon != ':') return std::nullopt;
  bytes.remove_prefix(static_cast<std::size_t>(colon - bytes.data()) + 1);
  if (length > bytes.size()) return std::nullopt;
  std::string text(bytes.substr(0, length));
  bytes.remove_prefix(length);
  return text;
}

}  // namespace

std::string Encode(const std::vector<OfferedPackage>& packages) {
  std::string bytes;
  for (const OfferedPackage& package : packages) {
    for (const std::string* text : {&package.code, &package.version, &package.payload}) {
      Append(*text, bytes);
    }
  }
  return bytes + endMark;  // without it a child that ended early would look complete
}

std::optional<std::vector<OfferedPackage>> Decode(std::string_view bytes) {
  std::vector<OfferedPackage> packages;
  while (bytes != endMark) {
    OfferedPackage package;
    for (std::string* text : {&package.code, &package.version, &package.payload}) {
      std::optional<std::string> taken = Take(bytes);
      if (!taken) return std::nullopt;
      *text = std::move(*taken);
    }
    packages.push_back(std::move(package));
  }
  return packages;
}
