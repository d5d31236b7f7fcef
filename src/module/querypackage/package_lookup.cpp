#include "package_lookup.h"

#include <algorithm>
#include <cctype>
#include <numeric>

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

PackageIndex::PackageIndex(const std::vector<KovuPackEntry>& packs,
                           const std::vector<PackageXmlEntry>& individuals)
    : packs_(packs), individuals_(individuals) {
  LearnFolds(PropertyName::identificationCode);
}

bool PackageIndex::AreFoldsCurrent() const {
  return std::all_of(folds_.begin(), folds_.end(),
                     [](const Fold& fold) { return std::tolower(fold.byte) == fold.folded; });
}

void PackageIndex::LearnFolds(std::string_view name) {
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (isFoldKnown_[byte]) continue;
    isFoldKnown_[byte] = true;
    folds_.push_back({byte, std::tolower(byte)});
  }
}

std::string_view PackageIndex::Learn(const PackageXmlEntry& entry) {
  constexpr std::string_view name = PropertyName::identificationCode;
  for (const SupXmlProperty& property : entry.properties) {
    if (property.name.size() == name.size()) LearnFolds(property.name);
  }
  const std::string* code = FindPropertyValue(name, entry.properties);
  return code == nullptr ? std::string_view() : *code;
}

void PackageIndex::Reserve() {
  if (knownIndividuals_ == 0) individualByCode_.reserve(individuals_.size());
  if (knownPacks_ != 0) return;
  memberByCode_.reserve(std::accumulate(
      packs_.begin(), packs_.end(), std::size_t{0},
      [](std::size_t count, const KovuPackEntry& pack) { return count + pack.members.size(); }));
}

void PackageIndex::Update() {
  if (!AreFoldsCurrent()) {
    for (Fold& fold : folds_) fold.folded = std::tolower(fold.byte);
    knownPacks_ = knownIndividuals_ = 0;
    memberByCode_.clear();
    individualByCode_.clear();
  }
  if (knownPacks_ == packs_.size() && knownIndividuals_ == individuals_.size()) return;
  Reserve();
  // The first one of a code stays.
  for (; knownPacks_ < packs_.size(); ++knownPacks_) {
    const auto& members = packs_[knownPacks_].members;
    for (std::size_t i = 0; i < members.size(); ++i) {
      memberByCode_.try_emplace(Learn(members[i]), MemberPlace{knownPacks_, i});
    }
  }
  for (; knownIndividuals_ < individuals_.size(); ++knownIndividuals_) {
    individualByCode_.try_emplace(Learn(individuals_[knownIndividuals_]), knownIndividuals_);
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
