// A folder whose type the file-system library cannot determine, so that it throws.
#ifndef VORNIK_TESTS_UNQUERYABLE_FOLDER_H
#define VORNIK_TESTS_UNQUERYABLE_FOLDER_H

#include <string>

namespace Vornik::Testing {

inline std::string UnqueryableFolder() {
#ifdef _WIN32
  return "\\\\localhost\\no such share";
#else
  return "/" + std::string(5'000, 'x');
#endif
}

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_UNQUERYABLE_FOLDER_H
