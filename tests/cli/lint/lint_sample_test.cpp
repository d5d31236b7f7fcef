// The lint report of the sample repository. Whoever changes the repository or a finding checks
// every line of the new report.
#include "lint/lint_fixture.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

const std::string repository = ProjectFile("examples/repository");

// A path in the report names the folder by a word. The folder alone is as it was given.
// Its last line is without the target.
std::string ExpectedReport() {
  const std::string word = "{folder}";
  std::string report;
  for (const std::string& line :
       LinesOf(ReadFile(ProjectFile("tests/cli/lint/lint_sample_report.txt")))) {
    const std::size_t begin = line.find(word);
    if (begin == std::string::npos) {
      report += line + '\n';
      continue;
    }
    const std::size_t end = line.find(':', begin);
    const std::size_t name = begin + word.size();
    boost::filesystem::path path(repository + line.substr(name, end - name));
    if (end != name) path.make_preferred();
    report += line.substr(0, begin) + path.string() + line.substr(end) + '\n';
  }
  return report;
}

TEST(LintSampleTest, ReportIsTheExpectedOne) {
  for (const char* target : {"windows", "posix"}) {
    const Outcome outcome = RunCli({"lint", repository, "--target", target});
    EXPECT_EQ(outcome.status, 1);
    std::string report = ExpectedReport();
    report.replace(report.size() - 2, 2, ReadAs(target) + ".\n");
    EXPECT_EQ(outcome.out, report) << target;
  }
}

}  // namespace
}  // namespace Vornik::Testing
