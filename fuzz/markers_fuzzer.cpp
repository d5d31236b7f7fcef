// The two marker searches and the text mode, on any bytes, against their plain versions.
#include "descriptor_markers.h"
#include "fuzz_input.h"
#include "plain_markers.h"
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

// Bytes of more than seven bits become runs about as long as a piece of 1,023 bytes, so that the
// borders of pieces are a few changes away.
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
  Require(AreSame(FindMarkersInBytes(bytes), Testing::PlainMarkersInBytes(bytes)),
          "the markers of the plain search in bytes");
}

}  // namespace

}  // namespace Vornik::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Vornik::Fuzzing::Check(Vornik::Fuzzing::BytesOf(data, size));
  return 0;
}
