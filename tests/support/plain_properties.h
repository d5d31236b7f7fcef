// Look-ups of properties, step by step. Shares no code with the product.
#ifndef VORNIK_TESTS_PLAIN_PROPERTIES_H
#define VORNIK_TESTS_PLAIN_PROPERTIES_H

#include <string>
#include <vector>

#include "model/properties.h"

namespace Vornik::Testing {

// Names of properties; the letters' case does not count.
bool PlainSameName(const std::string& a, const std::string& b);

std::string PlainValue(const std::string& name, const SupXmlProperties& properties);
std::vector<std::string> PlainValues(const std::string& name, const SupXmlProperties& properties);

// Leading blanks, a sign, digits up to the first other character; 0 where there are none. Held at
// what 64 bits take, then cut to 32.
int PlainNumber(const std::string& text);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_PROPERTIES_H
