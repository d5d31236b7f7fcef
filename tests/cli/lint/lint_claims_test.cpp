// What findings claim about a query, against a query of the same folder.
#include <algorithm>
#include <functional>

#include "lint/lint.h"
#include "lint/lint_fixture.h"

namespace Vornik::Testing {
namespace {

using Holds = std::function<bool(const Json& record)>;

// A claim is recognised by its words. It is about the records of the finding's file; null: there is
// none of them.
struct Claim {
  const char* words;
  Holds holds;
};

Holds Has(const char* status, int value) {
  return [status, value](const Json& record) { return record[status] == value; };
}

const std::vector<Claim>& Claims() {
  static const std::vector<Claim> claims{
      {"regular file that can be read, so it gives no package", nullptr},
      {"has no element that can be read, so it gives no package", nullptr},
      {"no PROPERTY.ARRAY, so it gives no package", nullptr},
      {"so nothing of it is read", nullptr},
      {"The document does not load", nullptr},
      {"so it is no descriptor", nullptr},
      {"so no query reads the file", nullptr},
      {"so no query reads it", nullptr},
      {"subfolders are not searched", nullptr},
      {"so the pack never applies", nullptr},
      {"so the payload filter refuses the package", Has("payloadExistFilterStatus", 2)},
      {"is no regular file of the folder", Has("payloadExistFilterStatus", 2)},
      {"so the platform filter cannot judge the package", Has("platformFilterStatus", 0)},
      {"so the update-type filter cannot judge the package", Has("updateTypeFilterStatus", 0)},
      {"so no filter finds the package's properties",
       [](const Json& record) {
         return record["platformFilterStatus"] == 0 && record["payloadExistFilterStatus"] == 2;
       }},
      {"so the Kovu filter refuses it", Has("kovuFilterStatus", 2)},
      {"is not four digits, so no machine has it", Has("platformFilterStatus", 2)},
      {"so this package is superseded instead", Has("supersedeFilterStatus", 2)},
      {"is no number: \"type\"", Has("updateTypeFilterStatus", 2)},
  };
  return claims;
}

bool EndsInName(const Json& path, const std::string& name) {
  return boost::filesystem::path(path.get<std::string>()).filename().string() == name;
}

class LintClaimTest : public LintTest {
 protected:
  // None where a query is refused or finds nothing.
  Json Records() {
    const Outcome outcome = Query({"--update-type", "1", "--format", "json"});
    const Json document = Json::parse(outcome.out, nullptr, false);
    return document.is_object() && document.contains("records") ? document["records"]
                                                                : Json::array();
  }

  // Of the finding's package, or of its file where it is about no package with a code.
  static bool IsAbout(const Cli::LintFinding& finding, const Json& record) {
    if (!finding.code.empty()) return record["identificationCode"] == finding.code;
    return EndsInName(record["packageXmlFile"], finding.file) ||
           EndsInName(record["kovuXmlFile"], finding.file);
  }

  // How many records were looked at; for a claim that there is none, one.
  static std::size_t Check(const Claim& claim, const Cli::LintFinding& finding,
                           const Json& records) {
    std::size_t checked = claim.holds == nullptr ? 1 : 0;
    for (const Json& record : records) {
      if (!IsAbout(finding, record)) continue;
      ++checked;
      EXPECT_TRUE(claim.holds != nullptr && claim.holds(record)) << finding.text << record;
    }
    return checked;
  }
};

TEST_F(LintClaimTest, EachClaimIsTrueOfAQuery) {
  std::map<std::string, std::size_t> checked;
  for (const LintCase& one : AllLintCases()) {
    SCOPED_TRACE(one.id + " " + one.what);
    boost::filesystem::remove_all(folder.Path());
    boost::filesystem::create_directory(folder.Path());
    WriteFiles(one.faulty);
    const Json records = Records();
    for (const auto& finding : Cli::Lint({folder.Path(), Cli::nativeTarget}).findings) {
      for (const Claim& claim : Claims()) {
        if (finding.text.find(claim.words) == std::string::npos) continue;
        checked[claim.words] += Check(claim, finding, records);
      }
    }
  }
  for (const Claim& claim : Claims()) EXPECT_GT(checked[claim.words], 0U) << claim.words;
}

}  // namespace
}  // namespace Vornik::Testing
