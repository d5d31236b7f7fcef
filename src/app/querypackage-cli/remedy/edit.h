// One edit of a repository: a property of an instance that gets other values, a file that is added,
// or an entry that is added to a pack.
#ifndef VORNIK_CLI_REMEDY_EDIT_H
#define VORNIK_CLI_REMEDY_EDIT_H

#include <string>
#include <vector>

#include "model/properties.h"
#include "remedy/folder_copy.h"

namespace Vornik::Cli {

enum class EditKind {
  SetProperty,
  AddFile,
  AddPackEntry,
};

struct Edit {
  EditKind kind = EditKind::SetProperty;
  std::string file;     // the descriptor to change, or the file to add
  int line = 0;         // of the property, from 1; of its instance where it is missing; 0: none
  InstanceId instance;  // SetProperty; of an added entry only the pack

  // SetProperty. All values of the last property with that name, in any case; where there is none,
  // one is added. Of a property with one value that value is the first.
  std::string property;
  std::vector<std::string> before;
  std::vector<std::string> after;

  SupXmlProperties properties;  // AddPackEntry: of the new instance, the last of the pack
};

// A remedy. Each edit is for the folder with those before it.
using Edits = std::vector<Edit>;

// The values of a property as an edit has them.
Edit EditOf(const CopiedInstance& instance, const std::string& file, std::string property,
            std::vector<std::string> after);

// Whether they are the same edits, in any order.
bool AreSame(const Edits& a, const Edits& b);

// Gives the last property with that name, in any case, these values, or adds one.
void SetValues(SupXmlProperties& properties, const std::string& name,
               const std::vector<std::string>& values);

// Makes the folder what a query would load of it after the edit.
void Apply(const Edit& edit, FolderCopy& folder);

// The edits of one property as one edit, in the order of the first of each.
Edits Merged(Edits edits);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_EDIT_H
