// A package folder read as a query reads it: the same files in the same order, judged by the same
// rules. What a query only logs is kept here, file by file, and nothing is held or ended by a
// descriptor that would hold or end a query.
#ifndef VORNIK_CLI_REPOSITORY_H
#define VORNIK_CLI_REPOSITORY_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cimxml.h"
#include "properties.h"

namespace Vornik::Cli {

enum class FileKind { Pack, Individual, Neither };

// Why a file adds nothing to a query.
enum class FileFault {
  None,
  NotADescriptor,  // it holds neither marker
  NotLoaded,       // see RepositoryFile::load
  NoRoot,          // the document has no element
  NoProperties,    // an individual descriptor without any
  NoInstances,     // a pack without any that begins with CLASSNAME
  InstanceMisfit,  // a pack with an INSTANCE whose first attribute is not CLASSNAME: a query that
                   // loads it never returns
};

struct RepositoryFile {
  std::string path;  // as a query names it
  std::string name;  // the last component
  FileKind kind = FileKind::Neither;
  FileFault fault = FileFault::None;
  LoadOutcome load;
  std::size_t emptyInstances =
      0;  // instances of a pack that are passed over for lack of properties
};

struct Repository {
  std::vector<RepositoryFile> files;  // every file of the right extension, in the listing's order
  std::vector<PackageXmlEntry> individuals;
  std::vector<KovuPackEntry> packs;
  std::optional<std::string> walkFailure;  // why the listing ended early; a query then fails too
};

// Throws std::bad_alloc only.
Repository ReadRepository(const std::string& folder);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REPOSITORY_H
