// Why a package of a folder is offered or not, as data. Texts hold pieces of descriptors as they
// stand there: nothing is escaped for a terminal or a document.
#ifndef VORNIK_CLI_EXPLAIN_EXPLANATION_H
#define VORNIK_CLI_EXPLAIN_EXPLANATION_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/answer.h"
#include "model/filter_table.h"
#include "model/machines.h"
#include "model/query_settings.h"
#include "output/sentence.h"
#include "remedy/edit.h"
#include "remedy/edit_effects.h"

namespace Vornik::Cli {

// A property with the values that a filter read.
struct PropertyReading {
  std::string name;
  std::vector<std::string> values;
};

struct FilePlace {
  std::string file;  // empty: no file
  int line = 0;      // from 1; 0: not known
};

struct FilterExplanation {
  FilterId filter = FilterId::Duplicate;
  std::uint32_t status = FilterStatus::NotEvaluated;  // in the record; duplicate: Matched
  bool runs = true;
  std::string reason;  // one word for programs
  Sentence text;
  std::string file;  // whose properties decided; empty: none did
  std::vector<PropertyReading> properties;
  FilePlace place;                // what decided, where the filter does not match
  std::vector<Sentence> details;  // further sentences
  std::vector<std::string> log;   // the library's own lines
};

// A package that was ranked with others by a driver file.
struct RankedPackage {
  std::string code;
  std::string version;
  std::string comparedAs;  // the version, folded
  std::string file;        // in which its record's text stands
  bool isThis = false;
};

struct DriverGroup {
  std::vector<std::string> driverFiles;  // names that two or more of the packages share
  std::vector<RankedPackage> ranking;    // the last one is kept
};

struct ListedBy {
  std::string code;      // whose "supersede" list it is
  std::string file;      // in which the list stands
  std::string spelling;  // of this package in the list
};

struct SupersedeChain {
  std::vector<ListedBy> listedBy;     // in the order in which the lists are applied
  std::vector<std::string> lists;     // what its own list names, of the packages of the query
  std::vector<std::string> unknown;   // what its own list names besides
  std::vector<DriverGroup> groups;    // in the order in which they are applied
  std::vector<std::string> excluded;  // share a driver file; left out because of the exclude list
  std::vector<std::string> otherPlatform;  // share a driver file; the platform filter refused them
  bool listOverridden = false;             // a group decided otherwise than the lists before
};

// A descriptor that was dropped because it repeats the package's code.
struct Repeat {
  std::string packageXmlFile;
  std::string kovuXmlFile;  // empty: an individual descriptor
  std::string version;
};

enum class RemedyState {
  NotNeeded,  // every filter that runs matches already
  Found,
  None,     // no other settings help
  Unknown,  // not found, and the search was ended before its end
};

// The machines of the folder that a package is offered to, with the other settings of the query.
struct OfferedMachines {
  std::vector<Machine> machines;  // by machine type, system, architecture
  bool isComplete = true;         // false: not all were tried
};

struct RepositoryRemedy {
  Edits edits;
  EditEffects effects;
};

// Which edits of the repository make every filter match, with the settings as they are.
struct RepositoryRemedies {
  RemedyState state = RemedyState::NotNeeded;
  // Of one size, which is the number of edits. Each was evaluated.
  std::vector<RepositoryRemedy> smallest;
  // Where each of these withdraws something: one that withdraws nothing.
  std::optional<RepositoryRemedy> sparing;
  bool searchEnded = false;  // others, as small or smaller, may have been missed
  // None found: the first filter that no edit makes match.
  std::optional<FilterId> obstacle;
  bool isFixed = false;  // the settings and the code alone decide
};

// Which other settings make every filter match, and which edits.
struct Remedies {
  RemedyState state = RemedyState::None;
  std::string code;
  // Each differs from the query in as few settings as possible, and was evaluated.
  std::vector<QuerySettings> queries;
  bool searchEnded = false;  // other queries, as small, may have been missed
  // What in the repository keeps a filter from matching, whatever the settings are.
  std::vector<std::string> inTheRepository;
  OfferedMachines machines;  // none if the query offers the package
  RepositoryRemedies edits;
};

struct PackageExplanation {
  QueryPackageResult record;
  Answer answer = Answer::Offered;
  std::vector<FilterId> refusedBy;
  std::vector<FilterId> undecidedBy;
  bool otherCase = false;  // the id that was asked for has the same letters in another case
  std::vector<std::string> otherSpellings;  // codes of other records, the same letters
  std::string sourceFile;                   // where the filters read its properties; empty: nowhere
  std::string sourceText;                   // one sentence about it
  bool sourceIsOwn = true;                  // what the record was built from
  std::vector<FilterExplanation> filters;   // in the order in which they run
  std::vector<Repeat> repeats;
  SupersedeChain supersede;
  Remedies remedies;
};

// Why no record has the code.
struct AbsenceReason {
  std::string reason;  // one word for programs
  std::string code;    // as the file spells it; empty: not known
  std::string file;    // empty: none
  std::string text;    // one sentence
  std::string remedy;  // what to change in the repository; empty: nothing
  std::vector<std::string> log;
};

struct Explanation {
  QuerySettings query;
  std::string packageId;
  int returnCode = QueryCode::Completed;
  std::string packText;  // which pack is in use, or why none is: one sentence
  // Why the answer depends on the order in which the system lists the folder; without full stops.
  std::vector<std::string> warnings;
  bool folderChanged = false;  // payload files did, between the query and its evaluation
  std::vector<PackageExplanation> packages;
  std::vector<std::string> nearest;    // codes like the id, where nothing in the folder has it
  std::vector<AbsenceReason> absence;  // empty where a record has exactly that code
  Remedies absenceRemedies;            // where packages is empty
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_EXPLANATION_H
