// The part of a folder on which a package's record depends, so that the package can be evaluated at
// the cost of that part, not of the folder.
//
// Two packages are connected if their codes have the same letters, if the "supersede" list of one
// names the other, or if they have a driver file with the same name; and so are those that are
// connected through others. Letters are folded as the supersede rule folds them. A category counts
// as a driver file where it may stand in for one.
#ifndef VORNIK_CLI_REMEDY_NEIGHBOURHOOD_H
#define VORNIK_CLI_REMEDY_NEIGHBOURHOOD_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "model/repository.h"
#include "remedy/folder_copy.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

class Neighbourhoods {
 public:
  // One index for the whole folder. repository is borrowed.
  explicit Neighbourhoods(const Repository& repository);

  // Of all codes that are connected, the same number.
  static constexpr std::size_t none = static_cast<std::size_t>(-1);
  std::size_t NumberOf(const std::string& code) const;

  // A folder of which every query has the same record for each of the codes as a query of the whole
  // folder. It has every pack with its first member, and the connected packages in their order; so
  // packs are chosen alike. It has every package that aborts a query, too.
  FolderCopy Of(const std::vector<std::string>& codes) const;

 private:
  void Add(const InstanceId& id);
  void Connect(std::size_t a, std::size_t b);
  std::size_t RootOf(std::size_t node) const;
  const PackageXmlEntry& EntryOf(const InstanceId& id) const;
  void AddTo(FolderCopy& copy, const InstanceId& id) const;

  const Repository& repository_;
  const LocaleFold fold_;
  std::map<std::string, std::size_t> nodeOfCode_;    // by folded code
  std::map<std::string, std::size_t> nodeOfDriver_;  // by folded name; a node of a code
  mutable std::vector<std::size_t> parents_;         // of the nodes
  std::vector<std::vector<InstanceId>> instances_;   // of each root, in the folder's order
  std::vector<InstanceId> everywhere_;               // those that abort a query
};

// The whole folder.
FolderCopy CopyOf(const Repository& repository);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_NEIGHBOURHOOD_H
