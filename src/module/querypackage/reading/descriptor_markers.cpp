#include "descriptor_markers.h"

#include <algorithm>
#include <cstddef>

#include "model/literals.h"

namespace Vornik {

namespace {

// What fgets stores of a line in a buffer of 1,024 bytes, its terminator aside.
constexpr std::size_t pieceLength = 1'023;

constexpr std::size_t npos = std::string_view::npos;

// Finds the pieces that contain offsets, for offsets that only grow.
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
    // Nothing more is seen of a straddling marker's piece, nor of one after its zero byte, up to
    // the next line feed or the piece's end.
    const std::size_t lineFeed = text.substr(found, end - found).find('\n');
    found = text.find(marker, lineFeed == npos ? end : found + lineFeed + 1);
  }
  return false;
}

// The last piece of a text that begins with a piece, without its end: empty if it has one.
std::string_view UnfinishedPiece(std::string_view text) {
  std::string_view line = text;
  for (auto end = line.find('\n'); end != npos; end = line.find('\n')) line.remove_prefix(end + 1);
  return line.substr(line.size() - line.size() % pieceLength);
}

}  // namespace

DescriptorMarkers FindMarkers(std::string_view text) {
  return {HasMarker(text, Marker::pack), HasMarker(text, Marker::individual)};
}

std::string TranslateTextMode(std::string_view bytes) {
  TextModeTranslation translation;
  std::string text = translation.Translate(bytes);
  if (translation.HasPendingReturn()) text += '\r';
  return text;
}

std::string TextModeTranslation::Translate(std::string_view part) {
  if (hasEnded_ || part.empty()) return {};
  std::string text;
  text.reserve(part.size() + 1);
  if (hasPendingReturn_ && part.front() != '\n') text += '\r';

  const std::size_t end = part.find('\x1A');
  hasEnded_ = end != npos;
  part = part.substr(0, end);
  hasPendingReturn_ = !part.empty() && part.back() == '\r';
  if (hasPendingReturn_) part.remove_suffix(1);

  while (!part.empty()) {
    const std::size_t carriageReturn = std::min(part.find("\r\n"), part.size());
    text.append(part.substr(0, carriageReturn));
    part.remove_prefix(std::min(carriageReturn + 1, part.size()));
  }
  return text;
}

void MarkerSearch::Feed(std::string_view part) {
  if (mode_ == TextMode::Windows) {
    FeedText(translation_.Translate(part));
  } else {
    FeedText(part);
  }
}

// What is unfinished is searched too, since the text may end there.
void MarkerSearch::FeedText(std::string_view text) {
  if (!piece_.empty()) CompletePiece(text);
  if (text.empty()) return;
  Search(text);
  piece_ = UnfinishedPiece(text);
}

// Moves what belongs to the unfinished piece from the text's beginning.
void MarkerSearch::CompletePiece(std::string_view& text) {
  const std::size_t lineFeed = text.find('\n');
  const std::size_t lineEnd = lineFeed == npos ? text.size() : lineFeed + 1;
  const std::size_t length = std::min(pieceLength - piece_.size(), lineEnd);
  piece_ += text.substr(0, length);
  text.remove_prefix(length);
  Search(piece_);
  if (piece_.size() == pieceLength || (!piece_.empty() && piece_.back() == '\n')) piece_.clear();
}

void MarkerSearch::Search(std::string_view pieces) {
  const DescriptorMarkers markers = FindMarkers(pieces);
  found_.pack = found_.pack || markers.pack;
  found_.individual = found_.individual || markers.individual;
}

}  // namespace Vornik
