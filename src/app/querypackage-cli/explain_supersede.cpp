#include "explain_supersede.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <set>

#include "id_rules.h"
#include "letter_case.h"
#include "literals.h"
#include "supersede_rules.h"
#include "wording.h"

namespace Vornik::Cli {

namespace {

using Records = std::vector<QueryPackageResult>;

// The record that a code means for this filter: the first one with these letters.
std::size_t Meant(const Records& records, const std::string& code) {
  const auto found = std::find_if(records.begin(), records.end(), [&code](const auto& record) {
    return EqualByGlobalLocaleFold(record.identificationCode, code);
  });
  return static_cast<std::size_t>(found - records.begin());
}

bool SharesDriverFile(const QueryPackageResult& a, const QueryPackageResult& b) {
  return std::any_of(a.driverFiles.begin(), a.driverFiles.end(), [&b](const auto& file) {
    return std::any_of(b.driverFiles.begin(), b.driverFiles.end(), [&file](const auto& other) {
      return EqualByGlobalLocaleFold(file.name, other.name);
    });
  });
}

// Names, folded, that two or more of the records deliver.
std::vector<std::string> SharedDriverFiles(const Records& records,
                                           const std::vector<std::size_t>& ranked) {
  std::map<std::string, std::set<std::size_t>> deliverers;
  for (const std::size_t index : ranked) {
    for (const auto& file : records[index].driverFiles) {
      deliverers[FoldByGlobalLocale(file.name)].insert(index);
    }
  }
  std::vector<std::string> shared;
  for (const auto& [name, indices] : deliverers) {
    if (indices.size() > 1) shared.push_back(name);
  }
  return shared;
}

// What the filter does to one record, step by step.
class Trace {
 public:
  Trace(const PackageContext& package, SupersedeChain& chain)
      : package_(package), records_(package.query.records), chain_(chain) {}

  void Run() {
    TraceLists();
    const auto afterLists = status_;
    TraceGroups();
    chain_.listOverridden = afterLists && groupDecided_ && *afterLists != *status_;
    FindLeftOut();
  }

  bool GroupDecided() const { return groupDecided_; }
  std::optional<std::uint32_t> Status() const { return status_; }  // none: nothing concerns it
  const std::string& Keeper() const { return keeper_; }            // whose list kept it last

 private:
  void TraceLists() {
    const std::string& code = records_[package_.index].identificationCode;
    for (const auto& [key, listed] : MapExplicitLists(records_, package_.query.lists)) {
      for (const std::string& spelling : listed) {
        if (Meant(records_, spelling) != package_.index) continue;
        chain_.listedBy.push_back({key, FileOf(key), spelling});
        status_ = FilterStatus::NotMatched;
      }
      if (Meant(records_, key) == package_.index) {
        status_ = FilterStatus::Matched;
        keeper_ = key;
      }
      if (key == code) chain_.lists = listed;
    }
    for (const std::string& spelling : package_.query.lists[package_.index]) {
      if (Meant(records_, spelling) == records_.size()) chain_.unknown.push_back(spelling);
    }
  }

  void TraceGroups() {
    for (const CodeList& codes : RankedGroups(records_, package_.settings.excludePackageIds)) {
      const std::vector<std::size_t> ranked = RankByVersion(records_, codes);
      const auto last = std::find(ranked.rbegin(), ranked.rend(), package_.index);
      if (last == ranked.rend()) continue;
      status_ = last == ranked.rbegin() ? FilterStatus::Matched : FilterStatus::NotMatched;
      groupDecided_ = true;
      chain_.groups.push_back(GroupOf(ranked));
    }
  }

  DriverGroup GroupOf(const std::vector<std::size_t>& ranked) const {
    DriverGroup group;
    group.driverFiles = SharedDriverFiles(records_, ranked);
    for (const std::size_t index : ranked) {
      const QueryPackageResult& record = records_[index];
      group.ranking.push_back(
          {record.identificationCode, record.Version, FoldByGlobalLocale(record.Version),
           package_.query.origins[index]->source.File(), index == package_.index});
    }
    return group;
  }

  // Packages that would be ranked with this one, were it not for their platform or the exclude
  // list.
  void FindLeftOut() {
    const QueryPackageResult& record = records_[package_.index];
    IdSet excluded(package_.settings.excludePackageIds);
    for (std::size_t i = 0; i < records_.size(); ++i) {
      if (i == package_.index || !SharesDriverFile(record, records_[i])) continue;
      const std::string& code = records_[i].identificationCode;
      if (records_[i].platformFilterStatus == FilterStatus::NotMatched) {
        chain_.otherPlatform.push_back(code);
      } else if (excluded.Contains(code)) {
        chain_.excluded.push_back(code);
      }
    }
  }

  std::string FileOf(const std::string& code) const {
    const PropertySource source = package_.model.SourceOf(code);
    return source.entry == nullptr ? "" : source.File();
  }

  const PackageContext& package_;
  const Records& records_;
  SupersedeChain& chain_;
  std::optional<std::uint32_t> status_;
  std::string keeper_;
  bool groupDecided_ = false;
};

std::size_t PlaceIn(const DriverGroup& group) {
  const auto last = std::find_if(group.ranking.rbegin(), group.ranking.rend(),
                                 [](const RankedPackage& ranked) { return ranked.isThis; });
  return group.ranking.size() - 1 - static_cast<std::size_t>(last - group.ranking.rbegin());
}

std::string GroupName(const DriverGroup& group) {
  // One record may stand for two codes of the same letters, and then shares with itself alone.
  if (group.driverFiles.empty()) return "a driver file of one name";
  return (group.driverFiles.size() == 1 ? "the driver file " : "the driver files ") +
         QuotedList(group.driverFiles);
}

std::string RankText(const DriverGroup& group) {
  const std::size_t place = PlaceIn(group);
  const RankedPackage& own = group.ranking[place];
  if (place + 1 == group.ranking.size()) {
    return fmt::format("Its version {} stands last, and so highest, of the {} with {}.",
                       AsCompared(own.version), Count(group.ranking.size(), "package"),
                       GroupName(group));
  }
  const RankedPackage& next = group.ranking[place + 1];
  const char* relation =
      own.comparedAs == next.comparedAs ? "equal to, and stands before," : "smaller than";
  return fmt::format(
      "{} replaces it: among the packages with {}, its version {} is, as text, {} {}.",
      CodeText(next.code), GroupName(group), AsCompared(own.version), relation,
      AsCompared(next.version));
}

void AddLists(FilterExplanation& explanation, const SupersedeChain& chain) {
  for (const ListedBy& listed : chain.listedBy) {
    explanation.details.push_back(fmt::format("The \"supersede\" list of {} in {} names it as {}.",
                                              CodeText(listed.code), listed.file,
                                              Quoted(listed.spelling)));
  }
  if (!chain.lists.empty()) {
    explanation.details.push_back("Its own \"supersede\" list names " + QuotedList(chain.lists) +
                                  '.');
  }
  if (!chain.unknown.empty()) {
    explanation.details.push_back(
        "Its own \"supersede\" list also names codes that no package of the query has: " +
        QuotedList(chain.unknown) + '.');
  }
}

void AddGroups(FilterExplanation& explanation, const SupersedeChain& chain) {
  for (const DriverGroup& group : chain.groups) {
    std::string ranking = "Ranked as text by " + GroupName(group) + ", the last one is kept: ";
    for (std::size_t i = 0; i < group.ranking.size(); ++i) {
      const RankedPackage& ranked = group.ranking[i];
      if (i != 0) {
        ranking += group.ranking[i - 1].comparedAs == ranked.comparedAs ? " = " : " < ";
      }
      ranking += AsCompared(ranked.version) + " of " +
                 (ranked.isThis ? "this package" : CodeText(ranked.code));
    }
    explanation.details.push_back(ranking + '.');
  }
  if (chain.listOverridden) {
    explanation.details.emplace_back(
        "The \"supersede\" lists say the opposite, but the ranking by driver file comes after them "
        "and overrides them.");
  }
}

void AddLeftOut(FilterExplanation& explanation, const SupersedeChain& chain) {
  if (!chain.excluded.empty()) {
    explanation.details.push_back(
        "Not ranked, because of the exclude list: " + QuotedList(chain.excluded) + '.');
  }
  if (!chain.otherPlatform.empty()) {
    explanation.details.push_back("Not ranked, because the platform filter refused them: " +
                                  QuotedList(chain.otherPlatform) + '.');
  }
}

// What of it is ranked: the record's own text, wherever its properties are looked up.
void AddRanked(FilterExplanation& explanation, const PackageContext& package) {
  const QueryPackageResult& record = package.Record();
  const PropertySource& own = package.query.origins[package.index]->source;
  std::vector<std::string> names;
  for (const auto& file : record.driverFiles) names.push_back(file.name);
  const bool standIn =
      !names.empty() && GetPropertyValues(PropertyName::driverFiles, own.entry->properties).empty();
  explanation.properties.push_back(
      {standIn ? PropertyName::category : PropertyName::driverFiles, std::move(names)});
  explanation.properties.push_back({PropertyName::Version, {record.Version}});
  if (standIn) {
    explanation.details.push_back(
        fmt::format("It lists no \"driverFiles\": its category {} stands in for one.",
                    Quoted(record.driverFiles.front().name)));
  }
  if (own.entry != package.source.entry) {
    explanation.details.push_back("Its driver files and its version are read from " + own.File() +
                                  '.');
  }
}

void AddOwnPart(FilterExplanation& explanation, const PackageContext& package) {
  const QueryPackageResult& record = package.Record();
  if (record.platformFilterStatus == FilterStatus::NotMatched) {
    explanation.details.emplace_back(
        "It takes no part in replacing and ranking, because the platform filter refused it.");
  }
  if (IdSet(package.settings.excludePackageIds).Contains(record.identificationCode)) {
    explanation.details.emplace_back("It is not ranked, because it is in the exclude list.");
  }
  const std::size_t first = Meant(package.query.records, record.identificationCode);
  if (first != package.index) {
    explanation.details.push_back(
        fmt::format("This filter does not tell case apart: {}, which stands first, takes what is "
                    "meant for it.",
                    CodeText(package.query.records[first].identificationCode)));
  }
}

std::string KeptText(const PackageContext& package, const Trace& trace,
                     const SupersedeChain& chain) {
  if (trace.Keeper() != package.Record().identificationCode) {
    return fmt::format("The \"supersede\" list of {} keeps it: the same letters in another case.",
                       CodeText(trace.Keeper()));
  }
  return chain.listedBy.empty() ? "It replaces others by its own \"supersede\" list."
                                : "Its own \"supersede\" list is applied after those that name it, "
                                  "and keeps it.";
}

void SayVerdict(FilterExplanation& explanation, const PackageContext& package, const Trace& trace,
                const SupersedeChain& chain) {
  const bool kept = explanation.status == FilterStatus::Matched;
  if (trace.GroupDecided()) {
    Say(explanation, kept ? "highestOfGroup" : "replacedInGroup", RankText(chain.groups.back()));
  } else if (!trace.Status()) {
    Say(explanation, "notReplaced", "No package of the query replaces it.");
  } else if (kept) {
    Say(explanation, "keptByList", KeptText(package, trace, chain));
  } else {
    const ListedBy& by = chain.listedBy.back();
    Say(explanation, "replacedByList",
        fmt::format("{} replaces it by its \"supersede\" list.", CodeText(by.code)));
  }
}

}  // namespace

FilterExplanation ExplainSupersede(const PackageContext& package, SupersedeChain& chain) {
  FilterExplanation explanation = BeginExplanation(FilterId::Supersede, package);
  if (!explanation.runs) return ExplainOff(explanation);
  if (package.source.entry != nullptr) {
    AddReading(explanation, package, PropertyName::supersede);
  }
  AddRanked(explanation, package);

  Trace trace(package, chain);
  trace.Run();
  SayVerdict(explanation, package, trace, chain);
  AddLists(explanation, chain);
  AddGroups(explanation, chain);
  AddLeftOut(explanation, chain);
  AddOwnPart(explanation, package);
  return explanation;
}

Rivals RivalsOf(const ModelledQuery& query, std::size_t index,
                const std::vector<std::string>& excludedIds) {
  Rivals rivals;
  const auto add = [&query](std::vector<std::string>& codes, std::size_t record) {
    const std::string& code = query.records[record].identificationCode;
    if (std::find(codes.begin(), codes.end(), code) == codes.end()) codes.push_back(code);
  };
  for (const CodeList& codes : RankedGroups(query.records, excludedIds)) {
    const std::vector<std::size_t> ranked = RankByVersion(query.records, codes);
    const auto own = std::find(ranked.begin(), ranked.end(), index);
    if (own == ranked.end()) continue;
    for (auto other = ranked.begin(); other != ranked.end(); ++other) {
      if (*other == index) continue;
      add(rivals.all, *other);
      if (other > own) add(rivals.above, *other);
    }
  }
  return rivals;
}

}  // namespace Vornik::Cli
