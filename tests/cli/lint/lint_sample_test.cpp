// The lint report of the sample repository. Whoever changes the repository or a finding checks
// every line of the new report.
#include "lint/lint_fixture.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

const std::string repository = ProjectFile("examples/repository");

// The report's lines begin with a path, and the path names the folder by a word.
std::string ExpectedReport() {
  const std::string word = "{folder}";
  std::string report;
  for (const std::string& line :
       LinesOf(ReadFile(ProjectFile("tests/cli/lint/lint_sample_report.txt")))) {
    if (line.compare(0, word.size(), word) != 0) {
      report += line + '\n';
      continue;
    }
    const std::size_t end = line.find(':');
    boost::filesystem::path path(repository + line.substr(word.size(), end - word.size()));
    report += path.make_preferred().string() + line.substr(end) + '\n';
  }
  return report;
}

TEST(LintSampleTest, ReportIsTheExpectedOne) {
  for (const char* target : {"windows", "posix"}) {
    const Outcome outcome = RunCli({"lint", repository, "--target", target});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, ExpectedReport()) << target;
  }
}

}  // namespace
}  // namespace Vornik::Testing
