#include "plain_supersede.h"

#include <cstdint>
#include <cstring>
#include <locale>
#include <utility>

namespace Vornik::Testing {

namespace {

constexpr std::uint32_t kept = 1;
constexpr std::uint32_t superseded = 2;
constexpr std::uint32_t refusedByPlatform = 2;

bool AreRelated(const QueryPackageResult& a, const QueryPackageResult& b) {
  for (const auto& ofA : a.driverFiles) {
    for (const auto& ofB : b.driverFiles) {
      if (PlainFoldedEqual(ofA.name, ofB.name)) return true;
    }
  }
  return false;
}

bool Holds(const PlainCodes& codes, const std::string& code) {
  for (const std::string& one : codes) {
    if (one == code) return true;
  }
  return false;
}

void PutIntoGroup(std::vector<PlainCodes>& groups, const std::string& anchor,
                  const std::string& code) {
  for (PlainCodes& group : groups) {
    if (Holds(group, anchor)) {
      group.push_back(code);
      return;
    }
  }
  groups.push_back({anchor, code});
}

PlainCodes Cleaned(PlainRecords& records, const PlainCodes& group, const PlainCodes& excludedIds) {
  PlainCodes cleaned;
  for (const std::string& code : group) {
    if (PlainFind(records, code) == nullptr) continue;
    if (PlainIsListed(excludedIds, code)) continue;
    if (Holds(cleaned, code)) continue;
    cleaned.push_back(code);
  }
  return cleaned;
}

bool IsGreaterVersion(const QueryPackageResult& a, const QueryPackageResult& b) {
  // strcmp compares as unsigned char.
  return std::strcmp(PlainFold(a.Version).c_str(), PlainFold(b.Version).c_str()) > 0;
}

void ApplyEntry(PlainRecords& records, const std::string& key, const PlainCodes& codes) {
  for (const std::string& code : codes) {
    if (QueryPackageResult* record = PlainFind(records, code)) {
      record->supersededById = key;
      record->supersedeFilterStatus = superseded;
    }
  }
  if (QueryPackageResult* record = PlainFind(records, key)) {
    record->supersedesId = codes.front();
    record->supersedeFilterStatus = kept;
  }
}

void ApplyGroup(PlainRecords& records, const PlainCodes& group) {
  const PlainRecords ranking = PlainRanking(records, group);
  if (ranking.size() < 2) return;
  for (std::size_t k = 0; k < ranking.size(); ++k) {
    QueryPackageResult* record = PlainFind(records, ranking[k].identificationCode);
    if (record == nullptr) continue;
    const bool isLast = k + 1 == ranking.size();
    if (k != 0) record->supersedesId = ranking[k - 1].identificationCode;
    if (!isLast) record->supersededById = ranking[k + 1].identificationCode;
    record->supersedeFilterStatus = isLast ? kept : superseded;
  }
}

}  // namespace

std::string PlainFold(const std::string& text) {
  const std::locale global;
  const auto& letters = std::use_facet<std::ctype<char>>(global);
  std::string folded;
  for (const char c : text) folded += letters.tolower(c);
  return folded;
}

bool PlainFoldedEqual(const std::string& a, const std::string& b) {
  return PlainFold(a) == PlainFold(b);
}

QueryPackageResult* PlainFind(PlainRecords& records, const std::string& code) {
  for (QueryPackageResult& record : records) {
    if (PlainFoldedEqual(record.identificationCode, code)) return &record;
  }
  return nullptr;
}

bool PlainIsListed(const PlainCodes& ids, const std::string& code) {
  for (const std::string& id : ids) {
    if (PlainFoldedEqual(id, code)) return true;
  }
  return false;
}

std::map<std::string, PlainCodes> PlainMap(PlainRecords records,
                                           const std::vector<PlainCodes>& lists) {
  std::map<std::string, PlainCodes> map;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (records[i].platformFilterStatus == refusedByPlatform) continue;
    PlainCodes known;
    for (const std::string& code : lists[i]) {
      if (PlainFind(records, code) != nullptr) known.push_back(code);
    }
    if (!known.empty()) map[records[i].identificationCode] = known;
  }
  return map;
}

std::vector<PlainCodes> PlainGroups(const PlainRecords& records) {
  std::vector<PlainCodes> groups;
  for (std::size_t i = 0; i < records.size(); ++i) {
    for (std::size_t j = i + 1; j < records.size(); ++j) {
      if (records[i].platformFilterStatus == refusedByPlatform) continue;
      if (records[j].platformFilterStatus == refusedByPlatform) continue;
      if (!AreRelated(records[i], records[j])) continue;
      PutIntoGroup(groups, records[i].identificationCode, records[j].identificationCode);
    }
  }
  return groups;
}

std::vector<PlainCodes> PlainRankedGroups(PlainRecords records, const PlainCodes& excludedIds) {
  std::vector<PlainCodes> ranked;
  for (const PlainCodes& group : PlainGroups(records)) {
    const PlainCodes cleaned = Cleaned(records, group, excludedIds);
    if (cleaned.size() >= 2) ranked.push_back(cleaned);
  }
  return ranked;
}

PlainRecords PlainRanking(PlainRecords records, const PlainCodes& group) {
  PlainRecords copies;
  for (const std::string& code : group) {
    const QueryPackageResult* record = PlainFind(records, code);
    if (record != nullptr) copies.push_back(*record);
  }
  for (std::size_t p = 0; p < copies.size(); ++p) {
    for (std::size_t q = p + 1; q < copies.size(); ++q) {
      if (IsGreaterVersion(copies[p], copies[q])) std::swap(copies[p], copies[q]);
    }
  }
  return copies;
}

void PlainSupersede(PlainRecords& records, const std::vector<PlainCodes>& lists,
                    const PlainCodes& excludedIds) {
  for (QueryPackageResult& record : records) record.supersedeFilterStatus = kept;
  for (const auto& [key, codes] : PlainMap(records, lists)) ApplyEntry(records, key, codes);
  for (const PlainCodes& group : PlainRankedGroups(records, excludedIds)) {
    ApplyGroup(records, group);
  }
}

}  // namespace Vornik::Testing
