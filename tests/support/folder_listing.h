// How the test program lists folders: in the order of the names, so that logs and records of whole
// folders can be compared, and failing where a test asks for it.
//
// On POSIX this stands between the file-system library and the C library's opendir and readdir.
// Windows lists by name of itself; there nothing can be made to fail.
#ifndef VORNIK_TESTS_FOLDER_LISTING_H
#define VORNIK_TESTS_FOLDER_LISTING_H

#include <cstddef>

namespace Vornik::Testing {

class FolderListing {
 public:
  // While it lives, every listing fails with that error number after so many entries.
  FolderListing(std::size_t entries, int errorNumber);
  ~FolderListing();
  FolderListing(const FolderListing&) = delete;
  FolderListing& operator=(const FolderListing&) = delete;
};

// While it lives, every attempt to list a folder fails with that error number from the start.
class FoldersCannotBeOpened {
 public:
  explicit FoldersCannotBeOpened(int errorNumber);
  ~FoldersCannotBeOpened();
  FoldersCannotBeOpened(const FoldersCannotBeOpened&) = delete;
  FoldersCannotBeOpened& operator=(const FoldersCannotBeOpened&) = delete;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_FOLDER_LISTING_H
