// The files of a package folder: what kind a path names, and what a regular file contains.
#ifndef VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_FILES_H
#define VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_FILES_H

#include <boost/filesystem/file_status.hpp>
#include <boost/system/error_code.hpp>
#include <cstddef>
#include <optional>
#include <string>

#include "descriptor_markers.h"

namespace Vornik {

// Up to here a file is read once, and all its bytes are kept. One that is longer is searched first,
// in constant memory, and read again only if it has a marker.
inline constexpr std::size_t usualFileSize = std::size_t{4} << 20U;

// Files that are longer are read no further and never parsed: TinyXML counts in longs, which have
// 32 bits on Windows.
inline constexpr std::size_t maxFileSize = (std::size_t{1} << 31U) - 1;

enum class FileFault {
  None,
  NotOpened,   // see error
  IsFolder,    // not opened
  NotRegular,  // a pipe, a device: not opened, or closed at once if it took a file's place
  NotRead,     // see error
};

struct FileReading {
  FileFault fault = FileFault::None;
  int error = 0;  // errno of a fault; 0: not known
  DescriptorMarkers markers;
  bool isTooLarge = false;  // the markers are those of the first maxFileSize bytes
  // Nothing for a fault, a file that is too large, and one over usualFileSize without a marker.
  std::optional<std::string> bytes;
};

// Whether an error of the file-system library is that memory ran out, and so no fault of a folder.
bool IsOutOfMemory(const boost::system::error_code& error);

// Whether path names a directory, through links. Throws what the file-system library throws if that
// cannot be determined.
bool IsDirectory(const std::string& path);

// Whether path names a regular file, through links. Any error, a loop of links included, is a no.
bool IsRegularFile(const std::string& path);

// Reads what may be a descriptor: a regular file, or on Windows a reparse point that is no link, as
// deduplicated files and placeholders of files in a cloud are. Nothing else is opened: a pipe would
// block, a device may act. Throws a filesystem_error where the process or the system has no file
// descriptors left. type is what the folder's listing says, and is checked on the open file.
FileReading ReadEntry(const std::string& path, boost::filesystem::file_type type,
                      TextMode mode = nativeTextMode);

// The same for a path of which nothing is known.
FileReading ReadFile(const std::string& path, TextMode mode = nativeTextMode);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_READING_DESCRIPTOR_FILES_H
