#include "descriptor_markers.h"

#include <cstddef>

#include "literals.h"

namespace Vornik {

namespace {

// What fgets stores of a line in a buffer of 1,024 bytes, its terminator aside.
constexpr std::size_t pieceLength = 1'023;

constexpr std::size_t npos = std::string_view::npos;

// Finds the pieces that offsets stand in, for offsets that only grow.
class Pieces {
 public:
  explicit Pieces(std::string_view text) : text_(text) {}

  std::size_t BeginOf(std::size_t offset) {
    const std::size_t lineFeed = text_.substr(searched_, offset - searched_).rfind('\n');
    if (lineFeed != npos) lineBegin_ = searched_ + lineFeed + 1;
    searched_ = offset;
    return offset - (offset - lineBegin_) % pieceLength;
  }

 private:
  std::string_view text_;
  std::size_t lineBegin_ = 0;
  std::size_t searched_ = 0;  // no line feed between lineBegin_ and here
};

bool HasMarker(std::string_view text, std::string_view marker) {
  Pieces pieces(text);
  std::size_t found = text.find(marker);
  while (found != npos) {
    const std::size_t begin = pieces.BeginOf(found);
    const std::size_t end = begin + pieceLength;
    const bool straddles = found + marker.size() > end;
    if (!straddles && text.substr(begin, found - begin).find('\0') == npos) return true;
    // Nothing more is seen of a straddling marker's piece, nor of one behind its zero byte, up to
    // the next line feed or the piece's end.
    const std::size_t lineFeed = text.substr(found, end - found).find('\n');
    found = text.find(marker, lineFeed == npos ? end : found + lineFeed + 1);
  }
  return false;
}

}  // namespace

DescriptorMarkers FindMarkers(std::string_view text) {
  return {HasMarker(text, Marker::pack), HasMarker(text, Marker::individual)};
}

std::string TranslateTextMode(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find('\x1A'));
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t carriageReturn = bytes.find("\r\n", begin);
    const std::size_t end = carriageReturn == npos ? bytes.size() : carriageReturn;
    text.append(bytes.substr(begin, end - begin));
    begin = carriageReturn == npos ? end : carriageReturn + 1;
  }
  return text;
}

DescriptorMarkers FindMarkersInBytes(std::string_view bytes) {
#ifdef _WIN32
  return FindMarkers(TranslateTextMode(bytes));
#else
  return FindMarkers(bytes);
#endif
}

}  // namespace Vornik
