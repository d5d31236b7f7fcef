// Runs lint on a folder of the test's own.
#ifndef VORNIK_TESTS_CLI_LINT_FIXTURE_H
#define VORNIK_TESTS_CLI_LINT_FIXTURE_H

#include <set>
#include <string>
#include <vector>

#include "cli_fixture.h"
#include "lint/lint_cases.h"

namespace Vornik::Testing {

void WriteFilesTo(const TempFolder& folder, const LintFiles& files);

// For a test of each case.
std::string NameOfLintCase(const testing::TestParamInfo<LintCase>& info);

class LintTest : public CliTest {
 protected:
  void WriteFiles(const LintFiles& files);

  Outcome Lint(const Arguments& more = {});

  // With --format json; the status may be that of findings.
  Json LintJson(const Arguments& more = {});

  // "file:line:column" of each finding of an id, in order.
  std::vector<std::string> PlacesOf(const std::string& id, const Arguments& more = {});

  // The text of the only finding of an id.
  std::string TextOf(const std::string& id, const Arguments& more = {});
};

// What the closing line says about a target: nothing for the system of the test.
std::string ReadAs(const std::string& target);

std::vector<std::string> PlacesIn(const Json& document, const std::string& id);

// Each once.
std::set<std::string> IdsIn(const Json& document);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_LINT_FIXTURE_H
