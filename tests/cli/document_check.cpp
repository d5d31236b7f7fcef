#include "document_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "project_file.h"
#include "temp_folder.h"

namespace Vornik::Testing {

namespace {

using Document = std::pair<std::string, std::string>;  // the subcommand and the text

std::set<Document>& Documents() {
  static std::set<Document> documents;
  return documents;
}

#ifndef _WIN32
std::string FaultsOf(const std::set<Document>& documents) {
  TempFolder folder;
  std::size_t number = 0;
  for (const auto& [subcommand, text] : documents) {
    folder.Write(subcommand + '-' + std::to_string(number++) + ".json", text);
  }
  const Outcome outcome =
      RunProgram("/usr/bin/env", {"python3", ProjectFile("tests/cli/validate_documents.py"),
                                  ProjectFile("share/querypackage/schemas"), folder.Path()});
  return outcome.status == 0
             ? ""
             : "the documents differ from the schemas:\n" + outcome.out + outcome.err;
}
#else
// Python is no program for Windows here; the documents are the same.
std::string FaultsOf(const std::set<Document>& /*documents*/) { return ""; }
#endif

class DocumentCheck : public testing::Environment {
 public:
  void TearDown() override {
    if (Documents().empty()) return;
    EXPECT_EQ(FaultsOf(Documents()), "");
  }
};

const testing::Environment* const documentCheck =
    testing::AddGlobalTestEnvironment(new DocumentCheck);

}  // namespace

void KeepDocument(const Arguments& arguments, const std::string& out) {
  static const std::array<std::string, 5> withSchema{"list", "query", "matrix", "explain", "lint"};
  const auto format = std::find(arguments.begin(), arguments.end(), "--format");
  if (out.empty() || format == arguments.end() || format + 1 == arguments.end()) return;
  if (*(format + 1) != "json") return;
  if (std::find(withSchema.begin(), withSchema.end(), arguments.front()) == withSchema.end())
    return;
  Documents().emplace(arguments.front(), out);
}

std::string FaultsOfDocument(const std::string& subcommand, const std::string& document) {
  return FaultsOf({{subcommand, document}});
}

}  // namespace Vornik::Testing
