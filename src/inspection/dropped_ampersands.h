// Ampersands that a descriptor's values lack.
#ifndef VORNIK_INSPECTION_DROPPED_AMPERSANDS_H
#define VORNIK_INSPECTION_DROPPED_AMPERSANDS_H

#include <cstddef>
#include <string>
#include <vector>

#include "inspection/text_position.h"

namespace Vornik {

struct DroppedAmpersands {
  std::vector<TextPosition> first;
  std::size_t count = 0;
};

// The ampersands in a document's bytes that begin no reference and that TinyXML drops; only the
// first maxCount have a place. What TinyXML does not read does not count: comments, CDATA.
//
//   "<a>R&D &amp; x</a>"  =>  one, line 1, column 5
DroppedAmpersands FindDroppedAmpersands(std::string bytes, std::size_t maxCount);

}  // namespace Vornik

#endif  // VORNIK_INSPECTION_DROPPED_AMPERSANDS_H
