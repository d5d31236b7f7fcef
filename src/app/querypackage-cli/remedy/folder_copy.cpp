#include "remedy/folder_copy.h"

#include <algorithm>

namespace Vornik::Cli {

CopiedInstance* FolderCopy::Find(const InstanceId& id) {
  std::vector<CopiedInstance>& instances =
      id.pack == InstanceId::noPack ? individuals : packs[id.pack].members;
  const auto found = std::find_if(instances.begin(), instances.end(),
                                  [&id](const CopiedInstance& each) { return each.id == id; });
  return found == instances.end() ? nullptr : &*found;
}

InstanceId FolderCopy::IdOf(const PropertySource& source, const Repository& reading) const {
  if (source.pack == nullptr) {
    return individuals[static_cast<std::size_t>(source.entry - reading.packageXmlEntries().data())]
        .id;
  }
  const auto pack = static_cast<std::size_t>(source.pack - reading.kovuPackEntries().data());
  return packs[pack].members[source.member].id;
}

FolderReading FolderCopy::Reading() const {
  FolderReading reading;
  for (const CopiedPack& pack : packs) {
    KovuPackEntry entry{pack.file, {}};
    entry.members.reserve(pack.members.size());
    for (const CopiedInstance& member : pack.members) entry.members.push_back(member.entry);
    reading.repository.Add(std::move(entry));
  }
  for (const CopiedInstance& individual : individuals) reading.repository.Add(individual.entry);
  return reading;
}

}  // namespace Vornik::Cli
