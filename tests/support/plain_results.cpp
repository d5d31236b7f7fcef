#include "plain_results.h"

#include <utility>

#include "plain_properties.h"

namespace Vornik::Testing {

namespace {

using Texts = std::vector<std::string>;

std::string Bracketed(const std::string& text) {
  const std::size_t open = text.find('[');
  const std::size_t close = text.find(']');
  if (open == std::string::npos || close == std::string::npos || close < open) return text;
  return text.substr(open + 1, close - open - 1);
}

bool FitsMachineType(const QueryPackageImp& query, const SupXmlProperties& pack, PlainLog& log) {
  if (query.machineType.empty()) return true;
  const Texts values = PlainValues("applicableMachineTypes", pack);
  if (values.empty()) {
    log.Error("ERROR: Couldn't find applicableMachineTypeList!");
    return false;
  }
  for (const std::string& value : values) {
    if (Bracketed(value) == query.machineType) return true;
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

// The first and the second token; two empty texts where there are not exactly two.
std::pair<std::string, std::string> NameAndVersion(const std::string& value, PlainLog& log) {
  if (value.empty()) return {};
  std::size_t begin = 0;
  while (begin < value.size() && (value[begin] == '-' || value[begin] == '#')) ++begin;
  Texts tokens;
  std::string token;
  for (std::size_t i = begin; i < value.size(); ++i) {
    if (value[i] == '-' && i + 1 < value.size() && value[i + 1] == '#') {
      if (!token.empty()) tokens.push_back(token);
      token.clear();
      ++i;
    } else {
      token += value[i];
    }
  }
  if (!token.empty()) tokens.push_back(token);
  if (tokens.size() == 2) return {tokens[0], tokens[1]};
  log.Warning("Fail to parse driverFiles's property value");
  return {};
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
  for (std::size_t i = 0; i < query.kovuPackEntries.size(); ++i) {
    const std::vector<PackageXmlEntry>& members = query.kovuPackEntries[i].members;
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

std::vector<QueryPackageResult::DriverFile> PlainDriverFiles(const SupXmlProperties& properties,
                                                             PlainLog& log) {
  std::vector<QueryPackageResult::DriverFile> files;
  const Texts values = PlainValues("driverFiles", properties);
  if (values.empty()) {
    const std::string name = PlainValue("category", properties);
    const std::string version = Bracketed(PlainValue("Version", properties));
    if (!name.empty() && !version.empty()) files.push_back({name, version, ""});
    return files;
  }
  const Texts classifications = PlainValues("driverFilesClassification", properties);
  for (std::size_t k = 0; k < values.size(); ++k) {
    const auto [name, version] = NameAndVersion(values[k], log);
    const std::string classification = classifications.empty() ? "" : classifications.at(k);
    if (!name.empty() && !version.empty()) files.push_back({name, version, classification});
  }
  return files;
}

bool PlainBuild(const QueryPackageImp& query, PlainRecords& records, PlainLog& log) {
  if (query.packageXmlEntries.empty() && query.kovuPackEntries.empty()) {
    log.Error("There is not any valid xml package in " + query.xmlPackageFolder);
    return false;
  }
  records.clear();
  const int chosen = PlainPackChoice(query, log);
  if (chosen != -1) {
    const KovuPackEntry& pack = query.kovuPackEntries[static_cast<std::size_t>(chosen)];
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      records.push_back(Record(pack.members[i], pack.kovuXmlFile, log));
    }
  }
  for (const PackageXmlEntry& entry : query.packageXmlEntries) {
    records.push_back(Record(entry, "", log));
  }
  return !records.empty();
}

}  // namespace Vornik::Testing
