// Texts for an XML reader: descriptors that are well formed, odd or broken.
#ifndef VORNIK_TESTS_RANDOM_XML_H
#define VORNIK_TESTS_RANDOM_XML_H

#include <string>

#include "random_pick.h"

namespace Vornik::Testing {

// A text of up to some thousand bytes: a descriptor, or a descriptor with some of its bytes lost,
// repeated or replaced, or words of the format in any order. Line ends of all kinds, zero bytes,
// byte order marks, declared encodings and characters that are cut short occur in all of them.
std::string RandomXml(RandomPick& pick);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_RANDOM_XML_H
