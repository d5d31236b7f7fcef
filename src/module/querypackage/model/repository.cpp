#include "model/repository.h"

#include <utility>

#include "model/literals.h"

namespace Vornik {

void Repository::Add(PackageXmlEntry entry) {
  index_.reset();
  packageXmlEntries_.push_back(std::move(entry));
}

void Repository::Add(KovuPackEntry entry) {
  index_.reset();
  kovuPackEntries_.push_back(std::move(entry));
}

void Repository::SampleLocale() {
  const ByteFold fold = CLibraryFold();
  if (fold != fold_) index_.reset();
  fold_ = fold;
}

Repository::Index Repository::BuildIndex() const {
  Index index;
  const auto addAll = [&index](const std::vector<PackageXmlEntry>& entries, std::size_t pack) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      // The first package with a code stays.
      index.try_emplace(GetPropertyValue(PropertyName::identificationCode, entries[i].properties),
                        Location{pack, i});
    }
  };
  for (std::size_t pack = 0; pack < kovuPackEntries_.size(); ++pack) {
    addAll(kovuPackEntries_[pack].members, pack);
  }
  addAll(packageXmlEntries_, noPack);
  return index;
}

const SupXmlProperties* Repository::Find(const std::string& code) const {
  const PropertySource source = FindSource(code);
  return source.entry == nullptr ? nullptr : &source.entry->properties;
}

PropertySource Repository::FindSource(const std::string& code) const {
  if (!index_) index_ = BuildIndex();
  const auto found = index_->find(code);
  if (found == index_->end()) return {};
  const auto [pack, entry] = found->second;
  if (pack == noPack) return {&packageXmlEntries_[entry], nullptr, 0};
  return {&kovuPackEntries_[pack].members[entry], &kovuPackEntries_[pack], entry};
}

}  // namespace Vornik
