// A package folder read as a query reads it: the same files in the same order, through the same
// reader. What a query only logs is kept here, file by file, and no descriptor that would hang or
// abort a query does so here.
#ifndef VORNIK_CLI_MODEL_FOLDER_READING_H
#define VORNIK_CLI_MODEL_FOLDER_READING_H

#include <boost/filesystem/file_status.hpp>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "model/query_settings.h"
#include "model/reading_progress.h"
#include "model/repository.h"
#include "reading/descriptor_reading.h"
#include "reading/folder_contents.h"

namespace Vornik::Cli {

struct DescriptorFile {
  std::string path;  // as a query names it
  std::string name;  // the last component
  boost::filesystem::file_type type;
};

struct FolderListing {
  std::vector<DescriptorFile> files;  // every file of the right extension
  std::exception_ptr failure;         // what ended it early, where a query fails; null: nothing
};

// Throws std::bad_alloc only.
FolderListing ListDescriptors(const std::string& folder);

// What ended a listing early, for a person.
std::string FailureText(const std::exception_ptr& failure);

struct RepositoryFile {
  std::string path;
  std::string name;
  DescriptorReading reading;  // its properties are in the repository
};

struct FolderReading {
  std::vector<RepositoryFile> files;  // in the listing's order
  Repository repository;
  std::optional<std::string> walkFailure;
};

// Throws std::bad_alloc, and what progress throws, which may be null.
FolderContents ReadContents(const std::string& folder, const ReadingProgress& progress = nullptr);

// The same for the folder of a query. Empty where the query is refused before it reads.
FolderContents ReadContentsOf(const QuerySettings& settings,
                              const ReadingProgress& progress = nullptr);

// What a query loads of it.
FolderReading Load(FolderContents contents);

inline FolderReading ReadFolder(const std::string& folder) { return Load(ReadContents(folder)); }

// Whether a query of these settings passes the parameter check.
bool HasValidParameters(const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_FOLDER_READING_H
