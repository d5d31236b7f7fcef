#include "model/folder_reading.h"

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/system_error.hpp>
#include <utility>

#include "inspection/descriptor_inspection.h"
#include "records/pack_members.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

void AddFile(const DescriptorFile& file, Repository& repository) {
  DescriptorReading reading = ReadDescriptor(file.path);
  if (reading.fault == DescriptorFault::None) {
    if (reading.kind == DescriptorKind::Pack) {
      repository.packs.push_back(
          {file.path, MembersOfPack(file.path, std::move(reading.properties))});
    } else {
      repository.individuals.push_back({file.path, std::move(reading.properties.front())});
    }
    reading.properties.clear();
  }
  repository.files.push_back({file.path, file.name, std::move(reading)});
}

}  // namespace

FolderListing ListDescriptors(const std::string& folder) {
  FolderListing listing;
  try {
    for (fs::directory_iterator entry{fs::path(folder)}, end; entry != end; ++entry) {
      const fs::path& path = entry->path();
      if (!HasDescriptorExtension(path.native())) continue;
      listing.files.push_back({path.string(), path.filename().string()});
    }
  } catch (const boost::system::system_error& error) {
    listing.walkFailure = error.what();
  }
  return listing;
}

bool IsLoadFault(DescriptorFault fault) {
  switch (fault) {
    case DescriptorFault::Empty:
    case DescriptorFault::TooLarge:
    case DescriptorFault::NestedTooDeep:
    case DescriptorFault::TooManyAttributes:
    case DescriptorFault::TooManyProperties:
    case DescriptorFault::NotWellFormed:
      return true;
    default:
      return false;
  }
}

Repository ReadRepository(const std::string& folder) {
  FolderListing listing = ListDescriptors(folder);
  Repository repository;
  for (const DescriptorFile& file : listing.files) AddFile(file, repository);
  repository.walkFailure = std::move(listing.walkFailure);
  return repository;
}

}  // namespace Vornik::Cli
