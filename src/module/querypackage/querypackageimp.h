// The implementation object: the settings of one query, the descriptors it has loaded, and the
// stages of a query. Rules live in the modules beside it; every log line is written here.
#ifndef VORNIK_QUERYPACKAGE_QUERYPACKAGEIMP_H
#define VORNIK_QUERYPACKAGE_QUERYPACKAGEIMP_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "descriptor_markers.h"
#include "package_lookup.h"
#include "properties.h"

namespace Vornik {

class QueryPackageImp {
 public:
  using Results = std::vector<QueryPackageResult>;

  int RunQuery(Results& results);

  // The stages, in the order in which RunQuery runs them, each with the operations that it rests
  // on. A filter writes its verdicts into the records; nothing that it meets fails the query.
  bool CheckParameterValidity();

  bool ParseXmlPackageFolder();
  bool IsKovuXml(std::string path);
  bool IsIndividualXml(std::string path);
  bool LoadKovuXml(std::string path);
  bool LoadPackageXml(std::string path);

  bool CreateQueryPackageResults(Results& results);
  std::int32_t SelectKovuPack();  // an index into kovuPackEntries; -1: no pack applies
  std::vector<QueryPackageResult::DriverFile> GetDriverFiles(const SupXmlProperties& properties);

  void FilterDuplicate(Results& results);
  void FilterPlatform(Results& results);
  void FilterKovu(Results& results);
  void FilterSep(Results& results);
  void FilterPayloadExist(Results& results);
  bool PayloadExists(std::string identificationCode);
  void FilterSupersede(Results& results);
  void FilterIncludeId(Results& results);
  void FilterExcludeId(Results& results);
  bool IsIncludedPackageId(std::string identificationCode) const;
  bool IsExcludedPackageId(std::string identificationCode) const;
  void FilterUpdateType(Results& results);

  // The properties of the first package of that code, exactly: the members of all packs come
  // before the individual descriptors. An empty code leaves properties untouched.
  bool FindPackageProperties(std::string identificationCode, SupXmlProperties& properties);

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

  // What all queries on this object have loaded: a query appends, nothing ever empties them.
  std::vector<PackageXmlEntry> packageXmlEntries;
  std::vector<KovuPackEntry> kovuPackEntries;

  IQueryPackageCallback* queryCallback = nullptr;  // borrowed

 private:
  // What was read of one file; no bytes: it is no regular file, or cannot be read.
  using FileBytes = std::optional<std::string>;

  // One file of the folder, read once for both questions and the load.
  void LoadDescriptor(const std::string& path, const std::string& fileName, FileBytes bytes);
  bool IsKovuXml(const std::string& path, const DescriptorMarkers& markers);
  bool IsIndividualXml(const std::string& path, const DescriptorMarkers& markers);
  bool LoadKovuXml(std::string path, FileBytes bytes);
  bool LoadPackageXml(std::string path, FileBytes bytes);

  // The same look-up for a filter, which asks for every record: without a copy, null if there is
  // none, valid until descriptors are loaded.
  const SupXmlProperties* LookUp(PackageIndex& index, const std::string& identificationCode);

  bool PayloadExists(const SupXmlProperties* properties);

  // The filters that look packages up, on an index that the filters of one query share.
  void FilterPlatform(Results& results, PackageIndex& index);
  void FilterPayloadExist(Results& results, PackageIndex& index);
  void FilterSupersede(Results& results, PackageIndex& index);
  void FilterUpdateType(Results& results, PackageIndex& index);

  QueryPackageResult CreateResult(const PackageXmlEntry& entry, const std::string& kovuXmlFile,
                                  const std::string& kovuName);
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_QUERYPACKAGEIMP_H
