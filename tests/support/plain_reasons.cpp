#include "plain_reasons.h"

#include "plain_filters.h"
#include "plain_properties.h"

namespace Vornik::Testing {

namespace {

using Texts = std::vector<std::string>;

constexpr std::uint32_t matched = 1;

// What wrote a record's slot of the supersede filter last.
struct LastWrite {
  std::string word = "notReplaced";
  std::string key;  // of the list that did
};

class Reasons {
 public:
  Reasons(const PlainFacts& facts, const QueryPackageResult& record)
      : facts_(facts),
        query_(facts.query),
        record_(record),
        code_(record.identificationCode),
        source_(PlainSourceOf(facts.query, code_)) {}

  std::vector<PlainFilterReason> All() {
    return {Duplicate(), Platform(),  Kovu(),      Sep(),       PayloadExist(),
            Supersede(), IncludeId(), ExcludeId(), UpdateType()};
  }

 private:
  std::string Value(const std::string& name) const { return PlainValue(name, source_.properties); }
  Texts Values(const std::string& name) const { return PlainValues(name, source_.properties); }

  PlainPlace ValuePlace(const std::string& name) const {
    return PlainPlaceOf(facts_, source_, name, false);
  }
  PlainPlace ListPlace(const std::string& name) const {
    return PlainPlaceOf(facts_, source_, name, true);
  }

  PlainFilterReason Duplicate() const {
    std::size_t withCode = 0;
    for (const PlainSource& built : PlainBuiltFrom(query_)) {
      if (PlainValue("identificationCode", built.properties) == code_) ++withCode;
    }
    const std::string file = PlainOriginOf(query_, code_).file;
    return {"duplicate", matched, withCode == 1 ? "only" : "first", file, {}};
  }

  PlainFilterReason Platform() const {
    PlainFilterReason reason{
        "platform", record_.platformFilterStatus, "noProperties", source_.file, {}};
    if (source_.file.empty()) return reason;
    const struct {
      const char* list;
      const char* word;
    } needed[] = {{"orderedMachineTypeList", "noMachineTypes"},
                  {"orderedOSList", "noOperatingSystems"},
                  {"orderedOSArchitectureList", "noArchitectures"}};
    for (const auto& [list, word] : needed) {
      if (!Values(list).empty()) continue;
      reason.word = word;
      reason.place = ListPlace(list);
      return reason;
    }
    const bool fits = PlainFitsPlatform(query_, source_.properties);
    reason.word = fits ? "entryMatches" : "noEntryMatches";
    if (!fits) reason.place = ListPlace("orderedMachineTypeList");
    return reason;
  }

  PlainFilterReason Kovu() const {
    PlainFilterReason reason{"kovu", record_.kovuFilterStatus, "off", "", {}};
    if (!query_.kovuFilter) return reason;
    reason.file = record_.kovuXmlFile;
    reason.word = "inChosenPack";
    if (record_.kovuName.empty()) reason.word = "packWithoutName";
    if (record_.kovuXmlFile.empty()) reason.word = "notInChosenPack";
    return reason;
  }

  PlainFilterReason Sep() const {
    PlainFilterReason reason{"sep", record_.sepFilterStatus, "off", "", {}};
    if (!query_.sepFilter) return reason;
    const bool isSep = code_.find("orx_utl_sep") != std::string::npos ||
                       code_.find("orx_utl_tsep") != std::string::npos;
    reason.word = isSep ? "sepCode" : "noSepCode";
    return reason;
  }

  PlainFilterReason PayloadExist() const {
    PlainFilterReason reason{"payloadExist", record_.payloadExistFilterStatus, "off", "", {}};
    if (!query_.payloadExistFilter) return reason;
    reason.file = source_.file;
    reason.word = "noProperties";
    if (source_.file.empty()) return reason;
    const struct {
      const char* property;
      const char* unnamed;
    } files[] = {{"xmlFilename", "noXmlFilename"}, {"payload", "noPayload"}};
    for (const auto& [property, unnamed] : files) {
      if (Value(property).empty()) return At(reason, unnamed, ValuePlace(property));
    }
    if (!facts_.folder.holdsFile(Value("xmlFilename"))) {
      return At(reason, "descriptorMissing", ValuePlace("xmlFilename"));
    }
    if (!facts_.folder.holdsFile(Value("payload"))) {
      return At(reason, "payloadMissing", ValuePlace("payload"));
    }
    return At(reason, "found", {});
  }

  static PlainFilterReason At(PlainFilterReason reason, const std::string& word,
                              const PlainPlace& place) {
    reason.word = word;
    reason.place = place;
    return reason;
  }

  PlainFilterReason Supersede() const {
    PlainFilterReason reason{"supersede", record_.supersedeFilterStatus, "off", "", {}};
    if (!query_.supersedeFilter) return reason;
    const LastWrite last = FindLastWrite();
    reason.word = last.word;
    reason.file = source_.file;
    if (last.word == "replacedByList") {
      reason.place = PlainPlaceOf(facts_, PlainSourceOf(query_, last.key), "supersede", true);
    } else if (last.word == "replacedInGroup") {
      reason.place = PlainPlaceOf(facts_, PlainOriginOf(query_, code_), "Version", false);
    }
    return reason;
  }

  LastWrite FindLastWrite() const {
    PlainRecords records = facts_.records;
    LastWrite last;
    for (const auto& [key, codes] : PlainMap(records, Lists())) {
      for (const std::string& code : codes) {
        if (Finds(records, code)) last = {"replacedByList", key};
      }
      if (Finds(records, key)) last = {"keptByList", key};
    }
    for (const PlainCodes& group : PlainRankedGroups(records, query_.excludePackageIds)) {
      const PlainRecords ranking = PlainRanking(records, group);
      for (std::size_t k = 0; k < ranking.size(); ++k) {
        if (!Finds(records, ranking[k].identificationCode)) continue;
        last.word = k + 1 == ranking.size() ? "highestOfGroup" : "replacedInGroup";
      }
    }
    return last;
  }

  // Whether the record is what the rule finds for a code.
  bool Finds(PlainRecords& records, const std::string& code) const {
    const QueryPackageResult* found = PlainFind(records, code);
    return found != nullptr && found->identificationCode == code_;
  }

  std::vector<PlainCodes> Lists() const {
    std::vector<PlainCodes> lists;
    for (const QueryPackageResult& record : facts_.records) {
      const PlainSource source = PlainSourceOf(query_, record.identificationCode);
      lists.push_back(PlainValues("supersede", source.properties));
    }
    return lists;
  }

  PlainFilterReason IncludeId() const {
    return {"includeId", record_.includeIdFilterStatus, ListWord(query_.includePackageIds), "", {}};
  }

  PlainFilterReason ExcludeId() const {
    return {"excludeId", record_.excludeIdFilterStatus, ListWord(query_.excludePackageIds), "", {}};
  }

  std::string ListWord(const Texts& ids) const {
    if (ids.empty()) return "off";
    return PlainIsListed(ids, code_) ? "listed" : "notListed";
  }

  PlainFilterReason UpdateType() const {
    PlainFilterReason reason{"updateType", record_.updateTypeFilterStatus, "off", "", {}};
    if (query_.updateTypes.empty()) return reason;
    reason.file = source_.file;
    reason.word = "noProperties";
    if (source_.file.empty()) return reason;
    if (Value("type").empty()) return At(reason, "noType", ValuePlace("type"));
    if (PlainRequestsType(query_, PlainNumber(Value("type")))) return At(reason, "requested", {});
    return At(reason, "notRequested", ValuePlace("type"));
  }

  const PlainFacts& facts_;
  const QueryPackageImp& query_;
  const QueryPackageResult& record_;
  const std::string& code_;
  const PlainSource source_;  // by the code; no file: nowhere
};

}  // namespace

std::vector<PlainFilterReason> PlainFilterReasons(const PlainFacts& facts,
                                                  const QueryPackageResult& record) {
  return Reasons(facts, record).All();
}

}  // namespace Vornik::Testing
