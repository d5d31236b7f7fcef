#include "project_file.h"

namespace Vornik::Testing {

std::string ProjectFile(const std::string& path) {
  return std::string(QUERYPACKAGE_SOURCE_DIR) + '/' + path;
}

}  // namespace Vornik::Testing
