#include "package_lookup.h"

#include <algorithm>
#include <cctype>

#include "literals.h"

namespace Vornik {

namespace {

const SupXmlProperties* FindIn(const std::vector<PackageXmlEntry>& entries,
                               const std::string& code) {
  const auto entry =
      std::find_if(entries.begin(), entries.end(), [&code](const PackageXmlEntry& candidate) {
        const std::string* value =
            FindPropertyValue(PropertyName::identificationCode, candidate.properties);
        return value == nullptr ? code.empty() : *value == code;
      });
  return entry == entries.end() ? nullptr : &entry->properties;
}

}  // namespace

const SupXmlProperties* FindByIdentificationCode(const std::string& code,
                                                 const std::vector<KovuPackEntry>& packs,
                                                 const std::vector<PackageXmlEntry>& individuals) {
  for (const KovuPackEntry& pack : packs) {
    if (const SupXmlProperties* found = FindIn(pack.members, code)) return found;
  }
  return FindIn(individuals, code);
}

PackageIndex::FoldTable PackageIndex::CurrentFolds() {
  FoldTable folds{};
  for (std::size_t byte = 0; byte < folds.size(); ++byte) {
    folds[byte] = static_cast<unsigned char>(std::tolower(static_cast<int>(byte)));
  }
  return folds;
}

void PackageIndex::Update() {
  if (const FoldTable folds = CurrentFolds(); folds != folds_) {
    folds_ = folds;
    knownPacks_ = knownIndividuals_ = 0;
    memberByCode_.clear();
    individualByCode_.clear();
  }
  // The first one of a code stays.
  for (; knownPacks_ < packs_.size(); ++knownPacks_) {
    const auto& members = packs_[knownPacks_].members;
    for (std::size_t i = 0; i < members.size(); ++i) {
      memberByCode_.try_emplace(
          GetPropertyValue(PropertyName::identificationCode, members[i].properties),
          MemberPlace{knownPacks_, i});
    }
  }
  for (; knownIndividuals_ < individuals_.size(); ++knownIndividuals_) {
    individualByCode_.try_emplace(GetPropertyValue(PropertyName::identificationCode,
                                                   individuals_[knownIndividuals_].properties),
                                  knownIndividuals_);
  }
}

const SupXmlProperties* PackageIndex::Find(const std::string& code) {
  Update();
  if (const auto found = memberByCode_.find(code); found != memberByCode_.end()) {
    return &packs_[found->second.pack].members[found->second.member].properties;
  }
  const auto found = individualByCode_.find(code);
  return found == individualByCode_.end() ? nullptr : &individuals_[found->second].properties;
}

}  // namespace Vornik
