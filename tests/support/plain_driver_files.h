// A package's driver files, and the values that they are read from, step by step. Shares no code
// with the product.
#ifndef VORNIK_TESTS_PLAIN_DRIVER_FILES_H
#define VORNIK_TESTS_PLAIN_DRIVER_FILES_H

#include <string>
#include <utility>
#include <vector>

#include "QueryPackage.h"
#include "model/properties.h"
#include "plain_log.h"

namespace Vornik::Testing {

std::string PlainBracketed(const std::string& text);

// tokens is left alone where text or separator is empty.
void PlainSplit(const std::string& text, const std::string& separator,
                std::vector<std::string>& tokens);

// Name and version; two empty texts, and a warning, where there are not exactly two.
std::pair<std::string, std::string> PlainNameAndVersion(const std::string& value, PlainLog& log);

// Whether there are classifications, but fewer than driver files.
bool PlainLacksClassifications(const SupXmlProperties& properties);

// Throws std::out_of_range at the value whose classification is lacking.
std::vector<QueryPackageResult::DriverFile> PlainDriverFiles(const SupXmlProperties& properties,
                                                             PlainLog& log);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_DRIVER_FILES_H
