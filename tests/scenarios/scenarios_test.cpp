// Runs every case below tests/scenarios: a folder with query.txt, results.txt and log.txt.
// docs/testing.md says how to write one.
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "captured_stdout.h"
#include "project_file.h"
#include "querypackageimp.h"
#include "record_members.h"
#include "recording_log.h"
#include "text_diff.h"

namespace Vornik::Testing {
namespace {

namespace fs = boost::filesystem;

const fs::path scenarioRoot = ProjectFile("tests/scenarios");

// Every folder with a query.txt, as <area>/<case>.
std::vector<std::string> FindScenarios() {
  std::vector<std::string> names;
  for (const auto& area : fs::directory_iterator(scenarioRoot)) {
    if (!fs::is_directory(area.status())) continue;
    for (const auto& one : fs::directory_iterator(area.path())) {
      if (fs::exists(one.path() / "query.txt")) {
        names.push_back(area.path().filename().string() + "/" + one.path().filename().string());
      }
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string ReadText(const fs::path& path) {
  std::ifstream in(path.string(), std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

struct Query {
  fs::path folder;
  unsigned int logLevel = 3;
  int runs = 1;
};

std::uint32_t Number(const std::string& text) {
  return static_cast<std::uint32_t>(std::stoll(text));
}

// One setting a line: a word, a blank, a value.
void Apply(const std::string& word, const std::string& value, const fs::path& scenario,
           Query& query, QueryPackageImp& imp) {
  if (word == "folder") {
    query.folder = fs::canonical(scenario / value);
  } else if (word == "machine-type") {
    imp.machineType = value;
  } else if (word == "os") {
    imp.osValue = static_cast<OsValue>(Number(value));
  } else if (word == "arch") {
    imp.arcValue = static_cast<ArcValue>(Number(value));
  } else if (word == "update-type") {
    imp.updateTypes.push_back(static_cast<UpdateType>(Number(value)));
  } else if (word == "include") {
    imp.includePackageIds.push_back(value);
  } else if (word == "exclude") {
    imp.excludePackageIds.push_back(value);
  } else if (word == "off" && value == "kovu") {
    imp.kovuFilter = false;
  } else if (word == "off" && value == "sep") {
    imp.sepFilter = false;
  } else if (word == "off" && value == "payload-exist") {
    imp.payloadExistFilter = false;
  } else if (word == "off" && value == "supersede") {
    imp.supersedeFilter = false;
  } else if (word == "log-level") {
    query.logLevel = Number(value);
  } else if (word == "runs") {
    query.runs = std::stoi(value);
  } else {
    throw std::runtime_error("query.txt: unknown setting '" + word + " " + value + "'");
  }
}

Query ReadQuery(const fs::path& scenario, QueryPackageImp& imp) {
  Query query;
  query.folder = scenario / "packages";
  std::istringstream lines(ReadText(scenario / "query.txt"));
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    const std::size_t blank = line.find(' ');
    const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
    Apply(line.substr(0, blank), value, scenario, query, imp);
  }
  imp.xmlPackageFolder = query.folder.make_preferred().string();
  return query;
}

class Report {
 public:
  explicit Report(const std::string& folder) : folder_(folder) {}

  void Member(const char* name, const std::string& value) {
    if (!value.empty()) out_ << "  " << name << ' ' << Neutral(value) << '\n';
  }

  void Member(const char* name, const std::vector<std::string>& values) {
    for (const std::string& value : values) out_ << "  " << name << "[] " << Neutral(value) << '\n';
  }

  void Member(const char* name, const std::vector<QueryPackageResult::DriverFile>& files) {
    for (const auto& file : files) {
      out_ << "  " << name << "[] " << file.name << " | " << file.version << " | "
           << file.classification << '\n';
    }
  }

  // The slots come last and share a line.
  void Member(const char* name, std::uint32_t status) {
    const std::string slot(name);
    slots_ += (slots_.empty() ? "  " : ", ") + slot.substr(0, slot.find("FilterStatus")) + ' ' +
              std::to_string(status);
  }

  void Record(const QueryPackageResult& record) {
    out_ << "record\n";
    slots_.clear();
    ForEachRecordMember(record,
                        [this](const char* name, const auto& member) { Member(name, member); });
    out_ << slots_ << '\n';
  }

  void Line(const std::string& text) { out_ << Neutral(text) << '\n'; }

  std::string Text() const { return out_.str(); }

 private:
  // The same on every machine: a word in place of the folder, visible line feeds, and slashes in
  // the paths below the folder.
  std::string Neutral(std::string text) const {
    const std::string word = "{folder}";
    for (std::size_t at = 0; (at = text.find(folder_, at)) != std::string::npos;) {
      text.replace(at, folder_.size(), word);
      at += word.size();
#ifdef _WIN32
      std::replace(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), '\\', '/');
#endif
    }
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos;) {
      text.replace(at, 1, "\\n");
    }
    return text;
  }

  std::string folder_;
  std::string slots_;
  std::ostringstream out_;
};

class ScenarioTest : public testing::TestWithParam<std::string> {};

// A run that rewrites a file fails, so that no check can pass by rewriting what it expects.
void Compare(const fs::path& file, const std::string& actual) {
  const std::string diff = TextDiff(ReadText(file), actual);
  if (std::getenv("QUERYPACKAGE_REWRITE_SCENARIOS") != nullptr) {
    std::ofstream(file.string(), std::ios::binary) << actual;
    ADD_FAILURE() << file.string() << (diff.empty() ? " is the same" : " is rewritten:\n") << diff
                  << "Run without QUERYPACKAGE_REWRITE_SCENARIOS to test.";
    return;
  }
  EXPECT_EQ(diff, "") << file.string();
}

TEST_P(ScenarioTest, YieldsItsResultsAndItsLog) {
  const fs::path scenario = scenarioRoot / GetParam();
  QueryPackageImp imp;
  const Query query = ReadQuery(scenario, imp);
  Report results(imp.xmlPackageFolder);
  Report log(imp.xmlPackageFolder);
  for (int run = 0; run < query.runs; ++run) {
    RecordingLog::Reset(query.logLevel);
    std::vector<QueryPackageResult> records;
    const CapturedStdout out;
    results.Line("returned " + std::to_string(imp.RunQuery(records)));
    if (!out.Text().empty()) results.Line("printed " + out.Text());
    for (const QueryPackageResult& record : records) results.Record(record);
    if (run > 0) log.Line("-- run " + std::to_string(run + 1));
    for (const std::string& line : RecordingLog::Lines()) log.Line(line);
  }
  Compare(scenario / "results.txt", results.Text());
  Compare(scenario / "log.txt", log.Text());
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace_if(
      name.begin(), name.end(),
      [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
  return name;
}

TEST(ScenariosTest, ThereAreSome) { EXPECT_GE(FindScenarios().size(), 20U); }

INSTANTIATE_TEST_SUITE_P(, ScenarioTest, testing::ValuesIn(FindScenarios()), TestName);

}  // namespace
}  // namespace Vornik::Testing
