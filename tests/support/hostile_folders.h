// Folders that are made to be expensive: each grows some part of a query's work that must not be
// multiplied by another. Without any test library, so that benchmarks use them as well.
#ifndef VORNIK_TESTS_HOSTILE_FOLDERS_H
#define VORNIK_TESTS_HOSTILE_FOLDERS_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Vornik::Testing {

// Names of files and their texts, in the order in which they are to be written.
using FolderTexts = std::vector<std::pair<std::string, std::string>>;

struct HostileFolder {
  const char* name;
  FolderTexts (*make)(std::size_t bytes);  // of some that many bytes in all
};

const std::vector<HostileFolder>& HostileFolders();

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_HOSTILE_FOLDERS_H
