// Random folders: each reason that explain gives, and each reason why there is no package, is what
// a plain reading of the rules says.
#include <algorithm>
#include <map>

#include "explain/explain.h"
#include "explain/written_folder.h"
#include "plain_absence.h"
#include "plain_reasons.h"
#include "random_folder.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

using Texts = std::vector<std::string>;

// One line for each reason, so that two lists of them can be compared.
std::string LineOf(const PlainFilterReason& reason) {
  return reason.filter + " " + std::to_string(reason.status) + " " + reason.word + " by " +
         reason.file + " at " + reason.place.file + ":" + std::to_string(reason.place.line);
}

std::string LineOf(const Cli::FilterExplanation& filter) {
  return LineOf({Cli::FilterOf(filter.filter).name,
                 filter.status,
                 filter.reason,
                 filter.file,
                 {filter.place.file, filter.place.line}});
}

std::string LineOf(const PlainAbsence& reason) {
  return reason.word + " of " + reason.code + " in " + reason.file;
}

std::string LineOf(const Cli::AbsenceReason& reason) {
  return LineOf(PlainAbsence{reason.reason, reason.code, reason.file});
}

template <typename Reason>
Texts LinesOf(const std::vector<Reason>& reasons) {
  Texts lines;
  for (const Reason& reason : reasons) lines.push_back(LineOf(reason));
  return lines;
}

class ExplainReasonsTest : public testing::Test {
 protected:
  void Run() {
    const TestRandom test;
    RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
    random.SetFileNames({"a.xml", "b.xml", "c.d.xml", "none.xml", "sub/s.xml", ""},
                        {"p.exe", "sub/r.exe", "none.exe", "sub", "a.xml", ""});
    const std::size_t rounds = test.Rounds(250);
    for (std::size_t round = 0; round < rounds; ++round) {
      SCOPED_TRACE(round);
      ASSERT_NO_FATAL_FAILURE(RunOne(random));
    }
    if (!test.RunsAllRounds()) return;
    EXPECT_GE(words_.size(), 49U) << testing::PrintToString(words_);
  }

 private:
  void RunOne(RandomRepository& random) {
    const TempFolder folder;
    const WrittenFolder written = WriteRandomFolder(random, folder);
    QueryPackageImp query;
    do {
      random.Configure(query);
      query.xmlPackageFolder = folder.Path();
    } while (!Cli::HasValidParameters(SettingsOf(query)));
    const PlainOutcome outcome = PlainRunQuery(query, written.plain, {});
    const PlainFacts facts{query, written.plain, outcome.records};
    ASSERT_NO_FATAL_FAILURE(Compare(facts, outcome.code, written));
  }

  void Compare(const PlainFacts& facts, int code, const WrittenFolder& written) {
    const Cli::QuerySettings settings = SettingsOf(facts.query);
    const Cli::FolderReading reading = Cli::ReadFolder(settings.folder);
    Cli::QueryModel model(reading, settings.folder);
    const Cli::Evaluation evaluation = model.Evaluate(settings);
    const Cli::LibraryRun run = Cli::RunLibrary(settings);
    ASSERT_EQ(run.code, code);
    const Cli::EvaluatedQuery query{settings, run, model, evaluation};
    for (const std::string& id : IdsFor(written)) {
      SCOPED_TRACE("id \"" + id + "\"");
      const Cli::Explanation explanation = Cli::Explain(query, id);
      for (const Cli::PackageExplanation& package : explanation.packages) {
        ASSERT_NO_FATAL_FAILURE(CompareFilters(facts, package));
      }
      ASSERT_NO_FATAL_FAILURE(CompareAbsence(facts, written, explanation));
    }
  }

  void CompareFilters(const PlainFacts& facts, const Cli::PackageExplanation& package) {
    const auto record =
        std::find_if(facts.records.begin(), facts.records.end(), [&package](const auto& candidate) {
          return candidate.identificationCode == package.record.identificationCode;
        });
    ASSERT_NE(record, facts.records.end());
    const std::vector<PlainFilterReason> plain = PlainFilterReasons(facts, *record);
    ASSERT_EQ(LinesOf(package.filters), LinesOf(plain));
    for (const PlainFilterReason& reason : plain) ++words_[reason.filter + " " + reason.word];
  }

  // Reasons that apply are given in no particular order.
  void CompareAbsence(const PlainFacts& facts, const WrittenFolder& written,
                      const Cli::Explanation& explanation) {
    const auto plain = PlainAbsenceOf(facts, written.unread, explanation.packageId);
    Texts expected = LinesOf(plain);
    Texts given = LinesOf(explanation.absence);
    std::sort(expected.begin(), expected.end());
    std::sort(given.begin(), given.end());
    ASSERT_EQ(given, expected);
    for (const PlainAbsence& reason : plain) ++words_["absence " + reason.word];
  }

  std::map<std::string, std::size_t> words_;
};

// In parts, so that they can run at the same time: a thousand folders in all.
class ExplainReasonsParts : public ExplainReasonsTest, public testing::WithParamInterface<int> {};

TEST_P(ExplainReasonsParts, AreThoseOfThePlainRules) { Run(); }

INSTANTIATE_TEST_SUITE_P(Part, ExplainReasonsParts, testing::Range(0, 4));

}  // namespace
}  // namespace Vornik::Testing
