// How paths are put together and taken apart. One separator goes between folder and name, the
// platform's preferred one; where that is the backslash, every forward slash becomes one.
//
//   with '/':   MemberPath("/pkgs/P.xml", "m1.xml")        =>  "/pkgs/m1.xml"
//               MemberPath("/pkgs/P.xml", "")              =>  "/pkgs/"
//               PathInFolder("/pkgs/", "p.exe")            =>  "/pkgs//p.exe"
//   with '\\':  MemberPath("C:/pkgs/P.xml", "sub/m3.xml")  =>  "C:\\pkgs\\sub\\m3.xml"
//               PathInFolder("C:\\pkgs\\", "p.exe")        =>  "C:\\pkgs\\\\p.exe"
//
// Paths are taken apart as the platform does, and at the separator: a backslash ends a folder on
// Windows, or where it is given. The product gives none; tests of other separators do.
#ifndef VORNIK_QUERYPACKAGE_TEXT_PATHS_H
#define VORNIK_QUERYPACKAGE_TEXT_PATHS_H

#include <algorithm>
#include <string>
#include <string_view>

#include "model/literals.h"

namespace Vornik {

#ifdef _WIN32
inline constexpr char preferredSeparator = '\\';
#else
inline constexpr char preferredSeparator = '/';
#endif

// The file of that name in a folder. Neither is tidied first.
std::string PathInFolder(const std::string& folder, const std::string& name,
                         char separator = preferredSeparator);

// The descriptor of a pack's instance: the file with that name next to the pack.
std::string MemberPath(const std::string& packPath, const std::string& xmlFilename,
                       char separator = preferredSeparator);

// Whether an instance is the pack's own: it names no file, or the pack's file exactly.
bool IsSelfInstance(const std::string& packPath, const std::string& xmlFilename,
                    char separator = preferredSeparator);

// The last component of a path without its last extension. ".xml" has an empty stem.
std::string FileStem(const std::string& path, char separator = preferredSeparator);

// Whether a file in a folder is a descriptor by its name: it ends in ".xml", in these letters. For
// paths of either character type. Boost's path::extension ends the process where memory runs out.
template <typename Character>
bool HasDescriptorExtension(const std::basic_string<Character>& path) {
  constexpr std::string_view extension = descriptorExtension;
  return path.size() >= extension.size() &&
         std::equal(extension.rbegin(), extension.rend(), path.rbegin());
}

// Whether a path can name a descriptor at all: it contains ".xml" somewhere.
bool ContainsXmlExtension(const std::string& path);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_TEXT_PATHS_H
