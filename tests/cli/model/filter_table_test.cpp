// The table of filters is complete: a slot or a setter of the public header that it lacks fails.
#include "model/filter_table.h"
#include "project_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace Vornik::Testing {
namespace {

using Cli::Filter;
using testing::ElementsAreArray;
using testing::SizeIs;
using testing::UnorderedElementsAreArray;

std::string PublicHeader() {
  std::ifstream file(ProjectFile("include/QueryPackage.h"));
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// The names in the public header that follow a text and end before another one, in order.
std::vector<std::string> NamesBetween(const std::string& before, char after) {
  const std::string header = PublicHeader();
  std::vector<std::string> names;
  for (std::size_t at = header.find(before); at != std::string::npos;
       at = header.find(before, at)) {
    at += before.size();
    names.push_back(header.substr(at, header.find(after, at) - at));
  }
  return names;
}

std::string InLowerCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

TEST(FilterTableTest, RowsAreInTheOrderOfTheirIds) {
  for (std::size_t i = 0; i < Cli::Filters().size(); ++i) {
    EXPECT_EQ(Cli::Filters()[i].id, static_cast<Cli::FilterId>(i));
  }
}

TEST(FilterTableTest, EveryRowSaysWhatEvaluatesAndExplainsTheFilter) {
  for (const Filter& filter : Cli::Filters()) {
    SCOPED_TRACE(filter.name);
    EXPECT_STRNE(filter.name, "");
    EXPECT_STRNE(filter.rule, "");
    EXPECT_NE(filter.explain, nullptr);
    const bool looksAtOthers =
        filter.id == Cli::FilterId::Duplicate || filter.id == Cli::FilterId::Supersede;
    EXPECT_EQ(filter.evaluate == nullptr, looksAtOthers);
    const bool isIndependent =
        filter.setting && filter.setting->dependence == Cli::Dependence::Independent;
    EXPECT_TRUE(!isIndependent || filter.evaluate != nullptr);
  }
}

TEST(FilterTableTest, EverySlotOfARecordHasOneRow) {
  std::vector<std::string> names;
  QueryPackageResult record;
  std::set<const std::uint32_t*> slots;
  for (const Filter& filter : Cli::Filters()) {
    if (filter.slot == nullptr) continue;
    names.emplace_back(filter.slotName);
    slots.insert(&(record.*filter.slot));
    EXPECT_STRNE(filter.column, "") << filter.name;
  }
  EXPECT_THAT(names, ElementsAreArray(NamesBetween("\n  std::uint32_t ", ' ')));
  EXPECT_THAT(slots, SizeIs(names.size()));
}

TEST(FilterTableTest, EverySetterOfAFilterHasOneSetting) {
  const std::set<std::string> others{"xmlpackagefolder", "platform", "querycallback"};
  std::vector<std::string> setters;
  for (const std::string& name : NamesBetween("void Set", '(')) {
    if (others.count(InLowerCase(name)) == 0) setters.push_back(InLowerCase(name));
  }
  ASSERT_FALSE(setters.empty());
  std::vector<std::string> settings;
  for (const Filter* filter : Cli::FiltersWithSetting()) {
    settings.push_back(InLowerCase(filter->setting->name));
  }
  EXPECT_THAT(settings, UnorderedElementsAreArray(setters));
}

TEST(FilterTableTest, EveryRowWithASettingIsAmongThem) {
  std::vector<const Filter*> rows;
  for (const Filter& filter : Cli::Filters()) {
    if (filter.setting) rows.push_back(&filter);
  }
  EXPECT_THAT(Cli::FiltersWithSetting(), UnorderedElementsAreArray(rows));
}

TEST(FilterTableTest, MembersOfSettingsAreDistinct) {
  Cli::QuerySettings settings;
  std::set<const void*> members;
  for (const Filter* filter : Cli::FiltersWithSetting()) {
    members.insert(std::visit(
        [&settings](auto member) { return static_cast<const void*>(&(settings.*member)); },
        filter->setting->member));
  }
  EXPECT_THAT(members, SizeIs(Cli::FiltersWithSetting().size()));
}

}  // namespace
}  // namespace Vornik::Testing
