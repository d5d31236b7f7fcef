#ifndef VORNIK_TESTS_PROJECT_FILE_H
#define VORNIK_TESTS_PROJECT_FILE_H

#include <string>

namespace Vornik::Testing {

// path: of a file or folder of the project, from its top: "examples/repository".
std::string ProjectFile(const std::string& path);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PROJECT_FILE_H
