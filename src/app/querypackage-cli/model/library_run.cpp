#include "model/library_run.h"

#include <fmt/format.h>

#include <iostream>
#include <optional>
#include <utility>

#include "model/filter_table.h"
#include "model/query_parameters.h"
#include "querypackageimp.h"
#include "reading/descriptor_files.h"

namespace Vornik::Cli {

namespace {

// While it lives, what is written to std::cout goes to another stream.
class StandardOutputTo {
 public:
  explicit StandardOutputTo(const std::ostream& target)
      : before_(std::cout.rdbuf(target.rdbuf())) {}
  ~StandardOutputTo() { std::cout.rdbuf(before_); }
  StandardOutputTo(const StandardOutputTo&) = delete;
  StandardOutputTo& operator=(const StandardOutputTo&) = delete;

 private:
  std::streambuf* before_;
};

std::string ParameterAdvice(const QuerySettings& settings) {
  const ParameterCheck check = CheckParameters(
      {settings.folder, IsDirectory(settings.folder), settings.machineType, settings.osValue,
       settings.arcValue, settings.includePackageIds, settings.excludePackageIds});
  switch (check.fault) {
    case ParameterFault::FolderNotSet:
    case ParameterFault::FolderNotValid:
      return "give the path of an existing folder as FOLDER";
    case ParameterFault::MachineTypeNotSet:
    case ParameterFault::MachineTypeInvalid:
      return "give four decimal digits to --machine-type";
    case ParameterFault::OsNotSet:
      return "give a number other than 0 to --os";
    case ParameterFault::ArcNotSet:
      return "give a number other than 0 to --arch";
    case ParameterFault::IdInBothLists:
      return fmt::format("give \"{}\" to either --include or --exclude", check.id);
    case ParameterFault::None:
      break;
  }
  return "try again";
}

void ApplySettings(const QuerySettings& settings, QueryPackageImp& query) {
  query.xmlPackageFolder = settings.folder;
  query.machineType = settings.machineType;
  query.osValue = settings.osValue;
  query.arcValue = settings.arcValue;
  for (const Filter* filter : FiltersWithSetting()) filter->setting.value().apply(settings, query);
}

}  // namespace

LibraryRun RunLibrary(const QuerySettings& settings, Format format,
                      std::optional<FolderContents> contents) {
  std::optional<StandardOutputTo> redirection;
  if (format == Format::Json) redirection.emplace(std::cerr);
  QueryPackageImp query;
  ApplySettings(settings, query);
  query.contents = std::move(contents);
  LibraryRun run;
  run.code = query.RunQuery(run.records);
  if (run.code == QueryCode::InvalidParameter) std::cout << std::endl;
  return run;
}

std::string Advice(int code, const QuerySettings& settings) {
  switch (code) {
    case QueryCode::InvalidParameter:
      return "the query was refused: " + ParameterAdvice(settings);
    case QueryCode::FolderFailed:
      return "the folder could not be read: check that it may be listed; --log-level 1 says why";
    case QueryCode::NoResults:
      return "the folder gives no package for this machine: it needs package descriptors whose "
             "file names end in \".xml\"; --log-level 3 says how each file was taken";
    default:
      return fmt::format("the query returned {}, which this program does not know", code);
  }
}

}  // namespace Vornik::Cli
