// The two marker searches and the text mode, on any bytes, against their plain versions.
#include "fuzz_input.h"
#include "plain_markers.h"
#include "reading/descriptor_markers.h"
#include "requirement.h"

namespace Vornik::Fuzzing {

namespace {

bool AreSame(const DescriptorMarkers& a, const DescriptorMarkers& b) {
  return a.pack == b.pack && a.individual == b.individual;
}

void CheckText(std::string_view text) {
  Require(AreSame(FindMarkers(text), Testing::PlainMarkers(text)),
          "the markers of the plain search");
}

// The search of a file's bytes as they are read, in parts of a length that the bytes choose.
void CheckParts(std::string_view bytes) {
  const auto first = bytes.empty() ? 0U : static_cast<unsigned char>(bytes.front());
  const std::size_t length = first < 0x80 ? first + 1U : 1'023U - 0x80U + first % 0x80U;
  MarkerSearch search;
  for (std::size_t at = 0; at < bytes.size(); at += length) search.Feed(bytes.substr(at, length));
  Require(AreSame(search.Found(), Testing::PlainMarkersInBytes(bytes)),
          "the markers of the plain search in bytes");
}

// Bytes of more than seven bits become runs about as long as a piece of 1,023 bytes, so that a few
// changes reach the ends of pieces.
std::string WithLongLines(std::string_view bytes) {
  constexpr std::size_t most = 16'384;
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (text.size() >= most) break;
    text.append(byte < 0x80 ? 1 : 900U + byte, byte < 0x80 ? c : '.');
  }
  return text;
}

void Check(std::string_view bytes) {
  CheckText(bytes);
  CheckText(WithLongLines(bytes));
  const std::string text = TranslateTextMode(bytes);
  Require(text == Testing::PlainTextMode(bytes), "the text of the plain text mode");
  CheckText(text);
  CheckParts(bytes);
  CheckParts(WithLongLines(bytes));
}

}  // namespace

}  // namespace Vornik::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Vornik::Fuzzing::Check(Vornik::Fuzzing::BytesOf(data, size));
  return 0;
}
