// Why one pack is chosen and the others are not, with packs in an order of the test's own.
#include "descriptors.h"
#include "model/pack_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Vornik::Testing {
namespace {

// Packs of one version each that all apply to machine type 1234; an empty version is none.
std::vector<KovuPackEntry> Packs(const std::vector<std::string>& versions) {
  std::vector<KovuPackEntry> packs;
  for (const std::string& version : versions) {
    const std::string name = std::string("p") + static_cast<char>('0' + packs.size()) + ".xml";
    Descriptor own;
    own.Set("applicableMachineTypes", {"1234"}).Set("applicableOperatingSystems", {"0"});
    if (!version.empty()) own.Set("Version", version);
    packs.push_back({name, {{name, own.Properties()}}});
  }
  return packs;
}

std::vector<std::string> TextsOf(const std::vector<std::string>& versions) {
  const auto packs = Packs(versions);
  const OsValue system = static_cast<OsValue>(10);
  const auto results = EvaluatePacks(packs, "1234", system);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < packs.size(); ++i) {
    texts.push_back(Cli::TextOf(packs, results, i, "1234", system));
  }
  return texts;
}

const char* const chosen = "it is the one chosen for the machine";

TEST(ExplainPacksTest, OnlyPackIsChosen) {
  EXPECT_THAT(TextsOf({"1"}), testing::ElementsAre(chosen));
}

TEST(ExplainPacksTest, VersionOfTheFirstIsNeverCompared) {
  EXPECT_THAT(TextsOf({"2.0", "1.0"}),
              testing::ElementsAre("it applies and was found first, but the version of the pack "
                                   "found first is never compared: p1.xml with the version \"1.0\" "
                                   "displaced it",
                                   chosen));
}

TEST(ExplainPacksTest, PackWithoutAVersionDisplacesNone) {
  EXPECT_THAT(TextsOf({"1", ""}),
              testing::ElementsAre(chosen,
                                   "it applies, but without a \"Version\" it cannot displace "
                                   "p0.xml, found before"));
}

TEST(ExplainPacksTest, LaterVersionsAreComparedAsFoldedText) {
  EXPECT_THAT(TextsOf({"2.0", "1.0", "1.5", "1.5", "1.45"}),
              testing::ElementsAre(
                  testing::HasSubstr("p1.xml with the version \"1.0\" displaced it"),
                  "it applies, but p2.xml displaced it: compared as text, its version \"1.0\" is "
                  "smaller than \"1.5\"",
                  chosen,
                  "it applies, but did not displace p2.xml: compared as text, its version \"1.5\" "
                  "is not greater than \"1.5\"",
                  "it applies, but did not displace p2.xml: compared as text, its version \"1.45\" "
                  "is not greater than \"1.5\""));
  EXPECT_EQ(TextsOf({"x", "B", "a"})[2],
            "it applies, but did not displace p1.xml: compared as text, its version \"a\" is not "
            "greater than \"B\" (as \"b\")");
}

}  // namespace
}  // namespace Vornik::Testing
