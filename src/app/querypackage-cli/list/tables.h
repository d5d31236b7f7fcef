// The tables of a listing.
#ifndef VORNIK_CLI_LIST_TABLES_H
#define VORNIK_CLI_LIST_TABLES_H

#include <string>
#include <vector>

#include "list/folder_list.h"

namespace Vornik::Cli {

struct ListTable {
  std::vector<std::string> headings;  // for people
  std::vector<std::string> names;     // for programs
  std::vector<std::vector<std::string>> rows;
};

ListTable MachineTable(const FolderList& list);
ListTable PackTable(const FolderList& list);
ListTable PackageTable(const FolderList& list);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LIST_TABLES_H
