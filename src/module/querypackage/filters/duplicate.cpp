#include "filters/duplicate.h"

#include <map>
#include <string_view>
#include <utility>

namespace Vornik {

namespace {

struct KeptRecord {
  std::size_t index;
  bool hasPack;
};

}  // namespace

std::vector<Duplicate> FindDuplicates(const std::vector<QueryPackageResult>& records) {
  std::vector<Duplicate> duplicates;
  // Ordered, because the descriptors choose the codes.
  std::map<std::string_view, KeptRecord> keptByCode;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const bool hasPack = !records[i].kovuName.empty();
    const auto [kept, isFirst] =
        keptByCode.try_emplace(records[i].identificationCode, KeptRecord{i, hasPack});
    if (isFirst) continue;
    const bool transfersPack = hasPack && !kept->second.hasPack;
    kept->second.hasPack |= transfersPack;
    duplicates.push_back({i, kept->second.index, transfersPack});
  }
  return duplicates;
}

void RemoveDuplicates(std::vector<QueryPackageResult>& records,
                      const std::vector<Duplicate>& duplicates) {
  if (duplicates.empty()) return;
  for (const Duplicate& duplicate : duplicates) {
    if (!duplicate.transfersPack) continue;
    records[duplicate.kept].kovuXmlFile = std::move(records[duplicate.index].kovuXmlFile);
    records[duplicate.kept].kovuName = std::move(records[duplicate.index].kovuName);
  }
  auto next = duplicates.begin();
  std::size_t end = 0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (next != duplicates.end() && next->index == i) {
      ++next;
      continue;
    }
    if (end != i) records[end] = std::move(records[i]);
    ++end;
  }
  records.resize(end);
}

}  // namespace Vornik
