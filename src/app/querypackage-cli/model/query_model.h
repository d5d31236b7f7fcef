// What a query of a folder as it was read gives by the library's rules: the reason behind each
// verdict, and a quick answer to what other settings would give. The verdicts that count are those
// of the library; this is compared with them.
#ifndef VORNIK_CLI_MODEL_QUERY_MODEL_H
#define VORNIK_CLI_MODEL_QUERY_MODEL_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "QueryPackage.h"
#include "commands/options.h"
#include "filters/duplicate.h"
#include "filters/package_ids.h"
#include "filters/payload_exist.h"
#include "filters/supersede/supersede.h"
#include "model/folder_reading.h"
#include "model/properties.h"
#include "records/pack_selection.h"

namespace Vornik::Cli {

// A place in the repository. pack is null for an individual descriptor; member is an index into
// the pack's members otherwise.
struct PropertySource {
  const PackageXmlEntry* entry = nullptr;  // null: there is none
  const KovuPackEntry* pack = nullptr;
  std::size_t member = 0;

  // The file in which the properties stand.
  const std::string& File() const { return pack == nullptr ? entry->xmlFile : pack->kovuXmlFile; }
};

// A descriptor as a record, before any filter has seen it.
struct BuiltRecord {
  QueryPackageResult record;
  PropertySource source;
  bool endsProcess = false;  // it has fewer classifications than driver files
};

struct ModelledQuery {
  bool canRun = false;  // the parameters are in order, and no descriptor ends the process
  std::vector<const BuiltRecord*> built;    // in the order of the records, repeats included
  std::vector<Duplicate> duplicates;        // indices into built
  std::vector<const BuiltRecord*> origins;  // one per record
  std::vector<QueryPackageResult> records;
  std::vector<std::optional<CodeList>> lists;  // one per record: its "supersede", if it is read
  std::optional<Supersedence> supersedence;    // none: the filter does not run
};

class QueryModel {
 public:
  // repository is borrowed. folder is the one that it was read from.
  QueryModel(const Repository& repository, std::string folder);
  QueryModel(const QueryModel&) = delete;
  QueryModel& operator=(const QueryModel&) = delete;

  const Repository& Folder() const { return repository_; }

  // The folder in the settings is not looked at.
  ModelledQuery Run(const QuerySettings& settings);

  // Where a filter finds the properties of a code: entry is null where it finds none.
  PropertySource SourceOf(const std::string& code);

  const std::vector<PackResult>& Packs(const std::string& machineType, OsValue osValue);

  PayloadVerdict PayloadOf(const PropertySource& source);

 private:
  void Build();
  void AddSource(const PropertySource& source);
  void BuildOne(const PropertySource& source, std::vector<BuiltRecord>& records);
  struct IdLists {
    IdSet included;
    IdSet excluded;
  };

  void Judge(const QuerySettings& settings, IdLists& ids, QueryPackageResult& record);
  void ResolveSupersede(const QuerySettings& settings, ModelledQuery& query);

  const Repository& repository_;
  const std::string folder_;
  std::vector<BuiltRecord> individuals_;
  std::map<const KovuPackEntry*, std::vector<BuiltRecord>> members_;
  std::map<std::string, PropertySource> sources_;  // by code, the first package that has it

  // Answers that do not depend on the settings, or not on all of them.
  std::map<const PackageXmlEntry*, PayloadVerdict> payloads_;
  std::map<std::pair<std::string, OsValue>, std::vector<PackResult>> packs_;
};

// The index of the record of exactly that code; the number of records if there is none.
std::size_t IndexOf(const std::vector<QueryPackageResult>& records, const std::string& code);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_QUERY_MODEL_H
