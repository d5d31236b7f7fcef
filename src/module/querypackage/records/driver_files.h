// A package's driver files, from its properties.
//
//   "driverFiles" {"abc.sys-#1.2"}                           =>  {"abc.sys", "1.2", ""}
//   "driverFiles" {"-#abc.sys-#-#1.2"}                       =>  {"abc.sys", "1.2", ""}
//   "driverFiles" {"abc.sys#1.2"}                            =>  none, and one unparsed value
//   "driverFiles" {}, "category" "Audio", "Version" "v[1.0]"  =>  {"Audio", "1.0", ""}
#ifndef VORNIK_QUERYPACKAGE_RECORDS_DRIVER_FILES_H
#define VORNIK_QUERYPACKAGE_RECORDS_DRIVER_FILES_H

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "QueryPackage.h"
#include "model/properties.h"

namespace Vornik {

// Splits text at separator; empty tokens vanish, and characters of the separator at the very start
// of the text are skipped one by one. Answers the number of tokens. An empty text or separator
// leaves tokens untouched; otherwise they are replaced.
//
//   SplitString("--a-#b-c", "-#", tokens)  =>  2, {"a", "b-c"}
std::size_t SplitString(const std::string& text, const std::string& separator,
                        std::vector<std::string>& tokens);

// One "driverFiles" value as name and version: two empty texts for an empty value, nothing for one
// that does not split in two.
std::optional<std::pair<std::string, std::string>> ParseDriverFileValue(const std::string& value);

struct DriverFileReading {
  std::vector<QueryPackageResult::DriverFile> files;
  std::size_t unparsedValues = 0;

  // There are classifications, but none at the index of this value: nothing is read from there on.
  std::optional<std::size_t> unclassifiedIndex;
};

DriverFileReading ReadDriverFiles(const SupXmlProperties& properties);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_RECORDS_DRIVER_FILES_H
