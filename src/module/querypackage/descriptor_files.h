// The files of a package folder: what kind a path names, and a regular file's bytes.
#ifndef VORNIK_QUERYPACKAGE_DESCRIPTOR_FILES_H
#define VORNIK_QUERYPACKAGE_DESCRIPTOR_FILES_H

#include <optional>
#include <string>

namespace Vornik {

// Whether path names a regular file, through links. Any error, a loop of links included, is a no.
bool IsRegularFile(const std::string& path);

// The bytes of a regular file. Nothing else is opened: a pipe would block, and a folder opens on
// some systems but never ends. Nothing when there is no such file or it cannot be read whole.
std::optional<std::string> ReadRegularFile(const std::string& path);

// The same where the path is known to name a regular file, without asking again.
std::optional<std::string> ReadKnownRegularFile(const std::string& path);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_DESCRIPTOR_FILES_H
