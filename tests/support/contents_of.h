// What a query would read of a folder, read before it.
#ifndef VORNIK_TESTS_CONTENTS_OF_H
#define VORNIK_TESTS_CONTENTS_OF_H

#include <boost/filesystem/directory.hpp>
#include <string>

#include "inspection/descriptor_inspection.h"
#include "reading/folder_contents.h"
#include "text/paths.h"

namespace Vornik::Testing {

inline FolderContents ContentsOf(const std::string& folder) {
  FolderContents contents;
  for (const auto& entry : boost::filesystem::directory_iterator(folder)) {
    if (!HasDescriptorExtension(entry.path().native())) continue;
    const std::string path = entry.path().string();
    contents.files.push_back({path, ReadDescriptor(path, entry.status().type())});
  }
  return contents;
}

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CONTENTS_OF_H
