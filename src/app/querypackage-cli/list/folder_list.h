// What is in a package folder, without a query: its machines, packs and packages.
#ifndef VORNIK_CLI_LIST_FOLDER_LIST_H
#define VORNIK_CLI_LIST_FOLDER_LIST_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/hazard_check.h"
#include "model/machines.h"

namespace Vornik::Cli {

struct ListedMachine {
  Machine machine;
  std::size_t packages = 0;  // that a query of the machine returns and whose platform matches
  std::optional<std::size_t> pack;  // the index of the pack in use
};

struct ListedPack {
  std::string file;  // the last component, as in all that follows
  std::string version;
  std::vector<std::string> machineTypes;
  std::vector<std::uint32_t> systems;  // 0: any
  std::vector<std::string> members;    // codes, without the first member
  bool hasOwnInstance = true;          // false: the first member is taken for the pack and lost
};

// One for each descriptor, so that a code can be repeated.
struct ListedPackage {
  std::string code;
  std::string version;
  std::string type;
  std::string file;  // which contains the text: that of the pack for a member
};

struct FolderList {
  std::string folder;
  std::size_t files = 0;             // entries whose names end in ".xml"
  std::vector<std::string> notRead;  // those of them that contribute nothing
  std::vector<ListedMachine> machines;
  bool hasAllMachines = true;
  std::vector<PlatformEntry> invalidMachines;
  std::vector<ListedPack> packs;        // by file
  std::vector<ListedPackage> packages;  // by code, then file
  std::vector<Hazard> hazards;          // the first one of each file, by file
  std::optional<std::string> walkFailure;
};

// Throws std::bad_alloc only.
FolderList ListFolder(const std::string& folder);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LIST_FOLDER_LIST_H
