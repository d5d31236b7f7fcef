#include "commands/command_frame.h"

#include <LogSettings.h>
#include <fmt/format.h>

#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>
#include <exception>
#include <iostream>

#include "QueryPackage.h"
#include "commands/exit_status.h"
#include "model/hazard_check.h"

namespace Vornik::Cli {

namespace {

int FailOnException(const std::exception& error) {
  return Fail(ExitStatus::exception, "the query ended with an exception, " + Describe(error) +
                                         "; check that the folder's path can be used");
}

}  // namespace

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
  return Fail(ExitStatus::hazard, Describe(*hazard) + ", or skip this check with --trust");
}

int StatusOfRun(const std::function<int()>& run) {
  namespace fs = boost::filesystem;
  try {
    return run();
  } catch (const fs::filesystem_error& error) {
    // Only the query's folder is looked up in this way.
    const bool isLoop = error.code() == boost::system::errc::too_many_symbolic_link_levels;
    return isLoop ? FailOnFolder(error.path1().string()) : FailOnException(error);
  } catch (const std::exception& error) {
    return FailOnException(error);
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

bool IsFolder(const std::string& path) {
  boost::system::error_code failed;
  return boost::filesystem::is_directory(path, failed) && !failed;
}

int FailOnFolder(const std::string& path) {
  return Fail(
      QueryCode::InvalidParameter,
      fmt::format("\"{}\" is no folder: give the folder of the descriptors as FOLDER", path));
}

int FailOnWalk(const std::string& reason) {
  return Fail(QueryCode::FolderFailed,
              fmt::format("the folder could not be read to its end ({}): check that it can be "
                          "listed",
                          reason));
}

void ReportLostLogRecords() {
  const auto lost = LostLogRecords();
  if (lost != 0) PrintNotice(fmt::format("log records that could not be written: {}", lost));
}

}  // namespace Vornik::Cli
