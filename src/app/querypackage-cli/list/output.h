// The listing of a folder as a person or a program reads it.
#ifndef VORNIK_CLI_LIST_OUTPUT_H
#define VORNIK_CLI_LIST_OUTPUT_H

#include <string>

#include "list/folder_list.h"

namespace Vornik::Cli {

enum class ListPart { All, Machines, Packs, Packages };

// Tables, and unless quiet what to note about the folder. Texts of descriptors go through
// Printable.
std::string ListText(const FolderList& list, ListPart part, bool quiet, bool colour);

// One table with a heading. All: the packages.
std::string ListCsv(const FolderList& list, ListPart part);

// The whole listing.
std::string ListJson(const FolderList& list);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LIST_OUTPUT_H
