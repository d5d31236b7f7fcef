#include "output/wording.h"

#include <fmt/format.h>
#include <utf8_characters.h>

#include <algorithm>
#include <boost/filesystem/path.hpp>

#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxListed = 10;
constexpr std::size_t maxQuotedBytes = 80;

template <typename Quote>
std::string ListOf(const std::vector<std::string>& texts, ListLength length, Quote quote) {
  if (texts.empty()) return "nothing";
  std::string list;
  const std::size_t shown =
      length == ListLength::Full ? texts.size() : std::min(texts.size(), maxListed);
  for (std::size_t i = 0; i < shown; ++i) {
    if (i != 0) list += ", ";
    list += quote(texts[i]);
  }
  if (shown < texts.size()) list += fmt::format(" and {} more", texts.size() - shown);
  return list;
}

}  // namespace

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

std::string QuotedBriefly(const std::string& text) {
  if (text.size() <= maxQuotedBytes) return Quoted(text);
  std::size_t end = maxQuotedBytes;
  while (end > maxQuotedBytes - 3 && IsUtf8Continuation(text[end])) --end;
  return Quoted(text.substr(0, end) + "...");
}

std::string QuotedList(const std::vector<std::string>& texts, ListLength length) {
  return ListOf(texts, length, Quoted);
}

std::string PlainList(const std::vector<std::string>& texts, ListLength length) {
  return ListOf(texts, length, [](const std::string& text) { return text; });
}

std::string BriefList(const std::vector<std::string>& texts) {
  return ListOf(texts, ListLength::Short, QuotedBriefly);
}

std::string AsCompared(const std::string& version) {
  const std::string folded = FoldByGlobalLocale(version);
  return folded == version ? Quoted(version) : Quoted(version) + " (as " + Quoted(folded) + ")";
}

std::string CodeText(const std::string& code) {
  return code.empty() ? "the package without a code" : Quoted(code);
}

std::string CodeList(const std::vector<std::string>& codes) {
  return ListOf(codes, ListLength::Short, [](const std::string& code) {
    return code.empty() ? CodeText(code) : QuotedBriefly(code);
  });
}

std::string FileNameOf(const std::string& path) {
  return boost::filesystem::path(path).filename().string();
}

std::string Count(std::size_t number, const std::string& noun) {
  return fmt::format("{} {}{}", number, noun, number == 1 ? "" : "s");
}

}  // namespace Vornik::Cli
