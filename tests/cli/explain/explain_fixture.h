// Explanations of packages of a folder, for machine type 1234, operating system 10, architecture 9.
#ifndef VORNIK_TESTS_CLI_EXPLAIN_FIXTURE_H
#define VORNIK_TESTS_CLI_EXPLAIN_FIXTURE_H

#include <string>
#include <vector>

#include "cli_fixture.h"

namespace Vornik::Testing {

class ExplainTest : public CliTest {
 protected:
  Outcome Explain(const std::string& id, const Arguments& more = {});

  // With --format json; the status has to be the given one.
  Json ExplainJson(const std::string& id, const Arguments& more = {}, int status = 0);

  // The same, for an id that exactly one record has; the object of "packages".
  Json ExplainPackage(const std::string& id, const Arguments& more = {});

  // The object of one filter, whose verdict has to be in the record's slot.
  Json ExplainFilter(const std::string& id, const std::string& filter, const Arguments& more = {});

  // Runs the arguments of a smallest change; every filter has to match the package.
  void ExpectPasses(const Json& smallest, const std::string& code);
};

// The object of a filter in an object of "packages".
Json FilterOf(const Json& package, const std::string& filter);

// The reasons of an "absence" array, in order.
std::vector<std::string> ReasonsOf(const Json& absence);

// The texts of the changes of one query of "smallest".
std::vector<std::string> ChangesOf(const Json& smallest);

// Whether every slot of a record is 1, or 0 while its filter is off.
bool PassesAll(const Json& query, const Json& record);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_EXPLAIN_FIXTURE_H
