#include "query/warnings.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "filters/package_ids.h"
#include "filters/supersede/supersede.h"
#include "filters/supersede/version_ranking.h"
#include "model/edit_distance.h"
#include "model/literals.h"
#include "output/wording.h"
#include "query/driver_overlap.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxWarnings = 10;

// Keeps the first ones, and says how many others there are.
std::vector<std::string> Few(std::vector<std::string> warnings, const std::string& noun) {
  if (warnings.size() <= maxWarnings) return warnings;
  const std::size_t others = warnings.size() - maxWarnings;
  warnings.resize(maxWarnings);
  warnings.push_back(fmt::format("and {} like this", Count(others, "other " + noun)));
  return warnings;
}

// In byte order.
std::vector<std::string> CodesOf(const std::vector<QueryPackageResult>& records) {
  std::vector<std::string> codes;
  codes.reserve(records.size());
  for (const QueryPackageResult& record : records) codes.push_back(record.identificationCode);
  std::sort(codes.begin(), codes.end());
  return codes;
}

std::string UnknownIdText(const char* option, const std::string& id,
                          const std::vector<std::string>& codes) {
  const std::vector<std::string> nearest = NearestNames(id, codes);
  const std::string text =
      fmt::format("no package of the query has the id {} of {}", QuotedBriefly(id), option);
  return nearest.empty() ? text : text + "; the nearest: " + BriefList(nearest);
}

// Those of the ids that are not in the set, each once.
std::vector<std::string> Missing(const std::vector<std::string>& ids, const IdSet& known) {
  std::set<std::string> seen;
  std::vector<std::string> missing;
  for (const std::string& id : ids) {
    if (!known.Contains(id) && seen.insert(id).second) missing.push_back(id);
  }
  return missing;
}

void AddUnknownIds(const char* option, const std::vector<std::string>& missing,
                   const std::vector<std::string>& codes, std::vector<std::string>& warnings) {
  for (const std::string& id : missing) {
    // The nearest codes cost a look at all of them.
    warnings.push_back(warnings.size() < maxWarnings ? UnknownIdText(option, id, codes) : "");
  }
}

struct Descriptor {
  std::string code;
  const FolderContents::File* file;
  const SupXmlProperties* properties;
};

bool IsIndividual(const Descriptor& descriptor) {
  return descriptor.file->reading.kind == DescriptorKind::Individual;
}

// Those with the same code in the order in which the library looks them up: packs first.
std::vector<Descriptor> DescriptorsByCode(const FolderContents& contents) {
  std::vector<Descriptor> all;
  for (const FolderContents::File& file : contents.files) {
    if (file.reading.fault != DescriptorFault::None) continue;
    for (const SupXmlProperties& properties : file.reading.properties) {
      all.push_back(
          {GetPropertyValue(PropertyName::identificationCode, properties), &file, &properties});
    }
  }
  std::stable_sort(all.begin(), all.end(), [](const Descriptor& a, const Descriptor& b) {
    const bool individualA = IsIndividual(a);
    const bool individualB = IsIndividual(b);
    return std::tie(a.code, individualA) < std::tie(b.code, individualB);
  });
  return all;
}

bool AreSame(const SupXmlProperties& a, const SupXmlProperties& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const SupXmlProperty& x, const SupXmlProperty& y) {
                      return x.name == y.name && x.values == y.values;
                    });
}

// The files of which the first in the listing counts; empty: it makes no difference.
template <typename Iterator>
std::vector<std::string> CompetingFiles(Iterator begin, Iterator end) {
  std::vector<std::string> files;
  bool differ = false;
  for (Iterator one = begin; one != end; ++one) {
    // Within a pack the order is the document's own.
    if (one != begin && one->file == std::prev(one)->file) continue;
    files.push_back(FileNameOf(one->file->path));
    differ = differ || !AreSame(*begin->properties, *one->properties);
  }
  if (files.size() < 2 || !differ) files.clear();
  std::sort(files.begin(), files.end());
  return files;
}

// One reason for which an answer depends on the order.
struct OrderKind {
  const char* noun;  // of what each warning is about
  OrderWarnings (*warn)(const QuerySettings& settings, const ListingFacts& facts,
                        const std::vector<QueryPackageResult>& records);
};

const OrderKind orderKinds[] = {
    {"pack",
     [](const auto&, const ListingFacts& facts, const auto&) { return WarnOfPacks(facts.pack); }},
    {"package",
     [](const auto&, const ListingFacts& facts, const std::vector<QueryPackageResult>& records) {
       return WarnOfRepeatedCodes(facts.repeatedCodes, records);
     }},
    {"pair",
     [](const QuerySettings& settings, const auto&,
        const std::vector<QueryPackageResult>& records) {
       return WarnOfEqualVersions(settings, records);
     }},
    {"group",
     [](const QuerySettings& settings, const auto&,
        const std::vector<QueryPackageResult>& records) {
       return WarnOfDriverOverlap(settings, records);
     }},
};

}  // namespace

std::vector<std::string> WarnOfUnknownIds(const QuerySettings& settings,
                                          const std::vector<QueryPackageResult>& records) {
  std::vector<std::string> warnings;
  if (settings.includePackageIds.empty() && settings.excludePackageIds.empty()) return warnings;
  const std::vector<std::string> codes = CodesOf(records);
  const IdSet known(codes);
  AddUnknownIds("--include", Missing(settings.includePackageIds, known), codes, warnings);
  AddUnknownIds("--exclude", Missing(settings.excludePackageIds, known), codes, warnings);
  return Few(std::move(warnings), "id");
}

bool OrderWarning::Concerns(const std::string& code) const {
  return codes.empty() || std::find(codes.begin(), codes.end(), code) != codes.end();
}

OrderWarnings WarnOfPacks(const PackSummary& summary) {
  if (summary.rivals.empty()) return {};
  return {{fmt::format("which pack is used depends on the order in which the system lists the "
                       "folder: {} and {} apply to the machine",
                       summary.file, BriefList(summary.rivals)),
           {}}};
}

RepeatedCodes FindRepeatedCodes(const FolderContents& contents) {
  const std::vector<Descriptor> all = DescriptorsByCode(contents);
  RepeatedCodes repeated;
  for (auto begin = all.begin(); begin != all.end();) {
    const auto end = std::find_if(
        begin, all.end(), [begin](const Descriptor& one) { return one.code != begin->code; });
    const auto individuals = std::find_if(begin, end, IsIndividual);
    std::vector<std::string> files = CompetingFiles(begin, individuals);
    std::vector<std::string> others = CompetingFiles(individuals, end);
    files.insert(files.end(), others.begin(), others.end());
    if (!files.empty()) repeated.emplace(begin->code, std::move(files));
    begin = end;
  }
  return repeated;
}

OrderWarnings WarnOfRepeatedCodes(const RepeatedCodes& codes,
                                  const std::vector<QueryPackageResult>& records) {
  OrderWarnings warnings;
  if (codes.empty()) return warnings;
  for (const QueryPackageResult& record : records) {
    const std::string& code = record.identificationCode;
    const auto found = codes.find(code);
    if (found == codes.end()) continue;
    warnings.push_back(
        {fmt::format("which descriptor of {} counts depends on the order in which the system lists "
                     "the folder: it is in {}, with different properties",
                     CodeText(code), BriefList(found->second)),
         {code}});
  }
  return warnings;
}

OrderWarnings WarnOfEqualVersions(const QuerySettings& settings,
                                  const std::vector<QueryPackageResult>& records) {
  OrderWarnings warnings;
  if (!settings.supersedeFilter) return warnings;
  const LocaleFold fold;
  const std::vector<std::optional<Vornik::CodeList>> noLists(records.size());
  const Supersedence result =
      ResolveSupersedence({records, noLists, settings.excludePackageIds, fold});
  ForEachRanking(result, [&](const RecordGroup& ranking) {
    const std::string version = ComparedVersion(records[ranking.back()], fold);
    // The members of a pack are in the document's order, before the individual descriptors.
    const auto individuals =
        std::count_if(ranking.begin(), ranking.end(),
                      [&records](RecordIndex i) { return records[i].kovuXmlFile.empty(); });
    std::vector<std::string> codes;
    for (auto i = ranking.rbegin(); i != ranking.rend(); ++i) {
      if (ComparedVersion(records[*i], fold) != version) break;
      codes.push_back(records[*i].identificationCode);
    }
    if (individuals < 2 || codes.size() < 2) return;
    warnings.push_back(
        {fmt::format("which of {} and {} is kept can depend on the order in which the system lists "
                     "the folder: they share a driver file, and their versions are equal",
                     CodeText(codes[0]), CodeText(codes[1])),
         codes});
  });
  return warnings;
}

ListingFacts ListingFactsOf(const FolderContents& contents, const QuerySettings& settings) {
  return {SummarizePacks(contents, settings), FindRepeatedCodes(contents)};
}

OrderWarnings WarnOfOrder(const QuerySettings& settings, const ListingFacts& facts,
                          const std::vector<QueryPackageResult>& records) {
  OrderWarnings warnings;
  for (const OrderKind& kind : orderKinds) {
    for (OrderWarning& one : kind.warn(settings, facts, records)) {
      warnings.push_back(std::move(one));
    }
  }
  return warnings;
}

std::vector<std::string> OrderTexts(const QuerySettings& settings, const ListingFacts& facts,
                                    const std::vector<QueryPackageResult>& records) {
  std::vector<std::string> all;
  for (const OrderKind& kind : orderKinds) {
    std::vector<std::string> texts;
    for (OrderWarning& one : kind.warn(settings, facts, records)) {
      texts.push_back(std::move(one.text));
    }
    texts = Few(std::move(texts), kind.noun);
    all.insert(all.end(), std::make_move_iterator(texts.begin()),
               std::make_move_iterator(texts.end()));
  }
  return all;
}

}  // namespace Vornik::Cli
