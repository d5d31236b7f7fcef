// Which pack a query uses, or why none.
#ifndef VORNIK_CLI_QUERY_PACK_SUMMARY_H
#define VORNIK_CLI_QUERY_PACK_SUMMARY_H

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "model/query_settings.h"
#include "reading/folder_contents.h"

namespace Vornik::Cli {

struct PackSummary {
  std::size_t packs = 0;  // of the folder

  // The pack in use: the last component of its path, and its version; empty: none is used.
  std::string file;
  std::string version;

  // What applies to the machine besides, if another one may be used when the system lists the
  // folder in another order; otherwise empty.
  std::vector<std::string> rivals;

  // What the packs name: machine types, and the systems of those for the query's machine type.
  std::set<std::string> machineTypes;
  std::set<std::uint32_t> systems;
};

PackSummary SummarizePacks(const FolderContents& contents, const QuerySettings& settings);

// One sentence: the pack in use, or why there is none.
std::string TextOf(const PackSummary& summary, const QuerySettings& settings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_QUERY_PACK_SUMMARY_H
