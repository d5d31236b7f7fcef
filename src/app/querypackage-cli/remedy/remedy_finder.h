// The remedies of packages of one query. Each package costs what it is connected with, not what the
// folder has.
#ifndef VORNIK_CLI_REMEDY_REMEDY_FINDER_H
#define VORNIK_CLI_REMEDY_REMEDY_FINDER_H

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "explain/explanation.h"
#include "model/property_places.h"
#include "model/query_model.h"
#include "remedy/edited_folder.h"
#include "remedy/neighbourhood.h"

namespace Vornik::Cli {

class RemedyFinder {
 public:
  // All are borrowed; the query was evaluated with the model.
  RemedyFinder(QueryModel& folder, const QuerySettings& settings, PropertyPlaces& places);
  RemedyFinder(const RemedyFinder&) = delete;
  RemedyFinder& operator=(const RemedyFinder&) = delete;

  // For a package that the query refuses, cannot decide, or does not have.
  Remedies Find(const std::string& code);

  // The part of the folder on which the package's record depends, and the query of it: both until
  // the next call for another package.
  QueryModel& PartOf(const std::string& code) { return Part(code).Model(); }
  const Evaluation& QueryOfPart(const std::string& code);

 private:
  EditedFolder& Part(const std::string& code);
  const Neighbourhoods& Connections();
  void AddEdits(Remedies& remedies);
  RepositoryRemedy RemedyOf(const std::string& code, Edits edits);
  void AddLines(Edits& edits);
  FolderCopy AffectedBy(const Edits& edits, const std::string& code);
  std::vector<std::string> CodesThatName(const std::string& file);

  QueryModel& folder_;
  const QuerySettings& settings_;
  std::optional<Neighbourhoods> connections_;
  std::optional<std::map<std::string, std::set<std::string>>> codesByFile_;
  FileStates files_;
  PropertyPlaces& places_;
  std::string partCode_;
  std::unique_ptr<EditedFolder> part_;
  std::optional<Evaluation> partQuery_;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_REMEDY_FINDER_H
