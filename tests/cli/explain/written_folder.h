// A random folder on disk, and what the plain versions of the rules have to know of it.
#ifndef VORNIK_TESTS_CLI_EXPLAIN_WRITTEN_FOLDER_H
#define VORNIK_TESTS_CLI_EXPLAIN_WRITTEN_FOLDER_H

#include <set>
#include <string>
#include <vector>

#include "plain_query.h"
#include "random_repository.h"
#include "temp_folder.h"

namespace Vornik::Testing {

struct WrittenFolder {
  PlainFolder plain;              // its descriptors, in the order of the listing
  std::vector<PlainFile> unread;  // its other files with ".xml" in their names
};

WrittenFolder WriteRandomFolder(RandomRepository& random, const TempFolder& folder);

// Whatever the folder may be asked for: codes of any file, names, and what it does not have.
std::set<std::string> IdsFor(const WrittenFolder& written);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_EXPLAIN_WRITTEN_FOLDER_H
