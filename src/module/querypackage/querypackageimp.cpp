#include "querypackageimp.h"

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <thread>
#include <utility>

#include "cimxml.h"
#include "descriptor_classification.h"
#include "descriptor_files.h"
#include "driver_files.h"
#include "duplicate_rules.h"
#include "id_rules.h"
#include "literals.h"
#include "log_statement.h"
#include "log_texts.h"
#include "pack_choice.h"
#include "pack_members.h"
#include "package_lookup.h"
#include "package_paths.h"
#include "payload_rules.h"
#include "platform_rules.h"
#include "query_parameters.h"
#include "record_building.h"
#include "sep_rules.h"
#include "supersede_rules.h"
#include "update_type_rules.h"

// A failed parameter check goes to standard output as well, whatever the threshold is.
#define QP_REPORT(message)                                         \
  do {                                                             \
    QP_LOG(LogLevel::error, message);                              \
    std::cout << message; /* NOLINT(bugprone-macro-parentheses) */ \
  } while (false)

namespace Vornik {

namespace {

namespace fs = boost::filesystem;

// A pack instance has to name its class first; one that does not keeps the load from returning.
// The volatile read keeps the loop in the program, the sleep keeps it off the processor.
void HoldLoadForever() {
  const volatile bool held = true;
  while (held) std::this_thread::sleep_for(std::chrono::hours(1));
}

// A folder's listing tells most kinds itself, so that no file is asked for it.
std::optional<std::string> BytesOf(const fs::directory_entry& entry) {
  boost::system::error_code error;
  const bool isRegular = entry.status(error).type() == fs::regular_file;
  return isRegular ? ReadKnownRegularFile(entry.path().string()) : std::nullopt;
}

std::uint32_t StatusOf(bool matched) {
  return matched ? FilterStatus::Matched : FilterStatus::NotMatched;
}

}  // namespace

int QueryPackageImp::RunQuery(Results& results) {
  QP_LOG(LogLevel::progress, LogText::parameterCheck.start);
  if (!CheckParameterValidity()) return QueryCode::InvalidParameter;
  QP_LOG(LogLevel::progress, LogText::parameterCheck.end);

  QP_LOG(LogLevel::progress, LogText::parseFolder.start);
  if (!ParseXmlPackageFolder()) return QueryCode::FolderFailed;
  QP_LOG(LogLevel::progress, LogText::parseFolder.end);

  QP_LOG(LogLevel::progress, LogText::createResults.start);
  if (!CreateQueryPackageResults(results)) return QueryCode::NoResults;
  QP_LOG(LogLevel::progress, LogText::createResults.end);

  if (queryCallback != nullptr) {
    QP_LOG(LogLevel::progress, LogText::preCallback.start);
    queryCallback->PreQueryPackage();
    QP_LOG(LogLevel::progress, LogText::preCallback.end);
  }

  PackageIndex index(kovuPackEntries, packageXmlEntries);

  QP_LOG(LogLevel::progress, LogText::duplicate.start);
  FilterDuplicate(results);
  QP_LOG(LogLevel::progress, LogText::duplicate.end);

  QP_LOG(LogLevel::progress, LogText::platform.start);
  FilterPlatform(results, index);
  QP_LOG(LogLevel::progress, LogText::platform.end);

  if (kovuFilter) {
    QP_LOG(LogLevel::progress, LogText::kovu.start);
    FilterKovu(results);
    QP_LOG(LogLevel::progress, LogText::kovu.end);
  } else {
    QP_LOG(LogLevel::progress, LogText::kovu.ignored);
  }

  if (sepFilter) {
    QP_LOG(LogLevel::progress, LogText::sep.start);
    FilterSep(results);
    QP_LOG(LogLevel::progress, LogText::sep.end);
  } else {
    QP_LOG(LogLevel::progress, LogText::sep.ignored);
  }

  if (payloadExistFilter) {
    QP_LOG(LogLevel::progress, LogText::payloadExist.start);
    FilterPayloadExist(results, index);
    QP_LOG(LogLevel::progress, LogText::payloadExist.end);
  } else {
    QP_LOG(LogLevel::progress, LogText::payloadExist.ignored);
  }

  if (supersedeFilter) {
    QP_LOG(LogLevel::progress, LogText::supersede.start);
    FilterSupersede(results, index);
    QP_LOG(LogLevel::progress, LogText::supersede.end);
  } else {
    QP_LOG(LogLevel::progress, LogText::supersede.ignored);
  }

  if (!includePackageIds.empty()) {
    QP_LOG(LogLevel::progress, LogText::includeIds.start);
    FilterIncludeId(results);
    QP_LOG(LogLevel::progress, LogText::includeIds.end);
  } else {
    QP_LOG(LogLevel::progress, LogText::includeIds.ignored);
  }

  if (!excludePackageIds.empty()) {
    QP_LOG(LogLevel::progress, LogText::excludeIds.start);
    FilterExcludeId(results);
    QP_LOG(LogLevel::progress, LogText::excludeIds.end);
  } else {
    QP_LOG(LogLevel::progress, LogText::excludeIds.ignored);
  }

  if (!updateTypes.empty()) {
    QP_LOG(LogLevel::progress, LogText::updateType.start);
    FilterUpdateType(results, index);
    QP_LOG(LogLevel::progress, LogText::updateType.end);
  } else {
    QP_LOG(LogLevel::progress, LogText::updateType.ignored);
  }

  // Read afresh: the callback may have replaced itself, and a host's log may have too.
  if (queryCallback != nullptr) queryCallback->PostQueryPackage();
  return QueryCode::Completed;
}

bool QueryPackageImp::CheckParameterValidity() {
  const ParameterCheck check = CheckParameters(
      {xmlPackageFolder, machineType, osValue, arcValue, includePackageIds, excludePackageIds});
  switch (check.fault) {
    case ParameterFault::None:
      return true;
    case ParameterFault::FolderNotSet:
      QP_REPORT(LogText::folderNotSet);
      break;
    case ParameterFault::FolderNotValid:
      QP_REPORT(LogText::folderNotValidBefore << xmlPackageFolder << LogText::folderNotValidAfter);
      break;
    case ParameterFault::MachineTypeNotSet:
      QP_REPORT(LogText::machineTypeNotSet);
      break;
    case ParameterFault::MachineTypeInvalid:
      QP_REPORT(LogText::machineTypeInvalid);
      break;
    case ParameterFault::OsNotSet:
      QP_REPORT(LogText::osNotSet);
      break;
    case ParameterFault::ArcNotSet:
      QP_REPORT(LogText::arcNotSet);
      break;
    case ParameterFault::IdInBothLists:
      QP_REPORT(check.id << LogText::idInBothLists);
      break;
  }
  return false;
}

bool QueryPackageImp::ParseXmlPackageFolder() {
  if (xmlPackageFolder.empty()) {
    QP_LOG(LogLevel::error, LogText::folderNotSet);
    return false;
  }
  try {
    const fs::path folder(xmlPackageFolder);
    if (!fs::exists(fs::status(folder))) {
      QP_LOG(LogLevel::error, xmlPackageFolder << LogText::doesNotExist);
      return true;
    }
    if (!fs::is_directory(fs::status(folder))) {
      QP_LOG(LogLevel::error, xmlPackageFolder << LogText::notADirectory);
      return true;
    }
    for (fs::directory_iterator entry(folder), end; entry != end; ++entry) {
      const fs::path& path = entry->path();
      if (!HasDescriptorExtension(path.native())) continue;
      LoadDescriptor(path.string(), path.filename().string(), BytesOf(*entry));
    }
  } catch (const fs::filesystem_error& error) {
    QP_LOG(LogLevel::error, error.what());
    return false;
  }
  return true;
}

void QueryPackageImp::LoadDescriptor(const std::string& path, const std::string& fileName,
                                     FileBytes bytes) {
  const DescriptorMarkers markers = MarkersOfBytes(bytes);
  if (IsKovuXml(path, markers)) {
    LoadKovuXml(path, std::move(bytes));
  } else if (IsIndividualXml(path, markers)) {
    LoadPackageXml(path, std::move(bytes));
  } else {
    QP_LOG(LogLevel::error, fileName << LogText::notValidXml);
  }
}

bool QueryPackageImp::IsKovuXml(std::string path) {
  return MayNameDescriptor(path) && IsKovuXml(path, MarkersOfFile(path));
}

bool QueryPackageImp::IsKovuXml(const std::string& path, const DescriptorMarkers& markers) {
  const bool isKovu = IsKovuText(markers);
  QP_LOG(LogLevel::progress, path << (isKovu ? LogText::isKovuXml : LogText::isNotKovuXml));
  return isKovu;
}

bool QueryPackageImp::IsIndividualXml(std::string path) {
  return MayNameDescriptor(path) && IsIndividualXml(path, MarkersOfFile(path));
}

bool QueryPackageImp::IsIndividualXml(const std::string& path, const DescriptorMarkers& markers) {
  const bool isIndividual = IsIndividualText(markers);
  QP_LOG(LogLevel::progress,
         path << (isIndividual ? LogText::isIndividualXml : LogText::isNotIndividualXml));
  return isIndividual;
}

bool QueryPackageImp::LoadPackageXml(std::string path) {
  return MayNameDescriptor(path) && LoadPackageXml(path, ReadRegularFile(path));
}

bool QueryPackageImp::LoadPackageXml(std::string path, FileBytes bytes) {
  QP_LOG(LogLevel::progress, LogText::loadPackage << path);
  CimXmlDocument document;
  if (document.LoadBytes(std::move(bytes), DescriptorKind::Individual).fault != LoadFault::None) {
    QP_LOG(LogLevel::error, LogText::loadPackageFailed << path);
    return false;
  }

  QP_LOG(LogLevel::progress, LogText::loadPackageRoot);
  const TiXmlNode* root = document.Root();
  if (root == nullptr) {
    QP_LOG(LogLevel::error, LogText::loadPackageRootFailed);
    return false;
  }

  SupXmlProperties properties;
  QP_LOG(LogLevel::progress, LogText::getPackageProperties);
  ReadProperties(root, properties);
  if (properties.empty()) {
    QP_LOG(LogLevel::error, LogText::getPackagePropertiesFailed);
    return false;
  }
  packageXmlEntries.push_back({std::move(path), std::move(properties)});
  return true;
}

bool QueryPackageImp::LoadKovuXml(std::string path) {
  return MayNameDescriptor(path) && LoadKovuXml(path, ReadRegularFile(path));
}

bool QueryPackageImp::LoadKovuXml(std::string path, FileBytes bytes) {
  QP_LOG(LogLevel::progress, LogText::loadKovu << path);
  CimXmlDocument document;
  if (document.LoadBytes(std::move(bytes), DescriptorKind::Pack).fault != LoadFault::None) {
    QP_LOG(LogLevel::error, LogText::loadKovuFailed << path);
    return false;
  }

  QP_LOG(LogLevel::progress, LogText::loadKovuRoot);
  const TiXmlNode* root = document.Root();
  if (root == nullptr) {
    QP_LOG(LogLevel::error, LogText::loadKovuRootFailed);
    return false;
  }

  std::vector<const TiXmlNode*> instances;
  if (CollectInstances(root, instances) != nullptr) HoldLoadForever();
  if (instances.empty()) {
    QP_LOG(LogLevel::error, LogText::noUpdateElements);
    return false;
  }

  PackMembers members(path);
  for (const TiXmlNode* instance : instances) {
    SupXmlProperties properties;
    QP_LOG(LogLevel::progress, LogText::getKovuProperties);
    ReadProperties(instance, properties);
    if (properties.empty()) {
      QP_LOG(LogLevel::error, LogText::getKovuPropertiesFailed);
      continue;
    }
    members.Add(std::move(properties));
  }
  kovuPackEntries.push_back({std::move(path), members.Take()});
  return true;
}

bool QueryPackageImp::CreateQueryPackageResults(Results& results) {
  if (packageXmlEntries.empty() && kovuPackEntries.empty()) {
    QP_LOG(LogLevel::error, LogText::noValidPackage << xmlPackageFolder);
    return false;
  }
  results.clear();

  const std::int32_t chosen = SelectKovuPack();
  if (chosen != -1) {
    const KovuPackEntry& pack = kovuPackEntries[static_cast<std::size_t>(chosen)];
    const std::string kovuName = FileStem(pack.kovuXmlFile);
    // The first member is the pack itself and never becomes a result.
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      results.push_back(CreateResult(pack.members[i], pack.kovuXmlFile, kovuName));
    }
  }
  for (const PackageXmlEntry& entry : packageXmlEntries) {
    results.push_back(CreateResult(entry, "", ""));
  }
  return !results.empty();
}

std::int32_t QueryPackageImp::SelectKovuPack() {
  PackChooser chooser;
  for (std::size_t i = 0; i < kovuPackEntries.size(); ++i) {
    const SupXmlProperties& pack = PackLevelProperties(kovuPackEntries[i]);
    switch (JudgePack(pack, machineType, osValue)) {
      case PackVerdict::NoMachineTypes:
        QP_LOG(LogLevel::error, LogText::noApplicableMachineTypes);
        break;
      case PackVerdict::NoOperatingSystems:
        QP_LOG(LogLevel::error, LogText::noApplicableSystems);
        break;
      case PackVerdict::Applies:
        chooser.Offer(static_cast<std::int32_t>(i), pack);
        break;
      case PackVerdict::OtherMachineType:
      case PackVerdict::OtherOperatingSystem:
        break;
    }
  }
  return chooser.Chosen();
}

QueryPackageResult QueryPackageImp::CreateResult(const PackageXmlEntry& entry,
                                                 const std::string& kovuXmlFile,
                                                 const std::string& kovuName) {
  QueryPackageResult record = BuildRecord(entry, kovuXmlFile, kovuName);
  record.driverFiles = GetDriverFiles(entry.properties);
  return record;
}

std::vector<QueryPackageResult::DriverFile> QueryPackageImp::GetDriverFiles(
    const SupXmlProperties& properties) {
  DriverFileReading reading = ReadDriverFiles(properties);
  for (std::size_t i = 0; i < reading.unparsedValues; ++i) {
    QP_LOG(LogLevel::warning, LogText::driverFileFailed);
  }
  // A driver file without its classification ends the process rather than be read past the list.
  if (reading.unclassifiedIndex) std::abort();
  return std::move(reading.files);
}

bool QueryPackageImp::FindPackageProperties(std::string identificationCode,
                                            SupXmlProperties& properties) {
  if (identificationCode.empty()) {
    QP_LOG(LogLevel::warning, LogText::codeIsEmpty);
    return false;
  }
  const SupXmlProperties* found =
      FindByIdentificationCode(identificationCode, kovuPackEntries, packageXmlEntries);
  properties = found == nullptr ? SupXmlProperties() : *found;
  return found != nullptr;
}

const SupXmlProperties* QueryPackageImp::LookUp(PackageIndex& index,
                                                const std::string& identificationCode) {
  if (identificationCode.empty()) {
    QP_LOG(LogLevel::warning, LogText::codeIsEmpty);
    return nullptr;
  }
  return index.Find(identificationCode);
}

void QueryPackageImp::FilterDuplicate(Results& results) {
  const std::vector<Duplicate> duplicates = FindDuplicates(results);
  for (const Duplicate& duplicate : duplicates) {
    QP_LOG(LogLevel::progress,
           results[duplicate.index].identificationCode << LogText::duplicateDropped);
  }
  RemoveDuplicates(results, duplicates);
}

void QueryPackageImp::FilterPlatform(Results& results) {
  PackageIndex index(kovuPackEntries, packageXmlEntries);
  FilterPlatform(results, index);
}

void QueryPackageImp::FilterPlatform(Results& results, PackageIndex& index) {
  for (QueryPackageResult& record : results) {
    const SupXmlProperties* properties = LookUp(index, record.identificationCode);
    if (properties == nullptr) {
      QP_LOG(LogLevel::error, LogText::noProperties);
      continue;
    }
    switch (JudgePlatform(*properties, osValue, arcValue, machineType).verdict) {
      case PlatformVerdict::NoMachineTypes:
        QP_LOG(LogLevel::error, LogText::noMachineTypeList);
        break;
      case PlatformVerdict::NoOperatingSystems:
        QP_LOG(LogLevel::error, LogText::noOsList);
        break;
      case PlatformVerdict::NoArchitectures:
        QP_LOG(LogLevel::error, LogText::noArchitectureList);
        break;
      case PlatformVerdict::Matched:
        record.platformFilterStatus = FilterStatus::Matched;
        QP_LOG(LogLevel::progress, record.identificationCode << LogText::platformMatched);
        break;
      case PlatformVerdict::NotMatched:
        record.platformFilterStatus = FilterStatus::NotMatched;
        QP_LOG(LogLevel::progress, record.identificationCode << LogText::platformNotMatched);
        break;
    }
  }
}

void QueryPackageImp::FilterKovu(Results& results) {
  for (QueryPackageResult& record : results) {
    const bool matched = !record.kovuXmlFile.empty() && !record.kovuName.empty();
    record.kovuFilterStatus = StatusOf(matched);
    QP_LOG(LogLevel::progress,
           record.identificationCode << (matched ? LogText::kovuMatched : LogText::kovuNotMatched));
  }
}

void QueryPackageImp::FilterSep(Results& results) {
  for (QueryPackageResult& record : results) {
    const bool matched = !IsSepCode(record.identificationCode);
    record.sepFilterStatus = StatusOf(matched);
    QP_LOG(LogLevel::progress,
           record.identificationCode << (matched ? LogText::sepMatched : LogText::sepNotMatched));
  }
}

void QueryPackageImp::FilterPayloadExist(Results& results) {
  PackageIndex index(kovuPackEntries, packageXmlEntries);
  FilterPayloadExist(results, index);
}

void QueryPackageImp::FilterPayloadExist(Results& results, PackageIndex& index) {
  for (QueryPackageResult& record : results) {
    const bool matched = PayloadExists(LookUp(index, record.identificationCode));
    record.payloadExistFilterStatus = StatusOf(matched);
    QP_LOG(LogLevel::progress,
           record.identificationCode
               << (matched ? LogText::payloadExistMatched : LogText::payloadExistNotMatched));
  }
}

bool QueryPackageImp::PayloadExists(std::string identificationCode) {
  PackageIndex index(kovuPackEntries, packageXmlEntries);
  return PayloadExists(LookUp(index, identificationCode));
}

bool QueryPackageImp::PayloadExists(const SupXmlProperties* properties) {
  if (properties == nullptr) {
    QP_LOG(LogLevel::error, LogText::noProperties);
    return false;
  }
  switch (JudgePayload(*properties, xmlPackageFolder)) {
    case PayloadVerdict::NoXmlFilename:
      QP_LOG(LogLevel::error, LogText::noXmlFilename);
      return false;
    case PayloadVerdict::NoPayload:
      QP_LOG(LogLevel::error, LogText::noPayload);
      return false;
    case PayloadVerdict::DescriptorMissing:
    case PayloadVerdict::PayloadMissing:
      return false;
    case PayloadVerdict::Found:
      break;
  }
  return true;
}

void QueryPackageImp::FilterSupersede(Results& results) {
  PackageIndex index(kovuPackEntries, packageXmlEntries);
  FilterSupersede(results, index);
}

void QueryPackageImp::FilterSupersede(Results& results, PackageIndex& index) {
  for (QueryPackageResult& record : results) {
    record.supersedeFilterStatus = FilterStatus::Matched;
  }
  ListPointers lists(results.size());
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (results[i].platformFilterStatus == FilterStatus::NotMatched) continue;
    const SupXmlProperties* properties = LookUp(index, results[i].identificationCode);
    if (properties == nullptr) {
      QP_LOG(LogLevel::error, LogText::noProperties);
      continue;
    }
    lists[i] = FindPropertyValues(PropertyName::supersede, *properties);
  }
  ResolveSupersedence(results, lists, excludePackageIds);
}

bool QueryPackageImp::IsIncludedPackageId(std::string identificationCode) const {
  return IdSet(includePackageIds).Contains(identificationCode);
}

bool QueryPackageImp::IsExcludedPackageId(std::string identificationCode) const {
  return IdSet(excludePackageIds).Contains(identificationCode);
}

void QueryPackageImp::FilterIncludeId(Results& results) {
  if (includePackageIds.empty()) QP_LOG(LogLevel::error, LogText::includeIdsEmpty);
  IdSet included(includePackageIds);
  for (QueryPackageResult& record : results) {
    const bool matched = included.Contains(record.identificationCode);
    record.includeIdFilterStatus = StatusOf(matched);
    QP_LOG(LogLevel::progress,
           record.identificationCode
               << (matched ? LogText::includeIdMatched : LogText::includeIdNotMatched));
  }
}

void QueryPackageImp::FilterExcludeId(Results& results) {
  if (excludePackageIds.empty()) QP_LOG(LogLevel::error, LogText::excludeIdsEmpty);
  IdSet excluded(excludePackageIds);
  for (QueryPackageResult& record : results) {
    // A match is a package that passes: one that is not excluded.
    const bool matched = !excluded.Contains(record.identificationCode);
    record.excludeIdFilterStatus = StatusOf(matched);
    QP_LOG(LogLevel::progress,
           record.identificationCode
               << (matched ? LogText::excludeIdMatched : LogText::excludeIdNotMatched));
  }
}

void QueryPackageImp::FilterUpdateType(Results& results) {
  PackageIndex index(kovuPackEntries, packageXmlEntries);
  FilterUpdateType(results, index);
}

void QueryPackageImp::FilterUpdateType(Results& results, PackageIndex& index) {
  if (updateTypes.empty()) QP_LOG(LogLevel::error, LogText::updateTypesEmpty);
  for (QueryPackageResult& record : results) {
    const SupXmlProperties* properties = LookUp(index, record.identificationCode);
    if (properties == nullptr) {
      QP_LOG(LogLevel::error, LogText::noProperties);
      continue;
    }
    switch (JudgeUpdateType(*properties, updateTypes)) {
      case UpdateTypeVerdict::NoType:
        QP_LOG(LogLevel::error, LogText::noUpdateType);
        break;
      case UpdateTypeVerdict::Matched:
        record.updateTypeFilterStatus = FilterStatus::Matched;
        QP_LOG(LogLevel::progress, record.identificationCode << LogText::updateTypeMatched);
        break;
      case UpdateTypeVerdict::NotMatched:
        record.updateTypeFilterStatus = FilterStatus::NotMatched;
        QP_LOG(LogLevel::progress, record.identificationCode << LogText::updateTypeNotMatched);
        break;
    }
  }
}

}  // namespace Vornik
