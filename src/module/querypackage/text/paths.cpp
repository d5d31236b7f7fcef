#include "text/paths.h"

#include <boost/filesystem/path.hpp>

namespace Vornik {

namespace {

using boost::filesystem::path;

// In version 4 a file named ".xml" has no extension.
static_assert(BOOST_FILESYSTEM_VERSION == 3, "paths are taken apart as in version 3");

std::string Join(const path& folder, const std::string& name) {
  constexpr char separator = static_cast<char>(path::preferred_separator);
  return path(folder.string() + separator + name).make_preferred().string();
}

}  // namespace

std::string PathInFolder(const std::string& folder, const std::string& name) {
  return Join(path(folder), name);
}

std::string MemberPath(const std::string& packPath, const std::string& xmlFilename) {
  return Join(path(packPath).parent_path(), xmlFilename);
}

bool IsSelfInstance(const std::string& packPath, const std::string& xmlFilename) {
  return xmlFilename.empty() || xmlFilename == path(packPath).filename().string();
}

// Not path::stem, which ends the process where memory runs out.
std::string FileStem(const std::string& file) {
  const std::string name = path(file).filename().string();
  return name == "." || name == ".." ? name : name.substr(0, name.rfind('.'));
}

bool ContainsXmlExtension(const std::string& file) {
  return file.find(descriptorExtension) != std::string::npos;
}

}  // namespace Vornik
