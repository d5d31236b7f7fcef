// What is read of a file before its kind decides what happens to it.
#ifndef VORNIK_TESTS_READING_OF_H
#define VORNIK_TESTS_READING_OF_H

#include <string>

#include "reading/descriptor_reading.h"

namespace Vornik::Testing {

inline DescriptorReader ReadingOf(const std::string& path) {
  DescriptorReader reader(path);
  reader.ReadBytes();
  return reader;
}

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_READING_OF_H
