// What the sentence of each finding claims of a query: true of a folder with the mistake, and
// untrue of the same folder without it.
#ifndef VORNIK_TESTS_CLI_LINT_SENTENCES_H
#define VORNIK_TESTS_CLI_LINT_SENTENCES_H

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "lint/lint_cases.h"
#include "model/query_settings.h"

namespace Vornik::Testing {

using LintRecords = std::vector<QueryPackageResult>;
using SettingsChange = std::function<void(Cli::QuerySettings&)>;

// A query of these files for machine type 1234, system 10, architecture 9 and update type 1.
struct Asked {
  int code = 0;
  LintRecords records;  // none where the query is refused or finds nothing
};
Asked Ask(const LintFiles& files, const SettingsChange& change = {});

// The exit status of the program for the same query: 65 where it finds what would hang or abort it.
int StatusOfQuery(const LintFiles& files);

// Null: no record has the code.
const QueryPackageResult* FindRecord(const Asked& asked, const std::string& code);
const QueryPackageResult* FindRecord(Asked&& asked, const std::string& code) = delete;
bool HasCode(const Asked& asked, const std::string& code);

// The text of the only file with that end of its name.
const std::string& TextOfFile(const LintFiles& files, const std::string& end);

// The files with the text of one of them replaced, or with one more.
LintFiles WithFile(LintFiles files, const std::string& name, const std::string& text);

// Whether the claim is true of these files, which are the case's with or without the mistake.
using LintClaim = std::function<bool(const LintFiles& files, const LintCase& of)>;

using LintClaims = std::map<std::string, LintClaim>;  // by the finding's id
LintClaims FileClaims();
LintClaims DocumentClaims();
LintClaims PropertyClaims();
LintClaims CodeClaims();
LintClaims PlatformClaims();
LintClaims DriverClaims();
LintClaims PackClaims();
LintClaims PackageFileClaims();

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_LINT_SENTENCES_H
