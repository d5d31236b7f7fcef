// Which packs list which packages.
#ifndef VORNIK_CLI_LINT_CHECKS_PACK_LISTS_H
#define VORNIK_CLI_LINT_CHECKS_PACK_LISTS_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "lint/folder.h"

namespace Vornik::Cli {

using Packs = std::vector<const LintPack*>;

class PackLists {
 public:
  explicit PackLists(const LintFolder& folder);

  // Those of which a query makes a record with exactly that code, in order; none for an unknown
  // one.
  const Packs& Listing(const std::string& code) const;

  // Whether an individual descriptor has exactly that code.
  bool HasIndividual(const std::string& code) const { return individuals_.count(code) != 0; }

  // Whether a query can have records with both codes.
  bool CanMeet(const std::string& a, const std::string& b) const;

 private:
  std::map<std::string, Packs> packs_;
  std::set<std::string> individuals_;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_PACK_LISTS_H
