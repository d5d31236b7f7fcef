#include "commands/command_frame.h"

#include <LogSettings.h>
#include <fmt/format.h>

#include <algorithm>
#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <exception>
#include <iostream>

#include "QueryPackage.h"
#include "commands/exit_status.h"
#include "model/folder_reading.h"
#include "model/hazard_check.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

int FailOnException(const std::exception& error) {
  return Fail(ExitStatus::exception, "the query ended with an exception, " + Describe(error) +
                                         "; check that the folder's path can be used");
}

bool IsInside(const fs::path& path, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
         folder.end();
}

// Why a file must not be written for a query of a folder; empty: it may be. No folder is created.
std::string LogFileFault(const std::string& file, const std::string& folder) {
  boost::system::error_code failed;
  const fs::path path(file);
  const fs::path parent = path.has_parent_path() ? path.parent_path() : fs::path(".");
  if (!fs::is_directory(parent, failed)) return "its folder does not exist";
  const fs::path target = fs::canonical(fs::exists(path, failed) ? path : parent, failed);
  if (failed) return "";
  const fs::path queried = fs::canonical(folder, failed);
  if (failed || !IsInside(target, queried)) return "";
  return "it is in the folder of the packages";
}

}  // namespace

std::optional<int> DirectLog(const LogOptions& log, const QuerySettings& query) {
  LogOptions used = log;
  if (!log.levelIsGiven && !log.toFile && !HasValidParameters(query)) used.level = 0;
  std::string reason = log.toFile ? LogFileFault(log.file, query.folder) : "";
  if (reason.empty() && ApplyLogOptions(used, reason)) return std::nullopt;
  return Fail(ExitStatus::usage,
              fmt::format("the log file \"{}\" cannot be opened ({}): give another --log-file",
                          log.file, reason));
}

int FailOnHazard(const Hazard& hazard) {
  return Fail(ExitStatus::hazard, Describe(hazard) + ", or skip this check with --trust");
}

std::optional<int> RefuseHazard(const QuerySettings& settings, const FolderContents& contents) {
  const std::optional<Hazard> hazard = FindHazard(settings, contents);
  if (!hazard) return std::nullopt;
  return FailOnHazard(*hazard);
}

int StatusOfRun(const std::function<int()>& run) {
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
