// Why a query yields no package of an id: a straightforward reading of the rules, which shares no
// code with the product.
#ifndef VORNIK_TESTS_PLAIN_ABSENCE_H
#define VORNIK_TESTS_PLAIN_ABSENCE_H

#include <string>
#include <vector>

#include "plain_sources.h"

namespace Vornik::Testing {

struct PlainAbsence {
  std::string word;
  std::string code;  // as the file spells it; empty: not known
  std::string file;
};

// In the order in which they are given. None where a record has exactly the id. unread: the files
// that no query reads although their names have ".xml" in them, in the order of their paths; a name
// with a slash is in a subfolder.
std::vector<PlainAbsence> PlainAbsenceOf(const PlainFacts& facts,
                                         const std::vector<PlainFile>& unread,
                                         const std::string& id);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_ABSENCE_H
