// A query of a folder that was read, evaluated with the library's rules in the order of its stages:
// for the reason of each verdict, and for what other settings give.
#ifndef VORNIK_CLI_MODEL_QUERY_MODEL_H
#define VORNIK_CLI_MODEL_QUERY_MODEL_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "QueryPackage.h"
#include "filters/duplicate.h"
#include "filters/package_ids.h"
#include "filters/payload_exist.h"
#include "filters/supersede/supersede.h"
#include "model/folder_reading.h"
#include "model/machines.h"
#include "model/query_settings.h"
#include "model/repository.h"
#include "reading/descriptor_files.h"
#include "records/pack_selection.h"

namespace Vornik::Cli {

struct Evaluation {
  bool canRun = false;  // the parameters are valid, and no descriptor aborts the process
  std::vector<PropertySource> built;        // of the records with the duplicates
  std::vector<Duplicate> duplicates;        // indices into built
  std::vector<PropertySource> origins;      // what each record was built from
  std::vector<PropertySource> sources;      // where the filters find each record's properties
  std::vector<QueryPackageResult> records;  // as the query gives them; none if it cannot run
  std::vector<std::optional<Vornik::CodeList>>
      lists;                                 // one per record: its "supersede", if it is read
  std::optional<Supersedence> supersedence;  // none: the filter does not run
};

class QueryModel {
 public:
  // folder is borrowed. path is the one that it was read from. isFile answers for payloads.
  QueryModel(const FolderReading& folder, std::string path, IsFile isFile = IsRegularFile);
  QueryModel(const QueryModel&) = delete;
  QueryModel& operator=(const QueryModel&) = delete;

  const std::vector<RepositoryFile>& Files() const { return folder_.files; }
  const Repository& Packages() const { return folder_.repository; }

  // The whole query. Its folder has to be the model's.
  Evaluation Evaluate(const QuerySettings& settings);

  // The same for another machine with the same chosen pack, from a query that can run: only what
  // depends on the machine is evaluated again. The other settings have to be those of the query.
  static void EvaluateMachine(const QuerySettings& settings, Evaluation& query);

  // Finds what Evaluate looks up for these settings and each of the machines, and keeps it. After
  // that Evaluate may run on several threads at once, for these machines.
  void Prepare(const QuerySettings& settings, const std::vector<Machine>& machines);

  // The steps of Evaluate, for valid parameters and without a failed walk.
  //
  // The records after the duplicate filter: of the settings, they depend on the chosen pack only.
  Evaluation BuildRecords(const QuerySettings& settings);
  struct IdLists {
    explicit IdLists(const QuerySettings& settings);
    IdSet included;
    IdSet excluded;
  };
  // Writes one record's slots of the filters that look at it alone. source: of the record.
  void FilterEach(const QuerySettings& settings, const IdLists& ids, const PropertySource& source,
                  QueryPackageResult& record);
  // Of the records' slots it reads only that of the platform filter, and it writes none.
  static std::vector<SupersedeVerdict> ResolveSupersede(const QuerySettings& settings,
                                                        Evaluation& query);

  // Where a filter finds the properties of a code: entry is null where it finds none.
  PropertySource SourceOf(const std::string& code) const;

  const std::vector<PackResult>& Packs(const std::string& machineType, OsValue osValue);
  std::optional<std::size_t> ChosenPackFor(const QuerySettings& settings);

  PayloadVerdict PayloadOf(const PropertySource& source);

  // Which machines the folder names.
  const NamedMachines& Named();

 private:
  static void WriteSupersede(const QuerySettings& settings, Evaluation& query);
  static void BuildOne(const PropertySource& source, Evaluation& query);

  const FolderReading& folder_;
  const std::string path_;
  const IsFile isFile_;

  // Answers that do not depend on the settings, or not on all of them.
  std::unordered_map<const PackageXmlEntry*, PayloadVerdict> payloads_;
  std::map<std::pair<std::string, OsValue>, std::vector<PackResult>> packs_;
  std::optional<NamedMachines> named_;
};

// One record, for the filters that look at it alone.
struct FilterInput {
  const QuerySettings& settings;
  const QueryModel::IdLists& ids;  // of the settings
  const PropertySource& source;    // of the record
  const QueryPackageResult& record;
  QueryModel& model;
};

// The platform filter's slot. source: of the record.
std::uint32_t PlatformStatus(const QuerySettings& settings, const PropertySource& source);

// The index of the record of exactly that code; the number of records if there is none.
std::size_t IndexOf(const std::vector<QueryPackageResult>& records, const std::string& code);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_QUERY_MODEL_H
