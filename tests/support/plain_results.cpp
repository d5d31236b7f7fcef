#include "plain_results.h"

#include "plain_driver_files.h"
#include "plain_properties.h"

namespace Vornik::Testing {

namespace {

using Texts = std::vector<std::string>;

bool FitsMachineType(const QueryPackageImp& query, const SupXmlProperties& pack, PlainLog& log) {
  if (query.machineType.empty()) return true;
  const Texts values = PlainValues("applicableMachineTypes", pack);
  if (values.empty()) {
    log.Error("ERROR: Couldn't find applicableMachineTypeList!");
    return false;
  }
  for (const std::string& value : values) {
    if (PlainBracketed(value) == query.machineType) return true;
  }
  return false;
}

bool FitsSystem(const QueryPackageImp& query, const SupXmlProperties& pack, PlainLog& log) {
  const auto system = static_cast<std::uint32_t>(query.osValue);
  if (system == 0) return true;
  const Texts values = PlainValues("applicableOperatingSystems", pack);
  if (values.empty()) {
    log.Error("ERROR: Couldn't find applicableOperatingSystems!");
    return false;
  }
  for (const std::string& value : values) {
    const int number = PlainNumber(value);
    if (number == 0 || static_cast<std::uint32_t>(number) == system) return true;
  }
  return false;
}

// The last component of a path without its last extension.
std::string Stem(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  const std::string name = separator == std::string::npos ? path : path.substr(separator + 1);
  return name.substr(0, name.rfind('.'));
}

QueryPackageResult Record(const PackageXmlEntry& entry, const std::string& pack, PlainLog& log) {
  const SupXmlProperties& properties = entry.properties;
  QueryPackageResult record;
  record.packageXmlFile = entry.xmlFile;
  record.identificationCode = PlainValue("identificationCode", properties);
  record.buildNumber = PlainValue("buildNumber", properties);
  record.description = PlainValue("description", properties);
  record.updateSelection = PlainValue("updateSelection", properties);
  record.rebootRequired = PlainValue("rebootRequired", properties);
  record.severity = PlainValue("severity", properties);
  record.category = PlainValue("category", properties);
  record.payload = PlainValue("payload", properties);
  record.type = PlainValue("type", properties);
  record.Version = PlainValue("Version", properties);
  record.driverFiles = PlainDriverFiles(properties, log);
  record.applicableDeviceId = PlainValues("applicableDeviceId", properties);
  record.preReq = PlainValues("preReq", properties);
  record.coReq = PlainValues("coReq", properties);
  record.kovuXmlFile = pack;
  record.kovuName = Stem(pack);
  return record;
}

}  // namespace

int PlainPackChoice(const QueryPackageImp& query, PlainLog& log) {
  int chosen = -1;
  std::string chosenVersion;
  for (std::size_t i = 0; i < query.repository.kovuPackEntries().size(); ++i) {
    const std::vector<PackageXmlEntry>& members = query.repository.kovuPackEntries()[i].members;
    const SupXmlProperties pack = members.empty() ? SupXmlProperties() : members[0].properties;
    if (!FitsMachineType(query, pack, log)) continue;
    if (!FitsSystem(query, pack, log)) continue;
    if (chosen == -1) {
      chosen = static_cast<int>(i);
      continue;
    }
    const std::string version = PlainValue("Version", pack);
    if (PlainFold(version) > PlainFold(chosenVersion)) {
      chosen = static_cast<int>(i);
      chosenVersion = version;
    }
  }
  return chosen;
}

bool PlainBuild(const QueryPackageImp& query, PlainRecords& records, PlainLog& log) {
  if (query.repository.packageXmlEntries().empty() && query.repository.kovuPackEntries().empty()) {
    log.Error("There is not any valid xml package in " + query.xmlPackageFolder);
    return false;
  }
  records.clear();
  const int chosen = PlainPackChoice(query, log);
  if (chosen != -1) {
    const KovuPackEntry& pack =
        query.repository.kovuPackEntries()[static_cast<std::size_t>(chosen)];
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      records.push_back(Record(pack.members[i], pack.kovuXmlFile, log));
    }
  }
  for (const PackageXmlEntry& entry : query.repository.packageXmlEntries()) {
    records.push_back(Record(entry, "", log));
  }
  return !records.empty();
}

}  // namespace Vornik::Testing
