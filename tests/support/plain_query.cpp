#include "plain_query.h"

#include <locale>

#include "plain_filters.h"
#include "plain_properties.h"
#include "plain_results.h"

namespace Vornik::Testing {

namespace {

constexpr std::uint32_t matched = 1;
constexpr std::uint32_t notMatched = 2;

class Query {
 public:
  Query(QueryPackageImp& query, const PlainFolder& folder, const PlainRecords& before)
      : query_(query), folder_(folder), records_(outcome_.records), log_(outcome_.log) {
    records_ = before;
  }

  PlainOutcome Run() {
    outcome_.code = RunStages();
    return outcome_;
  }

 private:
  int RunStages() {
    log_.Progress("Check parameter validity - Start");
    if (!CheckParameters()) return 2;
    log_.Progress("Check parameter validity - End");
    log_.Progress("Parse XML Package Folder - Start");
    PlainScan(folder_.files, query_, log_);
    log_.Progress("Parse XML Package Folder - End");
    log_.Progress("Create Query Package Results - Start");
    if (!PlainBuild(query_, records_, log_)) return 4;
    log_.Progress("Create Query Package Results - End");
    if (query_.queryCallback != nullptr) {
      log_.Progress("PreQueryPackage Callback - Start");
      log_.Progress("PreQueryPackage Callback - End");
    }
    RunFilters();
    return 0;
  }

  void RunFilters() {
    RunFilter(true, "Duplicate", &Query::Duplicate);
    RunFilter(true, "Platform", &Query::Platform);
    RunFilter(query_.kovuFilter, "Kovu", &Query::Kovu);
    RunFilter(query_.sepFilter, "Sep", &Query::Sep);
    RunFilter(query_.payloadExistFilter, "PayloadExist", &Query::PayloadExist);
    RunFilter(query_.supersedeFilter, "Supersede", &Query::Supersede);
    RunFilter(!query_.includePackageIds.empty(), "IncludePackageIDs", &Query::IncludeIds);
    RunFilter(!query_.excludePackageIds.empty(), "ExcludePackageIDs", &Query::ExcludeIds);
    RunFilter(!query_.updateTypes.empty(), "UpdateType", &Query::UpdateTypes);
  }

  void RunFilter(bool isOn, const std::string& name, void (Query::*filter)()) {
    if (!isOn) {
      log_.Progress(name + " Filter Ignored!");
      return;
    }
    log_.Progress(name + " Filter - Start");
    (this->*filter)();
    log_.Progress(name + " Filter - End");
  }

  bool Refuse(const std::string& report) {
    log_.Error(report);
    outcome_.standardOutput += report;
    return false;
  }

  bool CheckParameters() {
    const std::string& folder = query_.xmlPackageFolder;
    const std::string& machineType = query_.machineType;
    if (folder.empty()) return Refuse("xml package folder is not set");
    if (!folder_.isDirectory) {
      return Refuse("xml package folder: " + folder + " is not valid folder");
    }
    if (machineType.empty()) return Refuse("MachineType is not set");
    if (machineType.size() != 4) return Refuse("MachineType is invalid");
    for (const char c : machineType) {
      if (!std::isdigit(c, std::locale())) return Refuse("MachineType is invalid");
    }
    if (static_cast<std::uint32_t>(query_.osValue) == 0) return Refuse("OS is not set");
    if (static_cast<std::uint32_t>(query_.arcValue) == 0) return Refuse("Arc is not set");
    for (const std::string& included : query_.includePackageIds) {
      for (const std::string& excluded : query_.excludePackageIds) {
        if (included == excluded) {
          return Refuse(included + " is in both IncludePackageIDs and ExcludePackageIDs");
        }
      }
    }
    return true;
  }

  bool FindProperties(const std::string& code, SupXmlProperties& properties) {
    if (code.empty()) {
      log_.Warning("Package IdentificationCode is empty");
      return false;
    }
    for (const KovuPackEntry& pack : query_.repository.kovuPackEntries()) {
      if (FindAmong(pack.members, code, properties)) return true;
    }
    return FindAmong(query_.repository.packageXmlEntries(), code, properties);
  }

  static bool FindAmong(const std::vector<PackageXmlEntry>& entries, const std::string& code,
                        SupXmlProperties& properties) {
    for (const PackageXmlEntry& entry : entries) {
      if (PlainValue("identificationCode", entry.properties) == code) {
        properties = entry.properties;
        return true;
      }
    }
    return false;
  }

  // The same, with the line of a filter that does not find them.
  bool NeedProperties(const std::string& code, SupXmlProperties& properties) {
    if (FindProperties(code, properties)) return true;
    log_.Error("ERROR: Couldn't find correct SupXmlProperties");
    return false;
  }

  void Judge(const QueryPackageResult& record, std::uint32_t& slot, const std::string& filter,
             bool passes) {
    slot = passes ? matched : notMatched;
    log_.Progress(record.identificationCode + " " + filter + " Filter is " +
                  (passes ? "" : "not ") + "matched!");
  }

  void Duplicate() {
    PlainRecords kept;
    for (const QueryPackageResult& record : records_) {
      QueryPackageResult* first = nullptr;
      for (QueryPackageResult& one : kept) {
        if (first == nullptr && one.identificationCode == record.identificationCode) first = &one;
      }
      if (first == nullptr) {
        kept.push_back(record);
        continue;
      }
      if (!record.kovuName.empty() && first->kovuName.empty()) {
        first->kovuXmlFile = record.kovuXmlFile;
        first->kovuName = record.kovuName;
      }
      log_.Progress(record.identificationCode + " is filtered in FilterDuplicate");
    }
    records_ = kept;
  }

  void Platform() {
    for (QueryPackageResult& record : records_) {
      SupXmlProperties properties;
      if (!NeedProperties(record.identificationCode, properties)) continue;
      if (PlainValues("orderedMachineTypeList", properties).empty()) {
        log_.Error("ERROR: Couldn't find orderedMachineTypeList!");
      } else if (PlainValues("orderedOSList", properties).empty()) {
        log_.Error("ERROR: Couldn't find orderedOSList!");
      } else if (PlainValues("orderedOSArchitectureList", properties).empty()) {
        log_.Error("ERROR: Couldn't find orderedOSArchitectureList!");
      } else {
        Judge(record, record.platformFilterStatus, "Platform",
              PlainFitsPlatform(query_, properties));
      }
    }
  }

  void Kovu() {
    for (QueryPackageResult& record : records_) {
      Judge(record, record.kovuFilterStatus, "Kovu",
            !record.kovuXmlFile.empty() && !record.kovuName.empty());
    }
  }

  void Sep() {
    for (QueryPackageResult& record : records_) {
      const std::string& code = record.identificationCode;
      const bool isSep = code.find("orx_utl_tsep") != std::string::npos ||
                         code.find("orx_utl_sep") != std::string::npos;
      Judge(record, record.sepFilterStatus, "Sep", !isSep);
    }
  }

  void PayloadExist() {
    for (QueryPackageResult& record : records_) {
      const bool exists = HasBothFiles(record.identificationCode);
      Judge(record, record.payloadExistFilterStatus, "PayloadExist", exists);
    }
  }

  bool HasBothFiles(const std::string& code) {
    SupXmlProperties properties;
    if (!NeedProperties(code, properties)) return false;
    const std::string xmlFilename = PlainValue("xmlFilename", properties);
    if (xmlFilename.empty()) {
      log_.Error("ERROR: Couldn't find xml!");
      return false;
    }
    const std::string payload = PlainValue("payload", properties);
    if (payload.empty()) {
      log_.Error("ERROR: Couldn't find payload!");
      return false;
    }
    return folder_.holdsFile(xmlFilename) && folder_.holdsFile(payload);
  }

  void Supersede() {
    std::vector<PlainCodes> lists(records_.size());
    for (std::size_t i = 0; i < records_.size(); ++i) {
      if (records_[i].platformFilterStatus == notMatched) continue;
      SupXmlProperties properties;
      if (!NeedProperties(records_[i].identificationCode, properties)) continue;
      lists[i] = PlainValues("supersede", properties);
    }
    PlainSupersede(records_, lists, query_.excludePackageIds);
  }

  void IncludeIds() {
    for (QueryPackageResult& record : records_) {
      Judge(record, record.includeIdFilterStatus, "IncludeId",
            PlainIsListed(query_.includePackageIds, record.identificationCode));
    }
  }

  void ExcludeIds() {
    for (QueryPackageResult& record : records_) {
      Judge(record, record.excludeIdFilterStatus, "ExcludeId",
            !PlainIsListed(query_.excludePackageIds, record.identificationCode));
    }
  }

  void UpdateTypes() {
    for (QueryPackageResult& record : records_) {
      SupXmlProperties properties;
      if (!NeedProperties(record.identificationCode, properties)) continue;
      const std::string type = PlainValue("type", properties);
      if (type.empty()) {
        log_.Error("ERROR: Couldn't find update type!");
        continue;
      }
      Judge(record, record.updateTypeFilterStatus, "UpdateType",
            PlainRequestsType(query_, PlainNumber(type)));
    }
  }

  QueryPackageImp& query_;
  const PlainFolder& folder_;
  PlainOutcome outcome_;
  PlainRecords& records_;
  PlainLog& log_;
};

}  // namespace

PlainOutcome PlainRunQuery(QueryPackageImp& query, const PlainFolder& folder,
                           const PlainRecords& records) {
  return Query(query, folder, records).Run();
}

}  // namespace Vornik::Testing
