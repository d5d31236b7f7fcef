// The rule that the example hosts share says what the command line says.
#include "should_offer.h"

#include <gtest/gtest.h>

#include <map>

#include "model/answer.h"
#include "model/library_run.h"
#include "random_folder.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

FiltersThatRan FiltersOf(const Cli::QuerySettings& settings) {
  FiltersThatRan filters;
  filters.kovu = settings.kovuFilter;
  filters.sep = settings.sepFilter;
  filters.payloadExist = settings.payloadExistFilter;
  filters.supersede = settings.supersedeFilter;
  filters.includeIds = !settings.includePackageIds.empty();
  filters.excludeIds = !settings.excludePackageIds.empty();
  filters.updateTypes = !settings.updateTypes.empty();
  return filters;
}

Cli::Answer AnswerOf(Offer offer) {
  if (offer == Offer::Yes) return Cli::Answer::Offered;
  return offer == Offer::No ? Cli::Answer::Refused : Cli::Answer::Undecided;
}

class ShouldOfferTest : public RandomFolderTest {};

TEST_F(ShouldOfferTest, IsTheColumnOffered) {
  const TestRandom test;
  RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
  std::map<Cli::Answer, int> answers;
  for (std::size_t round = test.Rounds(150); round != 0; --round) {
    SCOPED_TRACE(round);
    WriteRepository(random);
    const Cli::QuerySettings settings = ValidSettings(random);
    for (const QueryPackageResult& package : Cli::RunLibrary(settings).records) {
      const Cli::Answer answer = Cli::AnswerFor(package, settings).answer;
      ASSERT_EQ(AnswerOf(ShouldOffer(package, FiltersOf(settings))), answer)
          << package.identificationCode;
      ++answers[answer];
    }
  }
  if (!test.RunsAllRounds()) return;
  EXPECT_EQ(answers.size(), 3U);
}

TEST_F(ShouldOfferTest, WithoutFurtherSettingsFourFiltersRunBesideThePlatform) {
  QueryPackageResult package;
  package.platformFilterStatus = FilterStatus::Matched;
  package.kovuFilterStatus = FilterStatus::Matched;
  package.sepFilterStatus = FilterStatus::Matched;
  package.payloadExistFilterStatus = FilterStatus::Matched;
  EXPECT_EQ(ShouldOffer(package), Offer::Undecided);
  package.supersedeFilterStatus = FilterStatus::Matched;
  EXPECT_EQ(ShouldOffer(package), Offer::Yes);
  package.sepFilterStatus = FilterStatus::NotMatched;
  EXPECT_EQ(ShouldOffer(package), Offer::No);
}

}  // namespace
}  // namespace Vornik::Testing
