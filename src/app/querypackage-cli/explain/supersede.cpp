#include "explain/supersede.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "filters/supersede/supersede_reason.h"
#include "model/literals.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

// The reason of one package, with what its indices mean.
class ReasonTexts {
 public:
  ReasonTexts(const PackageContext& package, const SupersedeReason& reason)
      : package_(package), reason_(reason) {}

  SupersedeChain Chain() const {
    SupersedeChain chain;
    for (const ListReason& list : reason_.lists) {
      if (list.position) chain.listedBy.push_back(ListedByOf(list.owner, *list.position));
    }
    chain.lists = AppliedCodes();
    for (const std::size_t position : reason_.unknownCodes) {
      chain.unknown.push_back(Spelling(package_.index, position));
    }
    for (const RankingReason& ranking : reason_.rankings) {
      chain.groups.push_back(GroupOf(ranking));
    }
    for (const RecordIndex i : reason_.excludedRivals) chain.excluded.push_back(CodeOf(i));
    for (const RecordIndex i : reason_.refusedRivals) chain.otherPlatform.push_back(CodeOf(i));
    chain.listOverridden = IsListOverridden();
    return chain;
  }

  // Of the last list that keeps the package; there is one.
  const std::string& KeeperCode() const {
    const auto keeps = [](const ListReason& list) { return !list.position; };
    return CodeOf(std::find_if(reason_.lists.rbegin(), reason_.lists.rend(), keeps)->owner);
  }

 private:
  const std::string& CodeOf(RecordIndex i) const {
    return package_.query.records[i].identificationCode;
  }

  const std::string& Spelling(RecordIndex owner, std::size_t position) const {
    return (*package_.query.lists[owner])[position];
  }

  ListedBy ListedByOf(RecordIndex owner, std::size_t position) const {
    const PropertySource source = package_.model.SourceOf(CodeOf(owner));
    return {CodeOf(owner), source.entry == nullptr ? "" : source.File(), Spelling(owner, position)};
  }

  std::vector<std::string> AppliedCodes() const {
    std::vector<std::string> codes;
    for (const auto& [owner, list] : package_.query.supersedence->lists) {
      if (list.owner != reason_.listCounted) continue;
      for (const ListedCode& code : list.codes) {
        codes.push_back(Spelling(list.owner, code.position));
      }
    }
    return codes;
  }

  DriverGroup GroupOf(const RankingReason& ranking) const {
    DriverGroup group;
    group.driverFiles = ranking.driverFiles;
    for (std::size_t k = 0; k < ranking.records.size(); ++k) {
      const RecordIndex i = ranking.records[k];
      group.ranking.push_back({CodeOf(i), package_.query.records[i].Version, ranking.versions[k],
                               package_.query.origins[i].File(), i == package_.index});
    }
    return group;
  }

  bool IsListOverridden() const {
    if (reason_.lists.empty() || reason_.rankings.empty()) return false;
    const RankingReason& last = reason_.rankings.back();
    const bool keptByLists = !reason_.lists.back().position;
    return keptByLists != (last.place + 1 == last.records.size());
  }

  const PackageContext& package_;
  const SupersedeReason& reason_;
};

std::size_t PlaceIn(const DriverGroup& group) {
  const auto last = std::find_if(group.ranking.rbegin(), group.ranking.rend(),
                                 [](const RankedPackage& ranked) { return ranked.isThis; });
  return group.ranking.size() - 1 - static_cast<std::size_t>(last - group.ranking.rbegin());
}

std::string GroupName(const DriverGroup& group, ListLength length) {
  // One record may stand for two codes of the same letters, and then shares with itself alone.
  if (group.driverFiles.empty()) return "a driver file of one name";
  return (group.driverFiles.size() == 1 ? "the driver file " : "the driver files ") +
         QuotedList(group.driverFiles, length);
}

// Codes that differ only in case are ranked as one package, which then has several places.
std::size_t PackagesIn(const DriverGroup& group) {
  std::set<std::string> codes;
  for (const RankedPackage& ranked : group.ranking) codes.insert(ranked.code);
  return codes.size();
}

std::string RankText(const DriverGroup& group, ListLength length) {
  const std::size_t place = PlaceIn(group);
  const RankedPackage& own = group.ranking[place];
  const std::size_t packages = PackagesIn(group);
  if (packages == 1) return "It is ranked with itself alone, under codes that differ only in case.";
  if (place + 1 == group.ranking.size()) {
    return fmt::format("Its version {} stands last, and so highest, of the {} with {}.",
                       AsCompared(own.version), Count(packages, "package"),
                       GroupName(group, length));
  }
  const RankedPackage& next = group.ranking[place + 1];
  const char* relation =
      own.comparedAs == next.comparedAs ? "equal to, and stands before," : "smaller than";
  return fmt::format(
      "{} replaces it: among the packages with {}, its version {} is, as text, {} {}.",
      CodeText(next.code), GroupName(group, length), AsCompared(own.version), relation,
      AsCompared(next.version));
}

// What is said of several codes; nothing if there is none.
void AddList(FilterExplanation& explanation, const char* beginning,
             const std::vector<std::string>& codes) {
  if (codes.empty()) return;
  explanation.details.push_back(SentenceWithLists(
      [&](ListLength length) { return beginning + QuotedList(codes, length) + '.'; }));
}

void AddLists(FilterExplanation& explanation, const SupersedeChain& chain) {
  for (const ListedBy& listed : chain.listedBy) {
    explanation.details.push_back(fmt::format("The \"supersede\" list of {} in {} names it as {}.",
                                              CodeText(listed.code), listed.file,
                                              Quoted(listed.spelling)));
  }
  AddList(explanation, "Its own \"supersede\" list names ", chain.lists);
  AddList(explanation,
          "Its own \"supersede\" list also names codes that no package of the query has: ",
          chain.unknown);
}

// Short: the end of the ranking, which is kept.
std::string RankingText(const DriverGroup& group, ListLength length) {
  constexpr std::size_t most = 10;
  const auto& ranking = group.ranking;
  std::string text = "Ranked as text by " + GroupName(group, length) + ", the last one is kept: ";
  const std::size_t first =
      length == ListLength::Short && ranking.size() > most ? ranking.size() - most : 0;
  if (first != 0) text += fmt::format("after {}, ", Count(first, "other"));
  for (std::size_t i = first; i < ranking.size(); ++i) {
    const RankedPackage& ranked = ranking[i];
    if (i != first) {
      if (ranking[i - 1].code == ranked.code) continue;
      text += ranking[i - 1].comparedAs == ranked.comparedAs ? " = " : " < ";
    }
    text += AsCompared(ranked.version) + " of " +
            (ranked.isThis ? "this package" : CodeText(ranked.code));
  }
  return text + '.';
}

void AddGroups(FilterExplanation& explanation, const SupersedeChain& chain) {
  for (const DriverGroup& group : chain.groups) {
    const std::size_t packages = PackagesIn(group);
    if (packages > 1) {
      explanation.details.push_back(
          SentenceWithLists([&group](ListLength length) { return RankingText(group, length); }));
    }
    if (packages < group.ranking.size()) {
      explanation.details.emplace_back(
          "Codes that differ only in case are all ranked as the first of their packages.");
    }
  }
  if (chain.listOverridden) {
    explanation.details.emplace_back(
        "The \"supersede\" lists say the opposite, but the ranking by driver file comes after them "
        "and overrides them.");
  }
}

void AddLeftOut(FilterExplanation& explanation, const SupersedeChain& chain) {
  AddList(explanation, "Not ranked, because of the exclude list: ", chain.excluded);
  AddList(explanation,
          "Not ranked, because the platform filter refused them: ", chain.otherPlatform);
}

// What of it is ranked: the record's own text, wherever its properties are looked up.
void AddRanked(FilterExplanation& explanation, const PackageContext& package) {
  const QueryPackageResult& record = package.Record();
  const PropertySource& own = package.query.origins[package.index];
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

void AddOwnPart(FilterExplanation& explanation, const PackageContext& package,
                const SupersedeReason& reason) {
  if (reason.isRefused) {
    explanation.details.emplace_back(
        "It takes no part in replacing and ranking, because the platform filter refused it.");
  }
  if (reason.isExcluded) {
    explanation.details.emplace_back("It is not ranked, because it is in the exclude list.");
  }
  if (reason.marked != package.index) {
    explanation.details.push_back(
        fmt::format("This filter does not tell case apart: {}, which stands first, takes what is "
                    "meant for it.",
                    CodeText(package.query.records[reason.marked].identificationCode)));
  }
}

std::string KeptText(const PackageContext& package, const std::string& keeper,
                     const SupersedeChain& chain) {
  if (keeper != package.Record().identificationCode) {
    return fmt::format("The \"supersede\" list of {} keeps it: the same letters in another case.",
                       CodeText(keeper));
  }
  return chain.listedBy.empty() ? "It replaces others by its own \"supersede\" list."
                                : "Its own \"supersede\" list is applied after those that name it, "
                                  "and keeps it.";
}

void SetVerdict(FilterExplanation& explanation, const PackageContext& package,
                const SupersedeReason& reason, const SupersedeChain& chain) {
  const bool kept = explanation.status == FilterStatus::Matched;
  if (!reason.rankings.empty()) {
    SetReason(explanation, kept ? "highestOfGroup" : "replacedInGroup",
              SentenceWithLists(
                  [&chain](ListLength length) { return RankText(chain.groups.back(), length); }));
    if (!kept) {
      explanation.place = PlaceIn(package.query.origins[package.index], PropertyName::Version,
                                  PropertyRead::Value, package.places);
    }
  } else if (reason.lists.empty()) {
    SetReason(explanation, "notReplaced", "No package of the query replaces it.");
  } else if (kept) {
    const std::string& keeper = ReasonTexts(package, reason).KeeperCode();
    SetReason(explanation, "keptByList", KeptText(package, keeper, chain));
  } else {
    const ListedBy& by = chain.listedBy.back();
    SetReason(explanation, "replacedByList",
              fmt::format("{} replaces it by its \"supersede\" list.", CodeText(by.code)));
    explanation.place = PlaceIn(package.model.SourceOf(by.code), PropertyName::supersede,
                                PropertyRead::List, package.places);
  }
}

SupersedeReason ReasonOf(const PackageContext& package) {
  const LocaleFold fold;
  const Evaluation& query = package.query;
  return ReasonFor(package.index, *query.supersedence,
                   {query.records, query.lists, package.settings.excludePackageIds, fold});
}

}  // namespace

FilterExplanation ExplainSupersede(const PackageContext& package) {
  FilterExplanation explanation = BeginExplanation(FilterId::Supersede, package);
  if (!explanation.runs) return ExplainOff(explanation);
  if (package.source.entry != nullptr) {
    AddReading(explanation, package, PropertyName::supersede);
  }
  AddRanked(explanation, package);

  const SupersedeReason reason = ReasonOf(package);
  const SupersedeChain chain = ReasonTexts(package, reason).Chain();
  SetVerdict(explanation, package, reason, chain);
  AddLists(explanation, chain);
  AddGroups(explanation, chain);
  AddLeftOut(explanation, chain);
  AddOwnPart(explanation, package, reason);
  return explanation;
}

SupersedeChain SupersedeChainOf(const PackageContext& package) {
  if (!package.query.supersedence) return {};
  return ReasonTexts(package, ReasonOf(package)).Chain();
}

}  // namespace Vornik::Cli
