#include "commands/command_frame.h"

#include <LogSettings.h>
#include <fmt/format.h>

#include <exception>
#include <iostream>

#include "commands/exit_status.h"
#include "model/hazard_check.h"

namespace Vornik::Cli {

std::optional<int> DirectLog(const LogOptions& log) {
  std::string reason;
  if (ApplyLogOptions(log, reason)) return std::nullopt;
  return Fail(ExitStatus::usage,
              fmt::format("the log file \"{}\" cannot be opened ({}): give another --log-file",
                          log.file, reason));
}

std::optional<int> RefuseHazard(const QuerySettings& settings, const FolderContents& contents) {
  const std::optional<Hazard> hazard = FindHazard(settings, contents);
  if (!hazard) return std::nullopt;
  return Fail(ExitStatus::hazard, Describe(*hazard));
}

int StatusOfRun(const std::function<int()>& run) {
  try {
    return run();
  } catch (const std::exception& error) {
    return Fail(ExitStatus::exception, "the query ended with an exception, " + Describe(error) +
                                           "; check that the folder's path can be used");
  } catch (...) {
    return Fail(ExitStatus::exception, "the query ended with an exception of an unknown type");
  }
}

bool Print(const std::string& text) {
  std::cout << text << std::flush;
  return std::cout.good();
}

int FailToPrint() {
  return Fail(ExitStatus::outputLost,
              "standard output could not be written to its end: check where it goes");
}

void ReportLostLogRecords() {
  const auto lost = LostLogRecords();
  if (lost != 0) PrintNotice(fmt::format("log records that could not be written: {}", lost));
}

}  // namespace Vornik::Cli
