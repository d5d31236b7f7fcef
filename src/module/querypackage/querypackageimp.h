// The implementation object: the settings of one query, the descriptors it has loaded, and the
// stages of a query. Rules live in the modules beside it; every log line is written here.
#ifndef VORNIK_QUERYPACKAGE_QUERYPACKAGEIMP_H
#define VORNIK_QUERYPACKAGE_QUERYPACKAGEIMP_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/repository.h"
#include "reading/descriptor_reading.h"
#include "reading/folder_contents.h"

namespace Vornik {

class QueryPackageImp {
 public:
  using Results = std::vector<QueryPackageResult>;

  int RunQuery(Results& results);

  // The stages, in the order in which RunQuery runs them, each followed by the operations that it
  // consists of. A filter writes its verdicts into the records; bad data never fails the query.
  bool CheckParameterValidity();

  bool ParseXmlPackageFolder();
  bool IsKovuXml(const DescriptorReader& file);
  bool IsIndividualXml(const DescriptorReader& file);
  bool LoadKovuXml(DescriptorReader file);
  bool LoadPackageXml(DescriptorReader file);

  bool CreateQueryPackageResults(Results& results);
  std::int32_t SelectKovuPack();  // an index into kovuPackEntries(); -1: no pack applies
  std::vector<QueryPackageResult::DriverFile> GetDriverFiles(const SupXmlProperties& properties);

  void FilterDuplicate(Results& results);
  void FilterPlatform(Results& results);
  void FilterKovu(Results& results);
  void FilterSep(Results& results);
  void FilterPayloadExist(Results& results);
  bool PayloadExists(const std::string& identificationCode);
  void FilterSupersede(Results& results);
  void FilterIncludeId(Results& results);
  void FilterExcludeId(Results& results);
  void FilterUpdateType(Results& results);

  // The properties of a record's package, with which most filters work; null if there is none.
  const SupXmlProperties* FindPackageProperties(const std::string& identificationCode);

  std::string xmlPackageFolder;
  OsValue osValue = OsValue::NotSet;
  ArcValue arcValue = ArcValue::NotSet;
  std::vector<UpdateType> updateTypes;
  std::string machineType;
  bool kovuFilter = true;
  bool sepFilter = true;
  bool payloadExistFilter = true;
  bool supersedeFilter = true;
  std::vector<std::string> includePackageIds;
  std::vector<std::string> excludePackageIds;

  // What all queries on this object have loaded: a query adds to it, nothing ever empties it.
  Repository repository;

  // What the next query takes in place of the folder's files; without it a query reads them.
  std::optional<FolderContents> contents;

  IQueryPackageCallback* queryCallback = nullptr;  // borrowed

 private:
  void ReadFiles();
  void TakeContents(FolderContents taken);
  void LoadFile(DescriptorReader file);
  QueryPackageResult CreateResult(const PackageXmlEntry& entry, const std::string& kovuXmlFile,
                                  const std::string& kovuName);
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_QUERYPACKAGEIMP_H
