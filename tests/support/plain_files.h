// Files of a package folder: random ones, their text, and where things are in it.
#ifndef VORNIK_TESTS_PLAIN_FILES_H
#define VORNIK_TESTS_PLAIN_FILES_H

#include <string>

#include "plain_scan.h"
#include "random_repository.h"

namespace Vornik::Testing {

// Of any kind. A pack's own instance is anywhere in it, now and then nowhere. What cannot be read
// as a descriptor contains a package, too.
PlainFile RandomPlainFile(RandomRepository& random, const std::string& name);

// Empty: a folder.
std::string TextOf(const PlainFile& file);

// An empty value in a file is none.
PlainFile AsRead(PlainFile file);

// The line of a property in the text, from 1. instance: its index. isList: the last property with
// the name counts; otherwise the last one that has a value. That of the INSTANCE where it has none.
int PlainLineOf(const PlainFile& file, std::size_t instance, const std::string& property,
                bool isList);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_FILES_H
