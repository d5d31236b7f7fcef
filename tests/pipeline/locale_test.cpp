// Locales that change while a query runs: every comparison follows the one in force when it is
// made.
#include "global_locale.h"
#include "query_fixture.h"
#include "recording_callback.h"

#ifndef _WIN32
#include "turkish_c_locale.h"
#endif

namespace Vornik::Testing {
namespace {

class LocaleTest : public QueryTest {
 protected:
  LocaleTest() : guard_(std::locale::classic()) {}

  static void FoldOnlyXToY() {
    std::locale::global(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  }

 private:
  GlobalLocaleGuard guard_;
};

TEST_F(LocaleTest, IdListsFollowTheGlobalLocaleOfTheFilter) {
  WriteIndividual("X.xml");
  WriteIndividual("z.xml");
  imp.includePackageIds = {"y", "Z"};
  RecordingCallback callback(FoldOnlyXToY);
  imp.queryCallback = &callback;
  ASSERT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(Codes(), (Lines{"X", "z"}));
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].includeIdFilterStatus, FilterStatus::NotMatched);
}

TEST_F(LocaleTest, SupersedeListsFollowTheGlobalLocaleOfTheFilter) {
  WriteIndividual("X.xml");
  WriteIndividual("z.xml", Descriptor().Set("supersede", {"y"}));
  RecordingCallback callback(FoldOnlyXToY);
  imp.queryCallback = &callback;
  ASSERT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(Codes(), (Lines{"X", "z"}));
  EXPECT_EQ(results[0].supersededById, "z");
}

TEST_F(LocaleTest, PropertyNamesDoNotFollowTheGlobalLocale) {
  FoldOnlyXToY();
  folder.Write("a.xml", Descriptor("a").Set("DESCRIPTION", "text").Individual());
  ASSERT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).description, "text");
}

TEST_F(LocaleTest, LogMayChangeTheLocaleBetweenTwoRecords) {
  WriteIndividual("X.xml");
  WriteIndividual("Y.xml");
  imp.includePackageIds = {"x", "Y"};
  RecordingLog::OnRecord([](const LogEntry& entry) {
    if (entry.text == "X IncludeId Filter is matched!") FoldOnlyXToY();
  });
  ASSERT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(Codes(), (Lines{"X", "Y"}));
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].includeIdFilterStatus, FilterStatus::Matched);
}

#ifndef _WIN32

TEST_F(LocaleTest, PropertyNamesFollowTheCLibrarysLocaleOfTheFilter) {
  folder.Write("a.xml", Descriptor()
                            .Set("IDENTIFICATIONCODE", "a")
                            .For("1234", "10", "9")
                            .Set("TYPE", "3")
                            .Individual());
  imp.updateTypes = {static_cast<UpdateType>(3)};
  const TurkishCLocale locale;
  RecordingCallback callback([&locale] { ASSERT_TRUE(locale.Set()); });
  imp.queryCallback = &callback;
  ASSERT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(Codes(), Lines{"a"}) << "built before the locale changed";
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::NotEvaluated) << "not found any more";
}

#endif

}  // namespace
}  // namespace Vornik::Testing
