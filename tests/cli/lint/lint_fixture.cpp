#include "lint/lint_fixture.h"

#include <algorithm>
#include <boost/filesystem.hpp>
#include <cctype>
#include <stdexcept>

namespace Vornik::Testing {

void WriteFilesTo(const TempFolder& folder, const LintFiles& files) {
  for (const auto& [name, bytes] : files) {
    const boost::filesystem::path path = boost::filesystem::path(folder.Path()) / name;
    boost::filesystem::create_directories(path.parent_path());
    if (name.back() != '/') folder.Write(name, bytes);
  }
}

std::string NameOfLintCase(const testing::TestParamInfo<LintCase>& info) {
  std::string name = info.param.id + "_" + info.param.what;
  std::replace_if(
      name.begin(), name.end(),
      [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
  return name;
}

void LintTest::WriteFiles(const LintFiles& files) { WriteFilesTo(folder, files); }

Outcome LintTest::Lint(const Arguments& more) {
  Arguments arguments{"lint", folder.Path()};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return RunCli(arguments);
}

Json LintTest::LintJson(const Arguments& more) {
  Arguments arguments{"--format", "json"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  const Outcome outcome = Lint(arguments);
  EXPECT_TRUE(outcome.status == 0 || outcome.status == 1) << outcome.status << outcome.err;
  Json document = Json::parse(outcome.out, nullptr, false);
  if (document.is_discarded()) throw std::runtime_error("no JSON document: " + outcome.out);
  return document;
}

std::vector<std::string> LintTest::PlacesOf(const std::string& id, const Arguments& more) {
  return PlacesIn(LintJson(more), id);
}

std::string LintTest::TextOf(const std::string& id, const Arguments& more) {
  const Json document = LintJson(more);
  std::vector<std::string> texts;
  for (const Json& finding : document["findings"]) {
    if (finding["id"] == id) texts.push_back(finding["text"]);
  }
  EXPECT_EQ(texts.size(), 1U) << id;
  return texts.empty() ? "" : texts.front();
}

std::string ReadAs(const std::string& target) {
#ifdef _WIN32
  return target == "windows" ? "" : ", read as on POSIX";
#else
  return target == "windows" ? ", read as on Windows" : "";
#endif
}

std::vector<std::string> PlacesIn(const Json& document, const std::string& id) {
  std::vector<std::string> places;
  for (const Json& finding : document["findings"]) {
    if (finding["id"] != id) continue;
    places.push_back(finding["file"].get<std::string>() + ":" + finding["line"].dump() + ":" +
                     finding["column"].dump());
  }
  return places;
}

std::set<std::string> IdsIn(const Json& document) {
  std::set<std::string> ids;
  for (const Json& finding : document["findings"]) ids.insert(finding["id"].get<std::string>());
  return ids;
}

}  // namespace Vornik::Testing
