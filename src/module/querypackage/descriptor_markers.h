// Telling packs from individual descriptors by the words in their text.
//
// The text is searched as the C library's fgets hands it out with a buffer of 1,024 bytes: in
// pieces that end behind a line feed or after 1,023 bytes, each up to its first zero byte. A marker
// that stands across two pieces is not seen.
//
//   "...ORXQDL_SystemUpdateProduct..."      =>  pack
//   "...SystemUpdateElement..."             =>  individual
//   "...SystemUpdate\nElement..."           =>  neither
#ifndef VORNIK_QUERYPACKAGE_DESCRIPTOR_MARKERS_H
#define VORNIK_QUERYPACKAGE_DESCRIPTOR_MARKERS_H

#include <string>
#include <string_view>

namespace Vornik {

struct DescriptorMarkers {
  bool pack = false;
  bool individual = false;
};

// text as the C library delivers it in text mode.
DescriptorMarkers FindMarkers(std::string_view text);

// A file's bytes as a C library with a text mode of its own delivers them: CR LF is LF, a lone CR
// stays, and the text ends before the first byte 0x1A.
std::string TranslateTextMode(std::string_view bytes);

// The markers in a file's bytes, as the C library of the system that this is built for delivers
// them: only Windows has a text mode.
DescriptorMarkers FindMarkersInBytes(std::string_view bytes);

// A file with the pack marker is a pack, whatever else it holds.
inline bool IsKovuText(const DescriptorMarkers& markers) { return markers.pack; }
inline bool IsIndividualText(const DescriptorMarkers& markers) {
  return !markers.pack && markers.individual;
}

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_DESCRIPTOR_MARKERS_H
