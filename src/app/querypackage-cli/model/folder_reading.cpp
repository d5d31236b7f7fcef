#include "model/folder_reading.h"

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/system_error.hpp>
#include <new>
#include <utility>

#include "inspection/descriptor_inspection.h"
#include "model/query_parameters.h"
#include "reading/descriptor_files.h"
#include "records/pack_members.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

void AddFile(FolderContents::File file, FolderReading& folder) {
  DescriptorReading& reading = file.reading;
  if (reading.fault == DescriptorFault::None) {
    if (reading.kind == DescriptorKind::Pack) {
      folder.repository.Add(
          KovuPackEntry{file.path, MembersOfPack(file.path, std::move(reading.properties))});
    } else {
      folder.repository.Add(PackageXmlEntry{file.path, std::move(reading.properties.front())});
    }
    reading.properties.clear();
  }
  std::string name = fs::path(file.path).filename().string();
  folder.files.push_back({std::move(file.path), std::move(name), std::move(reading)});
}

}  // namespace

FolderListing ListDescriptors(const std::string& folder) {
  FolderListing listing;
  try {
    for (fs::directory_iterator entry{fs::path(folder)}, end; entry != end; ++entry) {
      const fs::path& path = entry->path();
      if (!HasDescriptorExtension(path.native())) continue;
      boost::system::error_code unknown;
      const fs::file_type type = entry->status(unknown).type();
      listing.files.push_back({path.string(), path.filename().string(), type});
    }
  } catch (const boost::system::system_error& error) {
    if (IsOutOfMemory(error.code())) throw std::bad_alloc();
    listing.failure = std::current_exception();
  }
  return listing;
}

std::string FailureText(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const boost::system::system_error& error) {
    return error.what();
  }
}

FolderContents ReadContents(const std::string& folder, const ReadingProgress& progress) {
  FolderListing listing = ListDescriptors(folder);
  FolderContents contents;
  contents.failure = std::move(listing.failure);
  try {
    for (DescriptorFile& file : listing.files) {
      DescriptorReading reading = ReadDescriptor(file.path, file.type);
      contents.files.push_back({std::move(file.path), std::move(reading)});
      if (progress != nullptr) progress(contents.files.size(), listing.files.size());
    }
  } catch (const boost::system::system_error&) {
    contents.failure = std::current_exception();  // as it ends a query
  }
  return contents;
}

FolderContents ReadContentsOf(const QuerySettings& settings, const ReadingProgress& progress) {
  return HasValidParameters(settings) ? ReadContents(settings.folder, progress) : FolderContents();
}

FolderReading Load(FolderContents contents) {
  FolderReading folder;
  for (FolderContents::File& file : contents.files) AddFile(std::move(file), folder);
  if (contents.failure) folder.walkFailure = FailureText(contents.failure);
  return folder;
}

bool HasValidParameters(const QuerySettings& settings) {
  try {
    return CheckParameters({settings.folder, IsDirectory(settings.folder), settings.machineType,
                            settings.osValue, settings.arcValue, settings.includePackageIds,
                            settings.excludePackageIds})
               .fault == ParameterFault::None;
  } catch (const fs::filesystem_error&) {
    return false;
  }
}

}  // namespace Vornik::Cli
