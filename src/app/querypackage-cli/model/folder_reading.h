// A package folder read as a query reads it: the same files in the same order, through the same
// reader. What a query only logs is kept here, file by file, and no descriptor that would hang or
// abort a query does so here.
#ifndef VORNIK_CLI_MODEL_FOLDER_READING_H
#define VORNIK_CLI_MODEL_FOLDER_READING_H

#include <optional>
#include <string>
#include <vector>

#include "model/repository.h"
#include "reading/descriptor_reading.h"

namespace Vornik::Cli {

struct DescriptorFile {
  std::string path;  // as a query names it
  std::string name;  // the last component
};

struct FolderListing {
  std::vector<DescriptorFile> files;       // every file of the right extension
  std::optional<std::string> walkFailure;  // why the listing ended early; a query then fails too
};

// Throws std::bad_alloc only.
FolderListing ListDescriptors(const std::string& folder);

struct RepositoryFile {
  std::string path;
  std::string name;
  DescriptorReading reading;  // its properties are in the repository
};

// Why an XML document does not load, as opposed to one that contains nothing to read.
bool IsLoadFault(DescriptorFault fault);

struct Repository {
  std::vector<RepositoryFile> files;  // in the listing's order
  std::vector<PackageXmlEntry> individuals;
  std::vector<KovuPackEntry> packs;
  std::optional<std::string> walkFailure;
};

// Throws std::bad_alloc only.
Repository ReadRepository(const std::string& folder);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_FOLDER_READING_H
