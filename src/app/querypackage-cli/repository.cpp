#include "repository.h"

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/path.hpp>
#include <utility>

#include "descriptor_classification.h"
#include "pack_members.h"
#include "package_paths.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

FileKind KindOf(const std::string& path) {
  const DescriptorMarkers markers = MarkersOfFile(path);
  if (IsKovuText(markers)) return FileKind::Pack;
  return IsIndividualText(markers) ? FileKind::Individual : FileKind::Neither;
}

// True if the document has a root; otherwise file says why not.
bool Load(RepositoryFile& file, DescriptorKind kind, CimXmlDocument& document) {
  file.load = document.LoadFile(file.path, kind);
  if (file.load.fault != LoadFault::None) {
    file.fault = FileFault::NotLoaded;
  } else if (document.Root() == nullptr) {
    file.fault = FileFault::NoRoot;
  }
  return file.fault == FileFault::None;
}

void ReadIndividual(RepositoryFile& file, Repository& repository) {
  CimXmlDocument document;
  if (!Load(file, DescriptorKind::Individual, document)) return;
  SupXmlProperties properties;
  ReadProperties(document.Root(), properties);
  if (properties.empty()) {
    file.fault = FileFault::NoProperties;
    return;
  }
  repository.individuals.push_back({file.path, std::move(properties)});
}

void ReadPack(RepositoryFile& file, Repository& repository) {
  CimXmlDocument document;
  if (!Load(file, DescriptorKind::Pack, document)) return;
  std::vector<const TiXmlNode*> instances;
  if (CollectInstances(document.Root(), instances) != nullptr) {
    file.fault = FileFault::InstanceMisfit;
    return;
  }
  if (instances.empty()) {
    file.fault = FileFault::NoInstances;
    return;
  }
  PackMembers members(file.path);
  for (const TiXmlNode* instance : instances) {
    SupXmlProperties properties;
    ReadProperties(instance, properties);
    if (properties.empty()) {
      ++file.emptyInstances;
    } else {
      members.Add(std::move(properties));
    }
  }
  repository.packs.push_back({file.path, members.Take()});
}

void ReadOne(const fs::path& path, Repository& repository) {
  RepositoryFile file;
  file.path = path.string();
  file.name = path.filename().string();
  file.kind = KindOf(file.path);
  switch (file.kind) {
    case FileKind::Pack:
      ReadPack(file, repository);
      break;
    case FileKind::Individual:
      ReadIndividual(file, repository);
      break;
    case FileKind::Neither:
      file.fault = FileFault::NotADescriptor;
      break;
  }
  repository.files.push_back(std::move(file));
}

}  // namespace

Repository ReadRepository(const std::string& folder) {
  Repository repository;
  try {
    for (fs::directory_iterator entry{fs::path(folder)}, end; entry != end; ++entry) {
      if (HasDescriptorExtension(entry->path().native())) {
        ReadOne(entry->path(), repository);
      }
    }
  } catch (const fs::filesystem_error& error) {
    repository.walkFailure = error.what();
  }
  return repository;
}

}  // namespace Vornik::Cli
