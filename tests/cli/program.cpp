#include "program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <boost/process.hpp>
#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>

#include "program_arguments.h"
#include "temp_folder.h"

namespace Vornik::Testing {

namespace {

namespace bp = boost::process;

bool EndsWithin(bp::child& child, std::chrono::seconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (child.running()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

bp::environment EnvironmentWith(const Variables& variables) {
  bp::environment environment = boost::this_process::environment();
  environment.erase("NO_COLOR");
  for (const auto& [name, value] : variables) environment[name] = value;
  return environment;
}

// A text file's line ends as the program wrote them.
std::string WithoutCarriageReturns(std::string text) {
#ifdef _WIN32
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
#endif
  return text;
}

// Wine now and then loses a process before anything of it has run; such a start is repeated.
template <typename Start>
bp::child Started(const Start& start) {
#ifdef _WIN32
  constexpr int lost = 1359;  // ERROR_INTERNAL_ERROR
  for (int again = 2; again > 0; --again) {
    try {
      return start();
    } catch (const bp::process_error& error) {
      if (error.code().value() != lost) throw;
    }
  }
#endif
  return start();
}

}  // namespace

Outcome RunProgram(const std::string& program, const Arguments& arguments,
                   const Variables& variables) {
  TempFolder folder;
  const std::string out = folder.Write("out", "");
  const std::string err = folder.Write("err", "");
  bp::child child = Started([&] {
    return bp::child(ProgramAndArguments(program, arguments), EnvironmentWith(variables),
                     bp::std_in<bp::null, bp::std_out> out, bp::std_err > err);
  });
  if (!EndsWithin(child, std::chrono::seconds(60))) {
    child.terminate();
    ADD_FAILURE() << program << " does not end";
  }
  return {child.exit_code(), WithoutCarriageReturns(ReadFile(out)),
          WithoutCarriageReturns(ReadFile(err))};
}

Outcome RunCli(const Arguments& arguments, const Variables& variables) {
  return RunProgram(QUERYPACKAGE_CLI, arguments, variables);
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string ReadFile(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

}  // namespace Vornik::Testing
