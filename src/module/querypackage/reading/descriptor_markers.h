// Telling packs from individual descriptors by the words in their text.
//
// The text is searched as the C library's fgets yields it with a buffer of 1,024 bytes: in pieces
// that end after a line feed or after 1,023 bytes, each up to its first zero byte. A marker that
// straddles two pieces is not seen.
//
//   "...ORXQDL_SystemUpdateProduct..."      =>  pack
//   "...SystemUpdateElement..."             =>  individual
//   "...SystemUpdate\nElement..."           =>  neither
#ifndef VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_MARKERS_H
#define VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_MARKERS_H

#include <string>
#include <string_view>

namespace Vornik {

struct DescriptorMarkers {
  bool pack = false;
  bool individual = false;
};

// The markers in a text as the C library yields it in text mode.
DescriptorMarkers FindMarkers(std::string_view text);

// How a system's C library yields a file that is opened as text.
enum class TextMode {
  Posix,    // as it is
  Windows,  // CR LF is LF, a lone CR stays, and the text ends before the first byte 0x1A
};

#ifdef _WIN32
inline constexpr TextMode nativeTextMode = TextMode::Windows;
#else
inline constexpr TextMode nativeTextMode = TextMode::Posix;
#endif

// A file's bytes as Windows yields them.
std::string TranslateTextMode(std::string_view bytes);

// The same part by part. A CR at the end of a part waits for the next part.
class TextModeTranslation {
 public:
  std::string Translate(std::string_view part);
  bool HasPendingReturn() const { return hasPendingReturn_; }

 private:
  bool hasPendingReturn_ = false;
  bool hasEnded_ = false;
};

// The markers in a file's bytes, part by part and in constant memory.
class MarkerSearch {
 public:
  explicit MarkerSearch(TextMode mode = nativeTextMode) : mode_(mode) {}

  void Feed(std::string_view part);

  const DescriptorMarkers& Found() const { return found_; }

 private:
  void FeedText(std::string_view text);
  void CompletePiece(std::string_view& text);
  void Search(std::string_view pieces);

  TextMode mode_;
  TextModeTranslation translation_;
  std::string piece_;  // the unfinished piece that the text so far ends with
  DescriptorMarkers found_;
};

// A file with the pack marker is a pack, whatever else it contains.
inline bool IsKovuText(const DescriptorMarkers& markers) { return markers.pack; }
inline bool IsIndividualText(const DescriptorMarkers& markers) {
  return !markers.pack && markers.individual;
}

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_MARKERS_H
