// What was read of a package folder, before a query of it: the query then judges what was looked
// at.
#ifndef VORNIK_QUERYPACKAGE_READING_FOLDER_CONTENTS_H
#define VORNIK_QUERYPACKAGE_READING_FOLDER_CONTENTS_H

#include <exception>
#include <string>
#include <vector>

#include "descriptor_reading.h"

namespace Vornik {

struct FolderContents {
  struct File {
    std::string path;  // as a query names it
    DescriptorReading reading;
  };

  std::vector<File> files;     // every file of the right extension, in the listing's order
  std::exception_ptr failure;  // what ended the listing early; null: it was read to its end
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_READING_FOLDER_CONTENTS_H
