#include "model/library_run.h"

#include <fmt/format.h>

#include <iostream>
#include <optional>
#include <sstream>
#include <utility>

#include "model/filter_table.h"
#include "model/query_parameters.h"
#include "querypackageimp.h"
#include "reading/descriptor_files.h"

namespace Vornik::Cli {

namespace {

// While it lives, what is written to std::cout is dropped.
class NoStandardOutput {
 public:
  NoStandardOutput() : before_(std::cout.rdbuf(nothing_.rdbuf())) {}
  ~NoStandardOutput() { std::cout.rdbuf(before_); }
  NoStandardOutput(const NoStandardOutput&) = delete;
  NoStandardOutput& operator=(const NoStandardOutput&) = delete;

 private:
  std::ostringstream nothing_;
  std::streambuf* before_;
};

std::string ParameterAdvice(const QuerySettings& settings) {
  const ParameterCheck check = CheckParameters(
      {settings.folder, IsDirectory(settings.folder), settings.machineType, settings.osValue,
       settings.arcValue, settings.includePackageIds, settings.excludePackageIds});
  switch (check.fault) {
    case ParameterFault::FolderNotSet:
      return "FOLDER is empty; give the path of an existing folder";
    case ParameterFault::FolderNotValid:
      return fmt::format("\"{}\" is not a folder; give the path of an existing one as FOLDER",
                         settings.folder);
    case ParameterFault::MachineTypeNotSet:
    case ParameterFault::MachineTypeInvalid:
      return fmt::format("\"{}\" is not a machine type; give four decimal digits to --machine-type",
                         settings.machineType);
    case ParameterFault::OsNotSet:
      return "give a number other than 0 to --os";
    case ParameterFault::ArcNotSet:
      return "give a number other than 0 to --arch";
    case ParameterFault::IdInBothLists:
      return fmt::format(
          "\"{0}\" is both included and excluded; give it to either --include or "
          "--exclude",
          check.id);
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

LibraryRun RunLibrary(const QuerySettings& settings, std::optional<FolderContents> contents) {
  const NoStandardOutput dropped;
  QueryPackageImp query;
  ApplySettings(settings, query);
  query.contents = std::move(contents);
  LibraryRun run;
  run.code = query.RunQuery(run.records);
  return run;
}

std::string Advice(int code, const QuerySettings& settings) {
  switch (code) {
    case QueryCode::InvalidParameter:
      return "the query was refused: " + ParameterAdvice(settings);
    case QueryCode::FolderFailed:
      return "the folder could not be read: check that it may be listed; --log-level 1 says why";
    case QueryCode::NoResults:
      return "the folder has no package for this machine";
    default:
      return fmt::format("the query returned {}, which this program does not know", code);
  }
}

}  // namespace Vornik::Cli
