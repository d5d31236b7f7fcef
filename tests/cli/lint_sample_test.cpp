// The lint report of the sample repository. Whoever changes the repository or a finding checks
// every line of the new report.
#include "lint_fixture.h"

namespace Vornik::Testing {
namespace {

const std::string repository = QUERYPACKAGE_SOURCE_DIR "/examples/repository";

// The report's paths name the folder by a word.
std::string ExpectedReport() {
  std::string report = ReadFile(QUERYPACKAGE_SOURCE_DIR "/tests/cli/lint_sample_report.txt");
  const std::string word = "{folder}/";
  constexpr char separator = static_cast<char>(boost::filesystem::path::preferred_separator);
  for (std::size_t at = report.find(word); at != std::string::npos; at = report.find(word, at)) {
    report.replace(at, word.size(), repository + separator);
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
