#include "program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>

#include "document_check.h"
#include "program_run.h"
#include "temp_folder.h"

namespace Vornik::Testing {

namespace {

// A text file's line ends as the program wrote them.
std::string WithoutCarriageReturns(std::string text) {
#ifdef _WIN32
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
#endif
  return text;
}

}  // namespace

Outcome RunProgram(const std::string& program, const Arguments& arguments,
                   const Variables& variables) {
  TempFolder folder;
  const std::string out = folder.Write("out", "");
  const std::string err = folder.Write("err", "");
  const ProgramEnd end =
      RunToItsEnd({program, arguments, variables, out, err}, std::chrono::seconds(60));
  if (!end.inTime) ADD_FAILURE() << program << " does not end";
  return {end.status, WithoutCarriageReturns(ReadFile(out)), WithoutCarriageReturns(ReadFile(err))};
}

std::string CliPath() { return QUERYPACKAGE_CLI; }

Outcome RunCli(const Arguments& arguments, const Variables& variables) {
  Outcome outcome = RunProgram(CliPath(), arguments, variables);
  KeepDocument(arguments, outcome.out);
  return outcome;
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
