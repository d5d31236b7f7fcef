// A folder, and queries of it for machine type 1234, operating system 10, architecture 9.
#ifndef VORNIK_TESTS_CLI_CLI_FIXTURE_H
#define VORNIK_TESTS_CLI_CLI_FIXTURE_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "descriptors.h"
#include "model/query_settings.h"
#include "program.h"
#include "temp_folder.h"

namespace Vornik::Testing {

using Json = nlohmann::ordered_json;

// For machine type 1234, operating system 10, architecture 9.
Cli::QuerySettings SettingsFor(const std::string& folder);

// A command line that is wrong ends with 64 and one line, which says this.
void ExpectUsageError(const Arguments& arguments, const std::string& says);

class CliTest : public testing::Test {
 protected:
  Cli::QuerySettings Settings() const { return SettingsFor(folder.Path()); }

  // "query" for the fixture's folder and machine, with more arguments behind.
  Arguments QueryArguments(const Arguments& more = {});
  Outcome Query(const Arguments& more = {}, const Variables& variables = {});

  // A query with --format json, which has to return code; the document.
  Json QueryJson(const Arguments& more = {}, int code = 0);

  // Writes an individual descriptor that suits the machine, with its payload.
  void WritePackage(const std::string& code);

  // The file's path as the library puts it together.
  std::string PathOf(const std::string& name) const;

  TempFolder folder;
};

// Descriptor of a package that suits the machine; its payload's file name is payload.exe.
Descriptor Package(const std::string& code);

// A pack's own instance, applicable to machine type 1234 under any system.
Descriptor PackItself(const std::string& fileName, const std::string& version = "1");

// The line of a word's nth occurrence in a text, both counted from 1.
std::string LineOf(const std::string& text, const std::string& word, int n);

// A text without control bytes as a line of the log holds it.
std::string InLogLine(std::string text);

// The codes of a document's records, in order.
std::vector<std::string> CodesOf(const Json& document);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_CLI_FIXTURE_H
