#include "querypackageimp.h"

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>
#include <chrono>
#include <cstdlib>
#include <iterator>
#include <new>
#include <thread>
#include <utility>

#include "filters/duplicate.h"
#include "filters/kovu.h"
#include "filters/package_ids.h"
#include "filters/payload_exist.h"
#include "filters/platform.h"
#include "filters/sep.h"
#include "filters/supersede/supersede.h"
#include "filters/update_type.h"
#include "log_statement.h"
#include "log_texts.h"
#include "model/literals.h"
#include "model/query_parameters.h"
#include "reading/descriptor_files.h"
#include "reading/descriptor_reading.h"
#include "records/driver_files.h"
#include "records/pack_members.h"
#include "records/pack_selection.h"
#include "records/record_building.h"
#include "text/paths.h"

namespace Vornik {

namespace {

namespace fs = boost::filesystem;

// A pack instance has to name its class first; one that does not keeps the load from returning.
// The volatile read keeps the loop in the program, the sleep keeps it off the processor.
void WaitForever() {
  const volatile bool held = true;
  while (held) std::this_thread::sleep_for(std::chrono::hours(1));
}

// A folder's listing includes most kinds, so that no file is queried for it.
fs::file_type TypeOf(const fs::directory_entry& entry) {
  boost::system::error_code error;
  return entry.status(error).type();
}

std::uint32_t StatusOf(bool matched) {
  return matched ? FilterStatus::Matched : FilterStatus::NotMatched;
}

}  // namespace

int QueryPackageImp::RunQuery(Results& results) {
  QP_REQUIRED_STAGE(LogText::parameterCheck, CheckParameterValidity(), QueryCode::InvalidParameter);
  QP_REQUIRED_STAGE(LogText::parseFolder, ParseXmlPackageFolder(), QueryCode::FolderFailed);
  QP_REQUIRED_STAGE(LogText::createResults, CreateQueryPackageResults(results),
                    QueryCode::NoResults);
  if (queryCallback != nullptr) QP_STAGE(LogText::preCallback, queryCallback->PreQueryPackage());

  QP_STAGE(LogText::duplicate, FilterDuplicate(results));
  QP_STAGE(LogText::platform, FilterPlatform(results));
  QP_SWITCHED_STAGE(LogText::kovu, kovuFilter, FilterKovu(results));
  QP_SWITCHED_STAGE(LogText::sep, sepFilter, FilterSep(results));
  QP_SWITCHED_STAGE(LogText::payloadExist, payloadExistFilter, FilterPayloadExist(results));
  QP_SWITCHED_STAGE(LogText::supersede, supersedeFilter, FilterSupersede(results));
  QP_SWITCHED_STAGE(LogText::includeIds, !includePackageIds.empty(), FilterIncludeId(results));
  QP_SWITCHED_STAGE(LogText::excludeIds, !excludePackageIds.empty(), FilterExcludeId(results));
  QP_SWITCHED_STAGE(LogText::updateType, !updateTypes.empty(), FilterUpdateType(results));

  // Read again: the first call, or a host's log, may have replaced it.
  if (queryCallback != nullptr) queryCallback->PostQueryPackage();
  return QueryCode::Completed;
}

bool QueryPackageImp::CheckParameterValidity() {
  const ParameterCheck check =
      CheckParameters({xmlPackageFolder, IsDirectory(xmlPackageFolder), machineType, osValue,
                       arcValue, includePackageIds, excludePackageIds});
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
    if (contents) {
      TakeContents(*std::exchange(contents, std::nullopt));
    } else {
      ReadFiles();
    }
  } catch (const fs::filesystem_error& error) {
    if (IsOutOfMemory(error.code())) throw std::bad_alloc();
    QP_LOG(LogLevel::error, error.what());
    return false;
  }
  return true;
}

void QueryPackageImp::ReadFiles() {
  for (fs::directory_iterator entry{fs::path(xmlPackageFolder)}, end; entry != end; ++entry) {
    const fs::path& path = entry->path();
    if (!HasDescriptorExtension(path.native())) continue;
    DescriptorReader file(path.string());
    file.ReadBytes(TypeOf(*entry));
    LoadFile(std::move(file));
  }
}

void QueryPackageImp::TakeContents(FolderContents taken) {
  for (FolderContents::File& file : taken.files) {
    LoadFile(DescriptorReader(std::move(file.path), std::move(file.reading)));
  }
  if (taken.failure) std::rethrow_exception(taken.failure);
}

void QueryPackageImp::LoadFile(DescriptorReader file) {
  if (IsKovuXml(file)) {
    LoadKovuXml(std::move(file));
  } else if (IsIndividualXml(file)) {
    LoadPackageXml(std::move(file));
  } else if (Log::GetMinLogLevel() >= LogLevel::error) {
    // Before the statement: an allocation that fails inside one would cut the record short.
    const std::string fileName = fs::path(file.Path()).filename().string();
    QP_LOG(LogLevel::error, fileName << LogText::notValidXml);
  }
}

bool QueryPackageImp::IsKovuXml(const DescriptorReader& file) {
  if (!ContainsXmlExtension(file.Path())) return false;
  const bool isKovu = file.Reading().kind == DescriptorKind::Pack;
  QP_LOG(LogLevel::progress, file.Path() << (isKovu ? LogText::isKovuXml : LogText::isNotKovuXml));
  return isKovu;
}

bool QueryPackageImp::IsIndividualXml(const DescriptorReader& file) {
  if (!ContainsXmlExtension(file.Path())) return false;
  const bool isIndividual = file.Reading().kind == DescriptorKind::Individual;
  QP_LOG(LogLevel::progress,
         file.Path() << (isIndividual ? LogText::isIndividualXml : LogText::isNotIndividualXml));
  return isIndividual;
}

bool QueryPackageImp::LoadPackageXml(DescriptorReader file) {
  if (!ContainsXmlExtension(file.Path())) return false;
  QP_LOG(LogLevel::progress, LogText::loadPackage << file.Path());
  if (!file.ParseDocument(DescriptorKind::Individual)) {
    QP_LOG(LogLevel::error, LogText::loadPackageFailed << file.Path());
    return false;
  }

  QP_LOG(LogLevel::progress, LogText::loadPackageRoot);
  if (!file.FindRoot()) {
    QP_LOG(LogLevel::error, LogText::loadPackageRootFailed);
    return false;
  }

  QP_LOG(LogLevel::progress, LogText::getPackageProperties);
  if (!file.ReadProperties()) {
    QP_LOG(LogLevel::error, LogText::getPackagePropertiesFailed);
    return false;
  }
  repository.Add(PackageXmlEntry{file.Path(), std::move(file.TakeReading().properties.front())});
  return true;
}

bool QueryPackageImp::LoadKovuXml(DescriptorReader file) {
  if (!ContainsXmlExtension(file.Path())) return false;
  QP_LOG(LogLevel::progress, LogText::loadKovu << file.Path());
  if (!file.ParseDocument(DescriptorKind::Pack)) {
    QP_LOG(LogLevel::error, LogText::loadKovuFailed << file.Path());
    return false;
  }

  QP_LOG(LogLevel::progress, LogText::loadKovuRoot);
  if (!file.FindRoot()) {
    QP_LOG(LogLevel::error, LogText::loadKovuRootFailed);
    return false;
  }

  if (!file.CollectInstances()) {
    if (file.Reading().fault == DescriptorFault::InstanceWithoutClassName) WaitForever();
    QP_LOG(LogLevel::error, LogText::noUpdateElements);
    return false;
  }
  while (file.HasNextInstance()) {
    QP_LOG(LogLevel::progress, LogText::getKovuProperties);
    if (!file.ReadNextInstance()) QP_LOG(LogLevel::error, LogText::getKovuPropertiesFailed);
  }
  repository.Add(
      KovuPackEntry{file.Path(), MembersOfPack(file.Path(), file.TakeReading().properties)});
  return true;
}

bool QueryPackageImp::CreateQueryPackageResults(Results& results) {
  if (repository.IsEmpty()) {
    QP_LOG(LogLevel::error, LogText::noValidPackage << xmlPackageFolder);
    return false;
  }
  results.clear();

  const std::int32_t chosen = SelectKovuPack();
  if (chosen != -1) {
    const KovuPackEntry& pack = repository.kovuPackEntries()[static_cast<std::size_t>(chosen)];
    const std::string kovuName = FileStem(pack.kovuXmlFile);
    // The first member is the pack itself and never becomes a result.
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      results.push_back(CreateResult(pack.members[i], pack.kovuXmlFile, kovuName));
    }
  }
  for (const PackageXmlEntry& entry : repository.packageXmlEntries()) {
    results.push_back(CreateResult(entry, "", ""));
  }
  return !results.empty();
}

std::int32_t QueryPackageImp::SelectKovuPack() {
  const std::vector<PackResult> packs =
      EvaluatePacks(repository.kovuPackEntries(), machineType, osValue);
  for (const PackResult& pack : packs) {
    if (pack.verdict == PackVerdict::NoMachineTypes) {
      QP_LOG(LogLevel::error, LogText::noApplicableMachineTypes);
    } else if (pack.verdict == PackVerdict::NoOperatingSystems) {
      QP_LOG(LogLevel::error, LogText::noApplicableSystems);
    }
  }
  const std::optional<std::size_t> chosen = ChosenPack(packs);
  return chosen ? static_cast<std::int32_t>(*chosen) : -1;
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

const SupXmlProperties* QueryPackageImp::FindPackageProperties(
    const std::string& identificationCode) {
  if (identificationCode.empty()) {
    QP_LOG(LogLevel::warning, LogText::codeIsEmpty);
    return nullptr;
  }
  return repository.Find(identificationCode);
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
  repository.SampleLocale();
  for (QueryPackageResult& record : results) {
    const SupXmlProperties* properties = FindPackageProperties(record.identificationCode);
    if (properties == nullptr) {
      QP_LOG(LogLevel::error, LogText::noProperties);
      continue;
    }
    switch (EvaluatePlatform(*properties, osValue, arcValue, machineType).verdict) {
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
    const bool matched = IsFromPack(record);
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
  repository.SampleLocale();
  for (QueryPackageResult& record : results) {
    const bool matched = PayloadExists(record.identificationCode);
    record.payloadExistFilterStatus = StatusOf(matched);
    QP_LOG(LogLevel::progress,
           record.identificationCode
               << (matched ? LogText::payloadExistMatched : LogText::payloadExistNotMatched));
  }
}

bool QueryPackageImp::PayloadExists(const std::string& identificationCode) {
  const SupXmlProperties* properties = FindPackageProperties(identificationCode);
  if (properties == nullptr) {
    QP_LOG(LogLevel::error, LogText::noProperties);
    return false;
  }
  switch (EvaluatePayload(*properties, xmlPackageFolder)) {
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
  repository.SampleLocale();
  const LocaleFold fold;
  for (QueryPackageResult& record : results) {
    record.supersedeFilterStatus = FilterStatus::Matched;
  }
  std::vector<std::optional<CodeList>> lists(results.size());
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (!IsNotRefused(results[i])) continue;
    const SupXmlProperties* properties = FindPackageProperties(results[i].identificationCode);
    if (properties == nullptr) {
      QP_LOG(LogLevel::error, LogText::noProperties);
      continue;
    }
    lists[i] = GetPropertyValues(PropertyName::supersede, *properties);
  }
  const SupersedeInput input{results, lists, excludePackageIds, fold};
  const std::vector<SupersedeVerdict> verdicts =
      ApplySupersedence(ResolveSupersedence(input), input);
  for (std::size_t i = 0; i < results.size(); ++i) WriteVerdict(verdicts[i], results[i]);
}

void QueryPackageImp::FilterIncludeId(Results& results) {
  if (includePackageIds.empty()) QP_LOG(LogLevel::error, LogText::includeIdsEmpty);
  const IdSet included(includePackageIds);
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
  const IdSet excluded(excludePackageIds);
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
  repository.SampleLocale();
  if (updateTypes.empty()) QP_LOG(LogLevel::error, LogText::updateTypesEmpty);
  for (QueryPackageResult& record : results) {
    const SupXmlProperties* properties = FindPackageProperties(record.identificationCode);
    if (properties == nullptr) {
      QP_LOG(LogLevel::error, LogText::noProperties);
      continue;
    }
    switch (EvaluateUpdateType(*properties, updateTypes)) {
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
