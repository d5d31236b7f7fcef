#include "remedy/neighbourhood.h"

#include <algorithm>

#include "model/literals.h"
#include "model/machines.h"
#include "records/driver_files.h"

namespace Vornik::Cli {

namespace {

template <typename Visit>
void ForEachInstance(const Repository& repository, Visit visit) {
  const auto& packs = repository.kovuPackEntries();
  for (std::size_t pack = 0; pack < packs.size(); ++pack) {
    for (std::size_t i = 0; i < packs[pack].members.size(); ++i) visit(InstanceId{pack, i});
  }
  const std::size_t individuals = repository.packageXmlEntries().size();
  for (std::size_t i = 0; i < individuals; ++i) visit(InstanceId{InstanceId::noPack, i});
}

// Also those that a package would have with a version.
std::vector<std::string> DriverNames(const PackageXmlEntry& entry) {
  std::vector<std::string> names;
  for (const auto& file : ReadDriverFiles(entry.properties).files) names.push_back(file.name);
  if (GetPropertyValues(PropertyName::driverFiles, entry.properties).empty()) {
    names.push_back(GetPropertyValue(PropertyName::category, entry.properties));
  }
  names.erase(std::remove(names.begin(), names.end(), std::string()), names.end());
  return names;
}

FolderCopy PacksOf(const Repository& repository) {
  FolderCopy copy;
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) {
    copy.packs.push_back({pack.kovuXmlFile, {}, pack.members.size()});
  }
  return copy;
}

}  // namespace

Neighbourhoods::Neighbourhoods(const Repository& repository) : repository_(repository) {
  ForEachInstance(repository, [this](const InstanceId& id) {
    nodeOfCode_.emplace(fold_(CodeOf(EntryOf(id))), nodeOfCode_.size());
  });
  for (std::size_t node = 0; node < nodeOfCode_.size(); ++node) parents_.push_back(node);
  ForEachInstance(repository, [this](const InstanceId& id) { Add(id); });
  instances_.resize(parents_.size());
  ForEachInstance(repository, [this](const InstanceId& id) {
    instances_[RootOf(nodeOfCode_.at(fold_(CodeOf(EntryOf(id)))))].push_back(id);
  });
}

void Neighbourhoods::Add(const InstanceId& id) {
  const PackageXmlEntry& entry = EntryOf(id);
  const std::size_t node = nodeOfCode_.at(fold_(CodeOf(entry)));
  for (const std::string& code : GetPropertyValues(PropertyName::supersede, entry.properties)) {
    const auto named = nodeOfCode_.find(fold_(code));
    if (named != nodeOfCode_.end()) Connect(node, named->second);
  }
  for (const std::string& name : DriverNames(entry)) {
    Connect(node, nodeOfDriver_.emplace(fold_(name), node).first->second);
  }
  if (ReadDriverFiles(entry.properties).unclassifiedIndex) everywhere_.push_back(id);
}

void Neighbourhoods::Connect(std::size_t a, std::size_t b) { parents_[RootOf(b)] = RootOf(a); }

std::size_t Neighbourhoods::RootOf(std::size_t node) const {
  while (parents_[node] != node) node = parents_[node] = parents_[parents_[node]];
  return node;
}

const PackageXmlEntry& Neighbourhoods::EntryOf(const InstanceId& id) const {
  return id.pack == InstanceId::noPack ? repository_.packageXmlEntries()[id.entry]
                                       : repository_.kovuPackEntries()[id.pack].members[id.entry];
}

std::size_t Neighbourhoods::NumberOf(const std::string& code) const {
  const auto node = nodeOfCode_.find(fold_(code));
  return node == nodeOfCode_.end() ? none : RootOf(node->second);
}

FolderCopy Neighbourhoods::Of(const std::vector<std::string>& codes) const {
  std::set<InstanceId> ids(everywhere_.begin(), everywhere_.end());
  for (const std::string& code : codes) {
    const std::size_t number = NumberOf(code);
    if (number != none) ids.insert(instances_[number].begin(), instances_[number].end());
  }
  for (std::size_t pack = 0; pack < repository_.kovuPackEntries().size(); ++pack) {
    if (!repository_.kovuPackEntries()[pack].members.empty()) ids.insert({pack, 0});
  }
  FolderCopy copy = PacksOf(repository_);
  for (const InstanceId& id : ids) AddTo(copy, id);
  return copy;
}

void Neighbourhoods::AddTo(FolderCopy& copy, const InstanceId& id) const {
  auto& instances = id.pack == InstanceId::noPack ? copy.individuals : copy.packs[id.pack].members;
  instances.push_back({id, EntryOf(id)});
}

FolderCopy CopyOf(const Repository& repository) {
  FolderCopy copy = PacksOf(repository);
  ForEachInstance(repository, [&](const InstanceId& id) {
    if (id.pack == InstanceId::noPack) {
      copy.individuals.push_back({id, repository.packageXmlEntries()[id.entry]});
    } else {
      copy.packs[id.pack].members.push_back(
          {id, repository.kovuPackEntries()[id.pack].members[id.entry]});
    }
  });
  return copy;
}

}  // namespace Vornik::Cli
