#include "lint/checks/pack_lists.h"

#include <algorithm>

namespace Vornik::Cli {

PackLists::PackLists(const LintFolder& folder) {
  for (const LintPack& pack : folder.packs) {
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      Packs& packs = packs_[pack.members[i].Code()];
      if (packs.empty() || packs.back() != &pack) packs.push_back(&pack);
    }
  }
  for (const LintPackage& package : folder.individuals) individuals_.insert(package.Code());
}

const Packs& PackLists::Listing(const std::string& code) const {
  static const Packs none;
  const auto found = packs_.find(code);
  return found == packs_.end() ? none : found->second;
}

bool PackLists::CanMeet(const std::string& a, const std::string& b) const {
  if (HasIndividual(a) || HasIndividual(b)) return true;
  const Packs& ofB = Listing(b);
  const Packs& ofA = Listing(a);
  return std::any_of(ofA.begin(), ofA.end(), [&ofB](const LintPack* pack) {
    return std::find(ofB.begin(), ofB.end(), pack) != ofB.end();
  });
}

}  // namespace Vornik::Cli
