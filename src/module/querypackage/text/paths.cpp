#include "text/paths.h"

#include <boost/filesystem/path.hpp>

namespace Vornik {

namespace {

using boost::filesystem::path;

// In version 4 a file named ".xml" has no extension.
static_assert(BOOST_FILESYSTEM_VERSION == 3, "paths are taken apart as in version 3");

static_assert(path::preferred_separator == preferredSeparator);

// By way of a path, so that on Windows a text that no path can have is refused with an exception.
std::string Join(const std::string& folder, const std::string& name, char separator) {
  std::string joined = folder + separator + name;
  if (separator == '\\') std::replace(joined.begin(), joined.end(), '/', separator);
  return path(joined).string();
}

// Windows itself takes either separator.
path PathOf(std::string text, char separator) {
  if (preferredSeparator == '/') std::replace(text.begin(), text.end(), separator, '/');
  return path(text);
}

}  // namespace

std::string PathInFolder(const std::string& folder, const std::string& name, char separator) {
  return Join(path(folder).string(), name, separator);
}

std::string MemberPath(const std::string& packPath, const std::string& xmlFilename,
                       char separator) {
  return Join(PathOf(packPath, separator).parent_path().string(), xmlFilename, separator);
}

bool IsSelfInstance(const std::string& packPath, const std::string& xmlFilename, char separator) {
  return xmlFilename.empty() || xmlFilename == PathOf(packPath, separator).filename().string();
}

// Not path::stem, which ends the process where memory runs out.
std::string FileStem(const std::string& file, char separator) {
  const std::string name = PathOf(file, separator).filename().string();
  return name == "." || name == ".." ? name : name.substr(0, name.rfind('.'));
}

bool ContainsXmlExtension(const std::string& file) {
  return file.find(descriptorExtension) != std::string::npos;
}

}  // namespace Vornik
