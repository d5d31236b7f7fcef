#include "lint/lint_sentences.h"

#include <algorithm>
#include <stdexcept>

#include "lint/lint_fixture.h"
#include "model/folder_reading.h"
#include "model/hazard_check.h"
#include "model/library_run.h"

namespace Vornik::Testing {

Asked Ask(const LintFiles& files, const SettingsChange& change) {
  const TempFolder folder;
  WriteFilesTo(folder, files);
  Cli::QuerySettings settings = SettingsFor(folder.Path());
  settings.updateTypes = {static_cast<UpdateType>(1)};
  if (change) change(settings);
  if (Cli::FindHazard(settings, Cli::ReadContentsOf(settings))) {
    throw std::logic_error("a query of these files does not end");
  }
  Cli::LibraryRun run = Cli::RunLibrary(settings);
  return {run.code, std::move(run.records)};
}

int StatusOfQuery(const LintFiles& files) {
  const TempFolder folder;
  WriteFilesTo(folder, files);
  return RunCli({"query", folder.Path(), "--machine-type", "1234", "--os", "10", "--arch", "9"})
      .status;
}

const QueryPackageResult* FindRecord(const Asked& asked, const std::string& code) {
  const auto found = std::find_if(
      asked.records.begin(), asked.records.end(),
      [&code](const QueryPackageResult& record) { return record.identificationCode == code; });
  return found == asked.records.end() ? nullptr : &*found;
}

bool HasCode(const Asked& asked, const std::string& code) {
  return FindRecord(asked, code) != nullptr;
}

const std::string& TextOfFile(const LintFiles& files, const std::string& end) {
  const auto hasEnd = [&end](const auto& file) {
    const std::string& name = file.first;
    return name.size() >= end.size() && name.substr(name.size() - end.size()) == end;
  };
  const auto found = std::find_if(files.begin(), files.end(), hasEnd);
  if (found == files.end()) throw std::logic_error("no file ends in " + end);
  return found->second;
}

LintFiles WithFile(LintFiles files, const std::string& name, const std::string& text) {
  const auto found = std::find_if(files.begin(), files.end(),
                                  [&name](const auto& file) { return file.first == name; });
  if (found != files.end()) files.erase(found);
  files.emplace_back(name, text);
  return files;
}

}  // namespace Vornik::Testing
