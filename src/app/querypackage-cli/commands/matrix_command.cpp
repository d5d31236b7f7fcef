#include "commands/matrix_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "QueryPackage.h"
#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/help_texts.h"
#include "commands/interrupt.h"
#include "commands/options.h"
#include "commands/parser.h"
#include "explain/package_ids.h"
#include "matrix/machine_file.h"
#include "matrix/output.h"
#include "model/folder_reading.h"
#include "model/library_run.h"
#include "output/progress.h"
#include "output/terminal.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

enum class MatrixFormat { Table, Csv, Json, JsonLines };

struct MatrixOptions {
  QuerySettings query;  // without a machine
  std::string machineFile;
  bool hasMachineFile = false;
  bool skipsBad = false;
  MatrixFormat format = MatrixFormat::Table;
  std::vector<std::string> packages;  // patterns; none: all
  std::vector<std::string> machines;
  bool onlyOffered = false;
  bool withReasons = false;
  bool failsOnUnreachable = false;
  bool debugRecords = false;
  DisplayOptions display;
};

struct Interrupted {};

// Ends the command in good order where the user wants that.
void ThrowIfInterrupted() {
  if (IsInterrupted()) throw Interrupted();
}

bool MatchesAny(const std::vector<std::string>& patterns, const std::string& text) {
  return std::any_of(patterns.begin(), patterns.end(),
                     [&text](const std::string& pattern) { return MatchesPattern(pattern, text); });
}

void PrintWarning(const MatrixOptions& options, const std::string& text) {
  if (!options.display.quiet) PrintNotice("warning: " + text);
}

// What is wrong with the settings of the filters and the folder, whatever the machine is.
std::optional<int> CheckSettings(const QuerySettings& settings) {
  QuerySettings any = settings;
  any.machineType = "0000";
  any.osValue = static_cast<OsValue>(1);
  any.arcValue = static_cast<ArcValue>(1);
  if (HasValidParameters(any)) return std::nullopt;
  return Fail(QueryCode::InvalidParameter, Advice(QueryCode::InvalidParameter, any));
}

int FailOnMachines(const MatrixOptions& options, const std::string& reason) {
  return Fail(ExitStatus::usage, fmt::format("the machines in \"{}\" cannot be used ({})",
                                             options.machineFile, reason));
}

// The first ones, and how many there are besides.
void PrintBadLines(const std::string& file, const std::vector<std::string>& lines) {
  constexpr std::size_t maxPrinted = 20;
  const std::size_t printed = std::min(lines.size(), maxPrinted);
  for (std::size_t i = 0; i < printed; ++i) PrintNotice(file + ": " + lines[i]);
  if (printed < lines.size()) {
    PrintNotice(fmt::format("{} more lines are wrong", lines.size() - printed));
  }
}

std::optional<int> ReadMachineFile(const MatrixOptions& options, MachineList& machines) {
  std::ifstream file;
  const bool isInput = options.machineFile == "-";
  if (!isInput) {
    file.open(options.machineFile, std::ios::binary);
    if (!file) return FailOnMachines(options, "the file cannot be read");
  }
  std::istream& stream = isInput ? std::cin : file;
  const MachineFileFaults faults = ReadMachines(stream, machines);
  if (stream.bad()) return FailOnMachines(options, "the file cannot be read to its end");
  if (faults.header) return FailOnMachines(options, *faults.header);
  if (faults.lines.empty()) return std::nullopt;
  if (!options.skipsBad || !options.display.quiet) PrintBadLines(options.machineFile, faults.lines);
  if (options.skipsBad) return std::nullopt;
  return FailOnMachines(options,
                        fmt::format("{} wrong: fix them, or use the others with --skip-bad",
                                    Count(faults.lines.size(), "line") +
                                        (faults.lines.size() == 1 ? " is" : " are")));
}

void AddMachinesOfFolder(const MatrixOptions& options, QueryModel& model, MachineList& machines) {
  const FolderMachines folder = model.Named().All();
  for (const Machine& machine : folder.machines) machines.Add(machine);
  if (folder.isComplete) return;
  PrintWarning(options, fmt::format("the folder names more machines than the first {}: give those "
                                    "that you have with --machines",
                                    maxMachines));
}

MachineList Narrowed(MachineList all, const std::vector<std::string>& patterns) {
  if (patterns.empty()) return all;
  MachineList narrowed;
  for (const MatrixMachine& machine : all.Machines()) {
    const MachineKind& kind = all.Kinds()[machine.kind];
    if (MatchesAny(patterns, machine.name) || MatchesAny(patterns, kind.name)) {
      narrowed.Add(kind.machine, machine.name, machine.count);
    }
  }
  return narrowed;
}

// Collects what is written, and passes it on in large pieces that end where one of them ends.
class BufferedOutput {
 public:
  // False: the rest is not wanted.
  bool Add(const std::string& text) {
    constexpr std::size_t maxBuffered = std::size_t{1} << 16;
    buffer_ += text;
    if (buffer_.size() > maxBuffered) Flush();
    return isGood_ && !IsInterrupted();
  }

  bool Flush() {
    isGood_ = isGood_ && Print(buffer_);
    buffer_.clear();
    return isGood_;
  }

 private:
  std::string buffer_;
  bool isGood_ = true;
};

// A table that does not fit the terminal is refused, its summary is printed.
std::optional<int> PrintTable(const MatrixOptions& options, const MatrixReport& report) {
  if (!options.display.quiet && !Print(MatrixSummaryText(report) + '\n')) return FailToPrint();
  const std::optional<std::size_t> width = OutputWidth();
  const std::size_t needed = width ? MatrixTableWidth(report, *width) : 0;
  if (width && needed > *width) {
    return Fail(
        ExitStatus::usage,
        fmt::format(
            "the table of {} needs at least {} columns of the terminal, which has {}: narrow "
            "it with --machine, or use --format csv",
            Count(report.machines.Kinds().size(), "kind"), needed, *width));
  }
  if (!Print(MatrixTable(report, WantsColour(options.display.colour)))) return FailToPrint();
  return std::nullopt;
}

std::optional<int> PrintReport(const MatrixOptions& options, const MatrixReport& report) {
  if (options.format == MatrixFormat::Table) return PrintTable(options, report);
  BufferedOutput output;
  const MatrixSink sink = [&output](const std::string& text) { return output.Add(text); };
  if (options.format == MatrixFormat::Csv) WriteMatrixCsv(report, sink);
  if (options.format == MatrixFormat::Json) WriteMatrixJson(report, sink);
  if (options.format == MatrixFormat::JsonLines) WriteMatrixJsonLines(report, sink);
  if (!output.Flush()) return FailToPrint();
  ThrowIfInterrupted();
  return std::nullopt;
}

Matrix EvaluateAll(const MatrixOptions& options, QueryModel& model, const MachineList& machines) {
  Progress progress("kinds of machines", !options.display.quiet);
  MatrixRequest request{options.query, machines.Kinds()};
  request.keepsReasons = options.withReasons;
  request.keepsRecords = options.debugRecords;
  request.threads = std::min(2U, std::thread::hardware_concurrency());
  if (!options.packages.empty()) {
    request.wants = [&options](const std::string& code) {
      return MatchesAny(options.packages, code);
    };
  }
  request.progress = [&](std::size_t done) {
    ThrowIfInterrupted();
    progress.Show(done, machines.Kinds().size());
  };
  return EvaluateMatrix(model, request);
}

int PrintMatrix(const MatrixOptions& options, QueryModel& model, const MachineList& machines) {
  const Matrix matrix = EvaluateAll(options, model, machines);
  if (matrix.packages.empty()) {
    return options.packages.empty()
               ? Fail(
                     QueryCode::NoResults,
                     "the folder has no package: \"querypackage-cli lint\" says what is wrong with "
                     "the files")
               : Fail(ExitStatus::usage, "no package of the folder matches --package");
  }
  const MatrixSummary summary = Summarize(matrix, machines.Kinds());
  const MatrixReport report{
      options.query,       machines, matrix, summary, options.onlyOffered, options.withReasons,
      options.debugRecords};
  if (const auto status = PrintReport(options, report)) return *status;
  if (!options.failsOnUnreachable || summary.unreachable.empty()) return ExitStatus::success;
  return Fail(ExitStatus::negative,
              fmt::format("no machine gets {} of {}: see the summary", summary.unreachable.size(),
                          Count(matrix.packages.size(), "package")));
}

FolderContents ReadFolderOf(const MatrixOptions& options) {
  Progress progress("files", !options.display.quiet);
  return ReadContents(options.query.folder, [&progress](std::size_t done, std::size_t total) {
    ThrowIfInterrupted();
    progress.Show(done, total);
  });
}

// hasAny: before --machine narrowed them.
int FailOnNoMachine(const MatrixOptions& options, bool hasAny) {
  if (hasAny) {
    return Fail(ExitStatus::usage, "no machine matches --machine");
  }
  if (options.hasMachineFile) return FailOnMachines(options, "it has none");
  return Fail(QueryCode::NoResults,
              "no package of the folder names a machine: give machines with --machines, or see "
              "\"querypackage-cli lint\"");
}

int RunMatrix(const MatrixOptions& options) {
  if (const auto status = CheckSettings(options.query)) return *status;
  MachineList all;
  if (options.hasMachineFile) {
    if (const auto status = ReadMachineFile(options, all)) return *status;
  }
  NoteInterrupts();
  FolderContents contents = ReadFolderOf(options);
  const std::vector<Hazard> hazards = FindHazards(contents);
  const FolderReading folder = Load(std::move(contents));
  if (folder.walkFailure) return FailOnWalk(*folder.walkFailure);
  QueryModel model(folder, options.query.folder);
  if (!options.hasMachineFile) AddMachinesOfFolder(options, model, all);
  const bool hasAny = !all.Machines().empty();
  const MachineList machines = Narrowed(std::move(all), options.machines);
  if (const auto hazard = FindHazard(model, options.query, machines.Kinds(), hazards)) {
    return Fail(ExitStatus::hazard, Describe(*hazard));
  }
  if (machines.Machines().empty()) return FailOnNoMachine(options, hasAny);
  return PrintMatrix(options, model, machines);
}

int RunMatrixCommand(const MatrixOptions& options) {
  return StatusOfRun([&options] {
    try {
      return RunMatrix(options);
    } catch (const Interrupted&) {
      return Fail(ExitStatus::interrupted, "interrupted: the output may not be complete");
    }
  });
}

void AddMatrixFormat(CLI::App& command, MatrixFormat& format) {
  command
      .add_option_function<std::string>(
          "--format",
          [&format](const std::string& name) {
            if (name == "csv") format = MatrixFormat::Csv;
            if (name == "json") format = MatrixFormat::Json;
            if (name == "jsonl") format = MatrixFormat::JsonLines;
          },
          "table (default), csv, json: one document, or jsonl: a summary,\nthen a machine or a "
          "kind of machine in each line")
      ->check(CLI::IsMember({"table", "csv", "json", "jsonl"}))
      ->type_name("NAME");
}

void AddMachines(CLI::App& command, MatrixOptions& options) {
  command
      .add_option_function<std::string>(
          "--machines",
          [&options](const std::string& file) {
            options.machineFile = file;
            options.hasMachineFile = true;
          },
          "File of machines as comma-separated values, - is standard input:\n"
          "a header, machine_type,os,arch and, optionally, name,count; without\nit each machine "
          "that the folder names")
      ->type_name("FILE");
  command.add_flag("--skip-bad", options.skipsBad,
                   "Use the other lines of the file where some are wrong");
}

void AddPatterns(CLI::App& command, const std::string& name, std::vector<std::string>& patterns,
                 const std::string& typeName, const std::string& help) {
  AddRepeated(
      command, name, typeName,
      [&patterns](const std::string& pattern) { patterns.push_back(pattern); }, help);
}

void AddFailOn(CLI::App& command, bool& failsOnUnreachable) {
  command
      .add_option_function<std::string>(
          "--fail-on",
          [&failsOnUnreachable](const std::string& name) {
            failsOnUnreachable = name == "unreachable";
          },
          "never (default), or unreachable: packages that no machine gets\nmake the exit status 1")
      ->check(CLI::IsMember({"unreachable", "never"}))
      ->type_name("NAME");
}

void CheckOptions(const MatrixOptions& options) {
  const bool isJson =
      options.format == MatrixFormat::Json || options.format == MatrixFormat::JsonLines;
  if (options.debugRecords && !isJson) {
    throw CLI::ValidationError("--debug-records", "only json and jsonl have records");
  }
  if (options.skipsBad && !options.hasMachineFile) {
    throw CLI::ValidationError("--skip-bad", "there is no file of machines without --machines");
  }
}

}  // namespace

void AddMatrixCommand(CLI::App& app, std::function<int()>& chosen) {
  CLI::App* command =
      app.add_subcommand("matrix", "Judge the packages of a folder for many machines");
  const auto options = std::make_shared<MatrixOptions>();
  AddFolder(*command, options->query.folder);
  AddMachines(*command, *options);
  AddFilterSettings(*command, options->query);
  AddMatrixFormat(*command, options->format);
  AddPatterns(*command, "--package", options->packages, "ID",
              "Identification code of a package to show; * matches any text,\n? one byte. "
              "Repeatable; without it all are shown");
  AddPatterns(*command, "--machine", options->machines, "NAME",
              "Name of a machine to show, or TYPE/OS/ARCH; * matches any text,\n? one byte. "
              "Repeatable; without it all are shown");
  command->add_flag("--only-offered", options->onlyOffered,
                    "Of the packages only those that a machine is offered");
  command->add_flag("--with-reasons", options->withReasons,
                    "Add to each cell why the filters refuse, in the words of explain");
  AddFailOn(*command, options->failsOnUnreachable);
  command->add_flag("--debug-records", options->debugRecords,
                    "Add the records of each kind of machine to json and jsonl");
  AddDisplay(*command, options->display);
  command->footer(HelpText::matrix);
  command->callback([options, &chosen] {
    CheckOptions(*options);
    chosen = [options] { return RunMatrixCommand(*options); };
  });
}

}  // namespace Vornik::Cli
