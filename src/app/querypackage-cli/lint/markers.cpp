#include "lint/markers.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "model/literals.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t npos = std::string_view::npos;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

// The text without its line breaks and the blanks after each, so that the text before and after one
// is joined.
class JoinedText {
 public:
  explicit JoinedText(std::string_view text) : text_(text) {
    joined_.reserve(text.size());
    VisitKept([this](std::size_t at) { joined_ += text_[at]; });
  }

  // Offset in the original text of the first occurrence of a marker in the joined one.
  std::optional<std::size_t> Find(std::string_view marker) const {
    std::size_t found = joined_.find(marker);
    if (found == std::string::npos) return std::nullopt;
    std::optional<std::size_t> offset;
    VisitKept([&found, &offset](std::size_t at) {
      if (found == 0 && !offset) offset = at;
      if (found != 0) --found;
    });
    return offset;
  }

 private:
  template <typename Visit>
  void VisitKept(Visit visit) const {
    bool behindLineEnd = false;
    for (std::size_t at = 0; at < text_.size(); ++at) {
      if (IsLineEnd(text_[at])) {
        behindLineEnd = true;
      } else if (!behindLineEnd || !IsBlank(text_[at])) {
        behindLineEnd = false;
        visit(at);
      }
    }
  }

  std::string_view text_;
  std::string joined_;
};

bool Shows(const DescriptorMarkers& markers, bool isPack) {
  return isPack ? markers.pack : markers.individual;
}

// Whether the search would find a marker if the text had no zero byte.
bool IsHiddenByZeros(const std::string& text, bool isPack) {
  std::string shown = text;
  std::replace(shown.begin(), shown.end(), '\0', ' ');
  return Shows(FindMarkers(shown), isPack);
}

std::string_view BytesOf(const SearchedFile& file) {
  const auto& bytes = file.inspection.bytes;
  return bytes ? std::string_view(*bytes) : std::string_view();
}

struct Miss {
  LintId id;
  std::size_t offset;
  const char* why;
};

// Why the search misses a marker; nothing if the file does not contain it at all.
std::optional<Miss> FindMiss(const SearchedFile& file, bool isPack) {
  const std::string_view marker = isPack ? Marker::pack : Marker::individual;
  if (const std::size_t found = file.text.find(marker); found != npos) {
    if (IsHiddenByZeros(file.text, isPack)) {
      return Miss{LintId::MarkerHidden, found,
                  "a zero byte before it ends the search of its piece"};
    }
    return Miss{LintId::MarkerStraddles, found,
                "it reaches over the end of a piece of 1,023 bytes"};
  }
  if (const std::size_t found = BytesOf(file).find(marker); found != npos) {
    return Miss{LintId::MarkerHidden, found, "a byte 0x1A before it ends the search of the file"};
  }
  if (const auto found = JoinedText(file.text).Find(marker)) {
    return Miss{LintId::MarkerSplit, *found, "a line break stands inside it"};
  }
  return std::nullopt;
}

const char* KindOf(DescriptorKind kind) {
  if (kind == DescriptorKind::Pack) return "a pack";
  return kind == DescriptorKind::Individual ? "an individual descriptor" : "no descriptor";
}

// True if a marker is missed. An offset of the searched text and one of the bytes are on the same
// line and column: the search leaves out a CR before LF alone.
bool ReportMiss(const SearchedFile& file, bool isPack, LintReport& report) {
  const auto miss = FindMiss(file, isPack);
  if (!miss) return false;
  const std::string_view text = miss->offset < file.text.size() ? file.text : BytesOf(file);
  report.Add(miss->id, file.name, TextPositions(text).Of(miss->offset),
             fmt::format("The search misses the marker {} here, because {}: the file is taken for "
                         "{}.",
                         Quoted(isPack ? Marker::pack : Marker::individual), miss->why,
                         KindOf(file.inspection.reading.kind)));
  return true;
}

}  // namespace

void CheckMarkers(const SearchedFile& file, LintReport& report) {
  const DescriptorReading& reading = file.inspection.reading;
  if (reading.markers.pack || ReportMiss(file, true, report)) return;
  if (reading.markers.individual || ReportMiss(file, false, report)) return;
  if (reading.fault == DescriptorFault::Utf16) {
    report.Add(LintId::Utf16, file.name, {},
               "The file is in UTF-16, in which the search finds no marker.");
    return;
  }
  report.Add(LintId::NoMarker, file.name, {},
             fmt::format("{} neither {} nor {}, so it is no descriptor.",
                         file.inspection.bytes ? "The file holds" : "The search of the file finds",
                         Quoted(Marker::pack), Quoted(Marker::individual)));
}

}  // namespace Vornik::Cli
