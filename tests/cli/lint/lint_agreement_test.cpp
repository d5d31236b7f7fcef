// Lint against what a query reads: the same folders, seen by both.
#include <algorithm>

#include "filters/payload_exist.h"
#include "lint/lint.h"
#include "lint/lint_fixture.h"
#include "model/folder_reading.h"
#include "model/hazard_check.h"

namespace Vornik::Testing {
namespace {

using Cli::LintId;
using Ids = std::set<LintId>;

class LintAgreementTest : public LintTest {
 protected:
  Cli::LintResult LintNatively() { return Cli::Lint({folder.Path(), Cli::nativeTarget, {}}); }
};

// The findings of which a file that adds nothing has one.
Ids IdsOf(const DescriptorReading& reading) {
  if (reading.kind == DescriptorKind::Neither) {
    return {LintId::NoMarker,     LintId::MarkerSplit, LintId::MarkerStraddles,
            LintId::MarkerHidden, LintId::Utf16,       LintId::NotReadable};
  }
  if (IsLoadFault(reading.fault)) return {LintId::NotWellFormed, LintId::OverLimits};
  switch (reading.fault) {
    case DescriptorFault::NoRoot:
      return {LintId::NoRoot};
    case DescriptorFault::NoProperties:
      return {LintId::NoProperties};
    case DescriptorFault::NoInstances:
      return {LintId::NoInstances};
    case DescriptorFault::InstanceWithoutClassName:
      return {LintId::InstanceMisfit};
    default:
      return {};
  }
}

const Ids lossOfAFile{LintId::NoMarker,      LintId::Utf16,       LintId::NotReadable,
                      LintId::NotWellFormed, LintId::OverLimits,  LintId::NoRoot,
                      LintId::NoProperties,  LintId::NoInstances, LintId::InstanceMisfit};

bool HasOne(const Cli::LintResult& result, const std::string& file, const Ids& ids) {
  return std::any_of(result.findings.begin(), result.findings.end(), [&](const auto& finding) {
    return finding.file == file && ids.count(finding.id) != 0;
  });
}

void ExpectSameFiles(const Cli::LintResult& result, const Cli::FolderReading& reading) {
  EXPECT_EQ(result.files, reading.files.size());
  for (const Cli::RepositoryFile& file : reading.files) {
    const bool isLost = file.reading.fault != DescriptorFault::None;
    const Ids ids = isLost ? IdsOf(file.reading) : lossOfAFile;
    EXPECT_EQ(HasOne(result, file.name, ids), isLost) << file.name;
  }
}

void ExpectSamePayloads(const Cli::LintResult& result, const Cli::FolderReading& reading,
                        const std::string& folder) {
  const Ids missing{LintId::PayloadMissing, LintId::XmlFilenameMissingFile};
  Ids refused{LintId::PropertyMissing, LintId::PropertyEmpty, LintId::PayloadOutside,
              LintId::NameInvalid, LintId::SeparatorForeign};
  refused.insert(missing.begin(), missing.end());
  for (const PackageXmlEntry& entry : reading.repository.packageXmlEntries()) {
    const std::string name = boost::filesystem::path(entry.xmlFile).filename().string();
    if (EvaluatePayload(entry.properties, folder) == PayloadVerdict::Found) {
      EXPECT_FALSE(HasOne(result, name, missing)) << name;
    } else {
      EXPECT_TRUE(HasOne(result, name, refused)) << name;
    }
  }
}

void ExpectSameHazard(const Cli::LintResult& result, const std::string& folder) {
  const Cli::QuerySettings settings = SettingsFor(folder);
  const auto hazard = Cli::FindHazard(settings, Cli::ReadContentsOf(settings));
  const bool isNamed =
      std::any_of(result.findings.begin(), result.findings.end(), [](const auto& finding) {
        return finding.id == LintId::InstanceMisfit || finding.id == LintId::ClassificationsMissing;
      });
  EXPECT_EQ(isNamed, hazard.has_value());
}

TEST_F(LintAgreementTest, EachCaseIsSeenAsAQuerySeesIt) {
  for (const LintCase& one : AllLintCases()) {
    for (const LintFiles& files : {one.faulty, one.sound}) {
      SCOPED_TRACE(one.id + " " + one.what);
      boost::filesystem::remove_all(folder.Path());
      boost::filesystem::create_directory(folder.Path());
      WriteFiles(files);
      const Cli::LintResult result = LintNatively();
      const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
      ExpectSameFiles(result, reading);
      ExpectSamePayloads(result, reading, folder.Path());
      ExpectSameHazard(result, folder.Path());
    }
  }
}

TEST_F(LintAgreementTest, AllCasesInOneFolderAreSeenAsAQuerySeesThem) {
  for (const LintCase& one : AllLintCases()) WriteFiles(one.faulty);
  const Cli::LintResult result = LintNatively();
  const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
  ExpectSameFiles(result, reading);
  ExpectSamePayloads(result, reading, folder.Path());
}

// The folder's packages that a query keeps, against those that lint says are superseded.
TEST_F(LintAgreementTest, PackageOfTheLowerNumberIsKeptWhereVersionOrderSaysSo) {
  const auto text = [](const std::string& code, const std::string& version) {
    return PutValue(PutValues(SoundText(code), "driverFiles", {"one.sys-#1"}), "Version", version);
  };
  WriteFiles(PackageFiles("a", text("a", "10.1")) + PackageFiles("b", text("b", "9.0")));
  EXPECT_EQ(PlacesOf("version-order").size(), 1U);
  const Json records = QueryJson()["records"];
  for (const Json& record : records) {
    EXPECT_EQ(record["supersedeFilterStatus"], record["identificationCode"] == "b" ? 1 : 2);
  }
}

// A query finds the record of a code without regard to case, so both codes stand for one package.
TEST_F(LintAgreementTest, PackageIsNotComparedWithItself) {
  const auto text = [](const std::string& file, const std::string& code) {
    return PutValues(PutValue(SoundText(file), "identificationCode", code), "driverFiles",
                     {"one.sys-#1"});
  };
  WriteFiles(PackageFiles("a", text("a", "CODE")) + PackageFiles("b", text("b", "code")));
  EXPECT_EQ(PlacesOf("code-case").size(), 2U);
  EXPECT_EQ(PlacesOf("version-equal"), std::vector<std::string>());
}

}  // namespace
}  // namespace Vornik::Testing
