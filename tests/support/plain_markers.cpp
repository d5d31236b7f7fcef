#include "plain_markers.h"

#include <array>
#include <cstring>

namespace Vornik::Testing {

namespace {

// Hands out a text as fgets does with a buffer of 1,024 bytes.
class PieceReader {
 public:
  explicit PieceReader(std::string_view text) : text_(text) {}

  // Null after the last piece.
  const char* Next() {
    if (at_ == text_.size()) return nullptr;
    std::size_t length = 0;
    while (at_ < text_.size() && length < piece_.size() - 1) {
      piece_[length++] = text_[at_++];
      if (piece_[length - 1] == '\n') break;
    }
    piece_[length] = '\0';
    return piece_.data();
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::array<char, 1024> piece_ = {};
};

}  // namespace

DescriptorMarkers PlainMarkers(std::string_view text) {
  DescriptorMarkers markers;
  PieceReader reader(text);
  while (const char* piece = reader.Next()) {
    if (std::strstr(piece, "ORXQDL_SystemUpdateProduct") != nullptr) markers.pack = true;
    if (std::strstr(piece, "SystemUpdateElement") != nullptr) markers.individual = true;
  }
  return markers;
}

std::string PlainTextMode(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\x1A') break;
    const bool isBeforeLineFeed = i + 1 < bytes.size() && bytes[i + 1] == '\n';
    if (bytes[i] == '\r' && isBeforeLineFeed) continue;
    text += bytes[i];
  }
  return text;
}

DescriptorMarkers PlainMarkersInBytes(std::string_view bytes) {
#ifdef _WIN32
  return PlainMarkers(PlainTextMode(bytes));
#else
  return PlainMarkers(bytes);
#endif
}

}  // namespace Vornik::Testing
