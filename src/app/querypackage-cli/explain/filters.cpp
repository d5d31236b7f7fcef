#include "explain/filters.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "filters/update_type.h"
#include "model/literals.h"
#include "model/pack_text.h"
#include "output/wording.h"
#include "text/decimal.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

// A folder's path without the separators that it ends in.
std::string WithoutSlash(std::string folder) {
  while (folder.size() > 1 && (folder.back() == '/' || folder.back() == preferredSeparator)) {
    folder.pop_back();
  }
  return folder;
}

std::string PlaceOf(const PropertySource& source, const PackageContext& package) {
  return TextOf(
      PlaceIn(source, PropertyName::identificationCode, PropertyRead::Value, package.places));
}

std::string VersionOf(const PropertySource& source) {
  return GetPropertyValue(PropertyName::Version, source.entry->properties);
}

std::vector<PropertySource> DroppedAsRepeats(const PackageContext& package) {
  const PropertySource& kept = package.query.origins[package.index];
  std::vector<PropertySource> dropped;
  for (const Duplicate& duplicate : package.query.duplicates) {
    if (package.query.built[duplicate.kept].entry == kept.entry) {
      dropped.push_back(package.query.built[duplicate.index]);
    }
  }
  return dropped;
}

// How a pack lists a code: as one of its packages, or first, where it is lost. Empty if it does
// not.
std::string ListingText(const KovuPackEntry& pack, const std::string& code) {
  const auto member =
      std::find_if(pack.members.begin(), pack.members.end(), [&code](const auto& candidate) {
        return GetPropertyValue(PropertyName::identificationCode, candidate.properties) == code;
      });
  if (member == pack.members.end()) return "";
  if (member != pack.members.begin()) return "lists it";
  const bool isOwn = IsSelfInstance(
      pack.kovuXmlFile, GetPropertyValue(PropertyName::xmlFilename, member->properties));
  return isOwn ? "has its code as the code of the pack itself, which is no package"
               : "lists it first, where the pack itself is expected, so that it is lost";
}

// Which packs list the code, and why the package does not come from them.
void AddPacksOf(FilterExplanation& explanation, const PackageContext& package) {
  const QuerySettings& settings = package.settings;
  const auto& packs = package.model.Packages().kovuPackEntries();
  const auto& packResults = package.model.Packs(settings.machineType, settings.osValue);
  for (std::size_t i = 0; i < packs.size(); ++i) {
    const std::string listing = ListingText(packs[i], package.Record().identificationCode);
    if (listing.empty()) continue;
    explanation.details.push_back(
        fmt::format("{} {}; {}.", packs[i].kovuXmlFile, listing,
                    TextOf(packs, packResults, i, settings.machineType, settings.osValue)));
  }
}

std::vector<std::string> TextsOf(const std::vector<UpdateType>& types) {
  std::vector<std::string> numbers;
  numbers.reserve(types.size());
  for (const UpdateType type : types) {
    numbers.push_back(fmt::format("{}", static_cast<std::int32_t>(type)));
  }
  return numbers;
}

// The first id of a list that means the code; null if there is none.
const std::string* FindId(const std::vector<std::string>& ids, const std::string& code) {
  const auto found = std::find_if(ids.begin(), ids.end(), [&code](const std::string& id) {
    return EqualByGlobalLocaleFold(id, code);
  });
  return found == ids.end() ? nullptr : &*found;
}

FilterExplanation ExplainIds(FilterId filter, const PackageContext& package,
                             const std::vector<std::string>& ids, const char* list) {
  FilterExplanation explanation = BeginExplanation(filter, package);
  if (!explanation.runs) return ExplainOff(explanation);
  const std::string& code = package.Record().identificationCode;
  const std::string* id = FindId(ids, code);
  if (id == nullptr) {
    SetReason(explanation, "notListed", SentenceWithLists([&](ListLength length) {
                return fmt::format("The {} list does not hold the code; it holds {}.", list,
                                   QuotedList(ids, length));
              }));
  } else if (*id == code) {
    SetReason(explanation, "listed", fmt::format("The {} list holds the code.", list));
  } else {
    SetReason(
        explanation, "listed",
        fmt::format("The {} list holds {}, which is the code in another case.", list, Quoted(*id)));
  }
  return explanation;
}

// A file that the payload filter needs, and that no property names.
FilterExplanation& SetUnnamed(FilterExplanation& explanation, const PackageContext& package,
                              const char* reason, const char* property) {
  SetReason(explanation, reason, fmt::format("\"{}\" is missing or empty.", property));
  return SetPlace(explanation, package, property, PropertyRead::Value);
}

// One that a property names, and that is not there.
FilterExplanation& SetNoFile(FilterExplanation& explanation, const PackageContext& package,
                             const char* reason, const char* property) {
  const std::string name = GetPropertyValue(property, package.source.entry->properties);
  SetReason(explanation, reason,
            fmt::format("{}, which \"{}\" names, is no regular file.",
                        PathInFolder(WithoutSlash(package.settings.folder), name), property));
  return SetPlace(explanation, package, property, PropertyRead::Value);
}

}  // namespace

FilePlace PlaceIn(const PropertySource& source, const char* property, PropertyRead read,
                  PropertyPlaces& places) {
  if (source.entry == nullptr) return {};
  return {source.File(), places.LineOf(source.File(), source.entry->properties, property, read)};
}

std::string TextOf(const FilePlace& place) {
  return place.line == 0 ? place.file : fmt::format("{}:{}", place.file, place.line);
}

FilterExplanation BeginExplanation(FilterId filter, const PackageContext& package) {
  const Filter& info = FilterOf(filter);
  FilterExplanation explanation;
  explanation.filter = filter;
  explanation.status = info.slot == nullptr ? FilterStatus::Matched : package.Record().*info.slot;
  explanation.runs = Runs(filter, package.settings);
  return explanation;
}

FilterExplanation& SetReason(FilterExplanation& explanation, const char* reason, Sentence text) {
  explanation.reason = reason;
  explanation.text = std::move(text);
  return explanation;
}

FilterExplanation& SetPlace(FilterExplanation& explanation, const PackageContext& package,
                            const char* property, PropertyRead read) {
  explanation.place = PlaceIn(package.source, property, read, package.places);
  return explanation;
}

FilterExplanation& ExplainOff(FilterExplanation& explanation) {
  return SetReason(explanation, "off", FilterOf(explanation.filter).setting.value().offBecause);
}

FilterExplanation& ExplainNoProperties(FilterExplanation& explanation) {
  return SetReason(
      explanation, "noProperties",
      "The package has no \"identificationCode\", by which its properties are looked up.");
}

void AddReading(FilterExplanation& explanation, const PackageContext& package,
                const char* property) {
  explanation.file = package.source.File();
  explanation.properties.push_back(
      {property, GetPropertyValues(property, package.source.entry->properties)});
}

FilterExplanation ExplainDuplicate(const PackageContext& package) {
  FilterExplanation explanation = BeginExplanation(FilterId::Duplicate, package);
  const PropertySource& kept = package.query.origins[package.index];
  explanation.file = kept.File();
  explanation.properties.push_back(
      {PropertyName::identificationCode, {package.Record().identificationCode}});
  const std::vector<PropertySource> dropped = DroppedAsRepeats(package);
  for (const PropertySource& repeat : dropped) {
    explanation.details.push_back(fmt::format("{}, version \"{}\", was dropped as a repeat of it.",
                                              PlaceOf(repeat, package), VersionOf(repeat)));
  }
  if (dropped.empty()) {
    return SetReason(explanation, "only", "No other descriptor of the query has this code.");
  }
  return SetReason(
      explanation, "first",
      fmt::format("{} is the first and was kept; {} dropped.", PlaceOf(kept, package),
                  Count(dropped.size(), "repeat") + (dropped.size() == 1 ? " was" : " were")));
}

std::vector<Repeat> RepeatsOf(const PackageContext& package) {
  std::vector<Repeat> repeats;
  for (const PropertySource& dropped : DroppedAsRepeats(package)) {
    repeats.push_back({dropped.entry->xmlFile,
                       dropped.pack == nullptr ? "" : dropped.pack->kovuXmlFile,
                       VersionOf(dropped)});
  }
  return repeats;
}

const char* KovuReason(const QueryPackageResult& record) {
  if (record.kovuXmlFile.empty()) return "notInChosenPack";
  return record.kovuName.empty() ? "packWithoutName" : "inChosenPack";
}

FilterExplanation ExplainKovu(const PackageContext& package) {
  FilterExplanation explanation = BeginExplanation(FilterId::Kovu, package);
  if (!explanation.runs) return ExplainOff(explanation);
  const QueryPackageResult& record = package.Record();
  const char* const reason = KovuReason(record);
  if (record.kovuXmlFile.empty()) {
    SetReason(explanation, reason,
              "It was found as an individual descriptor only, not in a pack that is in use.");
    AddPacksOf(explanation, package);
    if (explanation.details.empty()) explanation.details.emplace_back("No pack lists it.");
    return explanation;
  }
  explanation.file = record.kovuXmlFile;
  if (record.kovuName.empty()) {
    return SetReason(
        explanation, reason,
        "The file name of its pack is an extension alone, so that the pack has no name.");
  }
  return SetReason(explanation, reason,
                   fmt::format("It comes from {}, the pack in use.", record.kovuXmlFile));
}

FilterExplanation ExplainSep(const PackageContext& package) {
  FilterExplanation explanation = BeginExplanation(FilterId::Sep, package);
  if (!explanation.runs) return ExplainOff(explanation);
  const std::string& code = package.Record().identificationCode;
  explanation.properties.push_back({PropertyName::identificationCode, {code}});
  for (const char* id : {SepId::tsep, SepId::sep}) {
    if (code.find(id) == std::string::npos) continue;
    return SetReason(explanation, "sepCode", fmt::format("The code holds \"{}\".", id));
  }
  return SetReason(explanation, "noSepCode", "The code holds none of the Sep ids.");
}

FilterExplanation ExplainPayload(const PackageContext& package) {
  FilterExplanation explanation = BeginExplanation(FilterId::PayloadExist, package);
  if (!explanation.runs) return ExplainOff(explanation);
  if (package.source.entry == nullptr) return ExplainNoProperties(explanation);
  AddReading(explanation, package, PropertyName::xmlFilename);
  AddReading(explanation, package, PropertyName::payload);
  switch (package.model.PayloadOf(package.source)) {
    case PayloadVerdict::NoXmlFilename:
      return SetUnnamed(explanation, package, "noXmlFilename", PropertyName::xmlFilename);
    case PayloadVerdict::NoPayload:
      return SetUnnamed(explanation, package, "noPayload", PropertyName::payload);
    case PayloadVerdict::DescriptorMissing:
      return SetNoFile(explanation, package, "descriptorMissing", PropertyName::xmlFilename);
    case PayloadVerdict::PayloadMissing:
      return SetNoFile(explanation, package, "payloadMissing", PropertyName::payload);
    case PayloadVerdict::Found:
      break;
  }
  return SetReason(explanation, "found", "Both files are in the folder.");
}

FilterExplanation ExplainInclude(const PackageContext& package) {
  return ExplainIds(FilterId::IncludeId, package, package.settings.includePackageIds, "include");
}

FilterExplanation ExplainExclude(const PackageContext& package) {
  return ExplainIds(FilterId::ExcludeId, package, package.settings.excludePackageIds, "exclude");
}

FilterExplanation ExplainUpdateType(const PackageContext& package) {
  FilterExplanation explanation = BeginExplanation(FilterId::UpdateType, package);
  if (!explanation.runs) return ExplainOff(explanation);
  if (package.source.entry == nullptr) return ExplainNoProperties(explanation);
  AddReading(explanation, package, PropertyName::type);
  const SupXmlProperties& properties = package.source.entry->properties;
  const std::string text = GetPropertyValue(PropertyName::type, properties);
  const std::vector<std::string> asked = TextsOf(package.settings.updateTypes);
  const auto sentence = [&](const char* format) {
    return SentenceWithLists([&](ListLength length) {
      return fmt::format(fmt::runtime(format), text, ParseDecimal(text), PlainList(asked, length));
    });
  };
  switch (EvaluateUpdateType(properties, package.settings.updateTypes)) {
    case UpdateTypeVerdict::NoType:
      SetReason(explanation, "noType", "\"type\" is missing or empty.");
      break;
    case UpdateTypeVerdict::Matched:
      return SetReason(explanation, "requested",
                       sentence("\"type\" \"{}\" reads as {} and meets the request for {}."));
    case UpdateTypeVerdict::NotMatched:
      SetReason(explanation, "notRequested",
                sentence("\"type\" \"{}\" reads as {}; asked for is {}."));
      break;
  }
  return SetPlace(explanation, package, PropertyName::type, PropertyRead::Value);
}

}  // namespace Vornik::Cli
