// A copy of what was read of a folder, or of a part of it, that can be edited.
#ifndef VORNIK_CLI_REMEDY_FOLDER_COPY_H
#define VORNIK_CLI_REMEDY_FOLDER_COPY_H

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "model/folder_reading.h"
#include "model/repository.h"

namespace Vornik::Cli {

// An individual descriptor or a pack's member, by its index in the folder as it was read. An entry
// that an edit adds to a pack has the number of the pack's members, or a greater one.
struct InstanceId {
  static constexpr std::size_t noPack = static_cast<std::size_t>(-1);

  std::size_t pack = noPack;
  std::size_t entry = 0;

  bool operator==(const InstanceId& other) const {
    return pack == other.pack && entry == other.entry;
  }
  bool operator<(const InstanceId& other) const {
    return pack != other.pack ? pack < other.pack : entry < other.entry;
  }
};

struct CopiedInstance {
  InstanceId id;
  PackageXmlEntry entry;
};

struct CopiedPack {
  std::string file;
  std::vector<CopiedInstance> members;  // in the order of a pack's members
  std::size_t nextEntry = 0;            // of the id of an entry that is added
};

struct FolderCopy {
  std::vector<CopiedPack> packs;  // all of the folder, so that their indices are the folder's
  std::vector<CopiedInstance> individuals;
  std::set<std::string> addedFiles;  // paths that are regular files besides those of the folder

  // Null where the copy has no such instance.
  CopiedInstance* Find(const InstanceId& id);

  // Which instance a source of the copy's reading is.
  InstanceId IdOf(const PropertySource& source, const Repository& reading) const;

  // What a query would load. It has no files.
  FolderReading Reading() const;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_FOLDER_COPY_H
