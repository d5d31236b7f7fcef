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

std::size_t IndexFor(PlainRecords& records, const std::string& code) {
  const QueryPackageResult* record = PlainFind(records, code);
  return record == nullptr ? records.size() : static_cast<std::size_t>(record - records.data());
}

bool IsRefused(const QueryPackageResult& record) {
  return record.platformFilterStatus == refusedByPlatform;
}

// Whose list is in the map under a key.
std::size_t OwnerOf(PlainRecords& records, const std::vector<PlainCodes>& lists,
                    const std::string& key) {
  std::size_t owner = records.size();
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (IsRefused(records[i]) || records[i].identificationCode != key) continue;
    for (const std::string& code : lists[i]) {
      if (PlainFind(records, code) != nullptr) owner = i;
    }
  }
  return owner;
}

void AddLists(PlainRecords& records, const std::vector<PlainCodes>& lists, std::size_t index,
              PlainReasonLines& lines) {
  for (const auto& [key, codes] : PlainMap(records, lists)) {
    const std::size_t owner = OwnerOf(records, lists, key);
    for (std::size_t k = 0; k < lists[owner].size(); ++k) {
      if (IndexFor(records, lists[owner][k]) == index) lines.List(owner, k);
    }
    if (IndexFor(records, key) == index) lines.List(owner, std::nullopt);
  }
}

bool Delivers(const QueryPackageResult& record, const std::string& folded) {
  for (const auto& file : record.driverFiles) {
    if (PlainFold(file.name) == folded) return true;
  }
  return false;
}

PlainCodes SharedNames(const PlainRecords& records, const std::vector<std::size_t>& ranked) {
  std::set<std::string> shared;
  for (const std::size_t a : ranked) {
    for (const std::size_t b : ranked) {
      for (const auto& file : records[a].driverFiles) {
        const std::string folded = PlainFold(file.name);
        if (a != b && Delivers(records[b], folded)) shared.insert(folded);
      }
    }
  }
  return {shared.begin(), shared.end()};
}

void AddRankings(PlainRecords& records, const PlainCodes& excludedIds, std::size_t index,
                 PlainReasonLines& lines) {
  for (const PlainCodes& group : PlainRankedGroups(records, excludedIds)) {
    std::vector<std::size_t> ranked;
    PlainCodes versions;
    std::optional<std::size_t> place;
    for (const QueryPackageResult& copy : PlainRanking(records, group)) {
      ranked.push_back(IndexFor(records, copy.identificationCode));
      versions.emplace_back(PlainFold(copy.Version).c_str());
      if (ranked.back() == index) place = ranked.size() - 1;
    }
    if (place) lines.Ranking(ranked, *place, versions, SharedNames(records, ranked));
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

void PlainReasonLines::List(std::size_t owner, std::optional<std::size_t> position) {
  Say("list of " + std::to_string(owner) +
      (position ? " names it at " + std::to_string(*position) : " keeps it"));
}

void PlainReasonLines::Ranking(const std::vector<std::size_t>& records, std::size_t place,
                               const PlainCodes& versions, const PlainCodes& driverFiles) {
  std::string line = "ranked " + std::to_string(place);
  for (const std::size_t i : records) line += ", " + std::to_string(i);
  for (const std::string& version : versions) line += ", version " + version;
  for (const std::string& name : driverFiles) line += ", file " + name;
  Say(line);
}

PlainCodes PlainReason(PlainRecords records, const std::vector<PlainCodes>& lists,
                       const std::set<std::size_t>& withoutProperties,
                       const PlainCodes& excludedIds, std::size_t index) {
  PlainReasonLines lines;
  const QueryPackageResult& own = records.at(index);
  const bool isRefused = IsRefused(own);
  AddLists(records, lists, index, lines);
  AddRankings(records, excludedIds, index, lines);
  if (isRefused) lines.Say("refused");
  if (PlainIsListed(excludedIds, own.identificationCode)) lines.Say("excluded");
  if (!isRefused && withoutProperties.count(index) != 0) lines.Say("no properties");
  const std::size_t owner = OwnerOf(records, lists, own.identificationCode);
  if (owner != records.size()) lines.Say("list counted", owner);
  lines.Say("marked", IndexFor(records, own.identificationCode));
  for (std::size_t k = 0; !isRefused && k < lists[index].size(); ++k) {
    if (PlainFind(records, lists[index][k]) == nullptr) lines.Say("unknown", k);
  }
  PlainReasonLines excluded;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (i == index || !AreRelated(own, records[i])) continue;
    if (IsRefused(records[i])) {
      lines.Say("refused rival", i);
    } else if (PlainIsListed(excludedIds, records[i].identificationCode)) {
      excluded.Say("excluded rival", i);
    }
  }
  PlainCodes all = lines.Take();
  for (const std::string& line : excluded.Take()) all.push_back(line);
  return all;
}

}  // namespace Vornik::Testing
