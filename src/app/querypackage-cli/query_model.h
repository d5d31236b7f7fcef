// What a query of a folder as it was read gives by the library's rules: the reason behind each
// verdict, and a quick answer to what other settings would give. The verdicts that count are those
// of the library; this is compared with them.
#ifndef VORNIK_CLI_QUERY_MODEL_H
#define VORNIK_CLI_QUERY_MODEL_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "QueryPackage.h"
#include "duplicate_rules.h"
#include "id_rules.h"
#include "options.h"
#include "pack_judgement.h"
#include "payload_rules.h"
#include "properties.h"
#include "repository.h"
#include "supersede_rules.h"

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
  std::vector<CodeList> lists;  // one per record: its "supersede", empty where it takes no part
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

  const std::vector<PackJudgement>& Packs(const std::string& machineType, OsValue osValue);

  PayloadVerdict PayloadOf(const PropertySource& source);

 private:
  void Build();
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
  std::unordered_map<const SupXmlProperties*, PropertySource> places_;

  // Answers that do not depend on the settings, or not on all of them.
  std::unordered_map<std::string, PropertySource> sources_;
  std::map<const PackageXmlEntry*, PayloadVerdict> payloads_;
  std::map<std::pair<std::string, OsValue>, std::vector<PackJudgement>> packs_;
};

// The index of the record of exactly that code; the number of records if there is none.
std::size_t IndexOf(const std::vector<QueryPackageResult>& records, const std::string& code);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_QUERY_MODEL_H
