// own-log-host [--throw] FOLDER
//
// Queries FOLDER for one machine and prints what querypackage reported to this host's own log.
// With --throw the log throws at the first error, and the host catches the exception around
// RunQuery; a query without an error then counts as a failure.
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "Log.h"
#include "QueryPackage.h"

namespace {

int Query(const std::string& folder, std::vector<Vornik::QueryPackageResult>& results) {
  Vornik::QueryPackage query;
  query.SetXMLPackageFolder(folder);
  query.SetPlatform(static_cast<Vornik::OsValue>(10), static_cast<Vornik::ArcValue>(9), "1234");
  return query.RunQuery(results);
}

// Returns the number of entries printed.
std::size_t PrintLog() {
  const std::vector<Vornik::LogEntry> entries = Vornik::Log::TakeEntries();
  for (const Vornik::LogEntry& entry : entries) {
    std::cout << "own log <" << entry.severity << "> " << entry.message << " [" << entry.source
              << "]\n";
  }
  return entries.size();
}

int RunReporting(const std::string& folder) {
  Vornik::Log::SetMinLogLevel(3);
  std::vector<Vornik::QueryPackageResult> results;
  const int code = Query(folder, results);
  std::cout << '\n';  // what the parameter check writes to standard output has no line end
  const std::size_t entries = PrintLog();
  std::cout << "result code " << code << ", " << results.size() << " packages, " << entries
            << " log records\n";
  return code == Vornik::QueryCode::Completed && entries > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

int RunThrowing(const std::string& folder) {
  Vornik::Log::SetMinLogLevel(1);
  Vornik::Log::ThrowOnErrors(true);
  std::vector<Vornik::QueryPackageResult> results;
  try {
    const int code = Query(folder, results);
    std::cout << "\nresult code " << code << ", and the log threw nothing\n";
    return EXIT_FAILURE;
  } catch (const Vornik::LogError& error) {
    std::cout << "\ncaught around RunQuery: " << error.what() << '\n';
  }
  return PrintLog() == 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const bool throwing = !arguments.empty() && arguments.front() == "--throw";
  if (arguments.size() != (throwing ? 2u : 1u)) {
    std::cerr << "usage: own-log-host [--throw] FOLDER\n";
    return EXIT_FAILURE;
  }
  try {
    return throwing ? RunThrowing(arguments.back()) : RunReporting(arguments.back());
  } catch (const std::exception& error) {
    std::cerr << "own-log-host: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
