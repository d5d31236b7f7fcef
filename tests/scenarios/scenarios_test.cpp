// Runs every case below tests/scenarios: a folder with query.txt, results.txt and log.txt.
// docs/testing.md tells how to write one.
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "captured_stdout.h"
#include "querypackageimp.h"
#include "recording_log.h"

namespace Vornik::Testing {
namespace {

namespace fs = boost::filesystem;

const fs::path scenarioRoot = fs::path(QUERYPACKAGE_SOURCE_DIR) / "tests" / "scenarios";

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

  void Record(const QueryPackageResult& record) {
    out_ << "record\n";
    Member("packageXmlFile", record.packageXmlFile);
    Member("identificationCode", record.identificationCode);
    for (const auto& file : record.driverFiles) {
      out_ << "  driverFiles[] " << file.name << " | " << file.version << " | "
           << file.classification << '\n';
    }
    Member("buildNumber", record.buildNumber);
    Member("description", record.description);
    Member("updateSelection", record.updateSelection);
    Member("rebootRequired", record.rebootRequired);
    Member("severity", record.severity);
    Member("category", record.category);
    Member("payload", record.payload);
    Member("type", record.type);
    Member("Version", record.Version);
    Member("applicableDeviceId", record.applicableDeviceId);
    Member("preReq", record.preReq);
    Member("coReq", record.coReq);
    Member("kovuXmlFile", record.kovuXmlFile);
    Member("kovuName", record.kovuName);
    Member("supersedesId", record.supersedesId);
    Member("supersededById", record.supersededById);
    out_ << "  platform " << record.platformFilterStatus << ", kovu " << record.kovuFilterStatus
         << ", sep " << record.sepFilterStatus << ", payload-exist "
         << record.payloadExistFilterStatus << ", supersede " << record.supersedeFilterStatus
         << ", include " << record.includeIdFilterStatus << ", exclude "
         << record.excludeIdFilterStatus << ", update-type " << record.updateTypeFilterStatus
         << '\n';
  }

  void Line(const std::string& text) { out_ << Neutral(text) << '\n'; }

  std::string Text() const { return out_.str(); }

 private:
  // The same on every machine: the folder by a word, line feeds visible, and slashes in the paths
  // that stand in the folder.
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
  std::ostringstream out_;
};

class ScenarioTest : public testing::TestWithParam<std::string> {};

void Compare(const fs::path& file, const std::string& actual) {
  if (std::getenv("QUERYPACKAGE_REWRITE_SCENARIOS") != nullptr) {
    std::ofstream(file.string(), std::ios::binary) << actual;
    return;
  }
  EXPECT_EQ(ReadText(file), actual) << file.string() << " should then hold:\n" << actual;
}

TEST_P(ScenarioTest, GivesItsResultsAndItsLog) {
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

INSTANTIATE_TEST_SUITE_P(, ScenarioTest, testing::ValuesIn(FindScenarios()), TestName);

}  // namespace
}  // namespace Vornik::Testing
