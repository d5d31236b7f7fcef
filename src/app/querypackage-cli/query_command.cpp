#include "query_command.h"

#include <LogSettings.h>
#include <fmt/format.h>

#include <CLI/App.hpp>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "exit_status.h"
#include "hazard_check.h"
#include "json_output.h"
#include "options.h"
#include "query_parameters.h"
#include "terminal.h"
#include "verdict_table.h"

namespace Vornik::Cli {

namespace {

using Records = std::vector<QueryPackageResult>;

struct QueryOptions {
  QuerySettings query;
  Format format = Format::Table;
  LogOptions log;
  bool trust = false;
};

// While it lives, what is written to std::cout goes to another stream.
class StandardOutputTo {
 public:
  explicit StandardOutputTo(std::ostream& target) : before_(std::cout.rdbuf(target.rdbuf())) {}
  ~StandardOutputTo() { std::cout.rdbuf(before_); }
  StandardOutputTo(const StandardOutputTo&) = delete;
  StandardOutputTo& operator=(const StandardOutputTo&) = delete;

 private:
  std::streambuf* before_;
};

int RunLibrary(const QueryOptions& options, Records& records) {
  std::optional<StandardOutputTo> redirection;
  if (options.format == Format::Json) redirection.emplace(std::cerr);
  QueryPackage query;
  ApplySettings(options.query, query);
  const int code = query.RunQuery(records);
  // The library says on standard output which parameter failed, and does not end the line.
  if (code == QueryCode::InvalidParameter) std::cout << std::endl;
  return code;
}

std::string ParameterAdvice(const QuerySettings& query) {
  const ParameterCheck check =
      CheckParameters({query.folder, query.machineType, query.osValue, query.arcValue,
                       query.includePackageIds, query.excludePackageIds});
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

std::string Advice(int code, const QueryOptions& options) {
  switch (code) {
    case QueryCode::InvalidParameter:
      return "the query was refused: " + ParameterAdvice(options.query);
    case QueryCode::FolderFailed:
      return "the folder could not be read: check that it may be listed; --log-level 1 says why";
    case QueryCode::NoResults:
      return "the folder gives no package for this machine: it needs package descriptors whose "
             "file names end in \".xml\"; --log-level 3 says how each file was taken";
    default:
      return fmt::format("the query returned {}, which this program does not know", code);
  }
}

bool Print(const std::string& text) {
  std::cout << text << std::flush;
  return std::cout.good();
}

bool PrintOutcome(const QueryOptions& options, int code, const Records& records) {
  if (options.format == Format::Json) return Print(JsonDocument(options.query, code, records));
  return code != QueryCode::Completed || Print(VerdictTable(records, WantsColour()));
}

void ReportLostLogRecords() {
  const auto lost = LostLogRecords();
  if (lost != 0) PrintNotice(fmt::format("log records that could not be written: {}", lost));
}

int Query(const QueryOptions& options) {
  Records records;
  int code = QueryCode::Completed;
  try {
    code = RunLibrary(options, records);
  } catch (const std::exception& error) {
    return Fail(ExitStatus::exception, "the query ended with an exception, " + Describe(error) +
                                           "; check that the folder's path can be used");
  } catch (...) {
    return Fail(ExitStatus::exception, "the query ended with an exception of an unknown type");
  }
  ReportLostLogRecords();
  if (!PrintOutcome(options, code, records)) {
    return Fail(ExitStatus::outputLost,
                "standard output could not be written to its end: check "
                "where it goes");
  }
  return code == QueryCode::Completed ? ExitStatus::success : Fail(code, Advice(code, options));
}

int RunQueryCommand(const QueryOptions& options) {
  std::string reason;
  if (!ApplyLogOptions(options.log, reason)) {
    return Fail(ExitStatus::usage,
                fmt::format("the log file \"{}\" cannot be opened ({}): give another --log-file",
                            options.log.file, reason));
  }
  if (!options.trust) {
    if (const std::optional<Hazard> hazard = FindHazard(options.query)) {
      return Fail(ExitStatus::hazard, Describe(*hazard));
    }
  }
  return Query(options);
}

}  // namespace

void AddQueryCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command = app.add_subcommand("query", "Judge the packages of a folder for one machine");
  const auto options = std::make_shared<QueryOptions>();
  AddQuerySettings(*command, options->query);
  AddFormat(*command, options->format);
  AddLogOptions(*command, options->log);
  command->add_flag(
      "--trust", options->trust,
      "Do not look first for descriptors that would hang the\nquery or end the process");
  command->callback(
      [options, &chosen] { chosen = [options] { return RunQueryCommand(*options); }; });
}

}  // namespace Vornik::Cli
