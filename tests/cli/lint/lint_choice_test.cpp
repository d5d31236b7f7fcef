// What lint says about competing packs, against the choice in every order of the folder's listing.
#include <algorithm>

#include "lint/lint.h"
#include "lint/lint_fixture.h"
#include "records/pack_selection.h"

namespace Vornik::Testing {
namespace {

using Files = std::set<std::string>;
using Versions = std::vector<std::string>;  // an empty one is missing

constexpr std::size_t maxPacks = 4;

std::string FileOf(std::size_t pack) { return "p" + std::to_string(pack) + ".xml"; }

SupXmlProperties LevelOf(const std::string& version) {
  SupXmlProperties level;
  if (!version.empty()) level.push_back({"Version", "string", {version}});
  return level;
}

// For each pack that the listing has first, the packs that are chosen in some order.
std::vector<Files> ChosenByFirst(const Versions& versions) {
  std::vector<SupXmlProperties> levels;
  std::vector<std::size_t> order;
  for (const std::string& version : versions) {
    order.push_back(levels.size());
    levels.push_back(LevelOf(version));
  }
  std::vector<Files> chosen(versions.size());
  do {
    std::vector<const SupXmlProperties*> listed;
    for (const std::size_t pack : order) listed.push_back(&levels[pack]);
    chosen[order.front()].insert(FileOf(order[ChosenPack(ChoosePack(listed)).value()]));
  } while (std::next_permutation(order.begin(), order.end()));
  return chosen;
}

std::string Join(const Files& files) {
  std::string text = files.size() == 1 ? "" : "one of ";
  for (const std::string& file : files) {
    if (file != *files.begin()) text += ", ";
    text += file;
  }
  return text;
}

// The ends of all sentences that are true of these choices.
std::vector<std::string> TrueSentences(const std::vector<Files>& byFirst) {
  Files all;
  for (const Files& files : byFirst) all.insert(files.begin(), files.end());
  if (all.size() == 1) return {*all.begin() + " is used."};
  std::vector<std::string> sentences{Join(all) + " is used; the folder's listing decides which."};
  bool isTheFirst = true;
  for (std::size_t i = 0; i < byFirst.size(); ++i) {
    const Files self{FileOf(i)};
    isTheFirst &= byFirst[i] == self;
    bool isUsual = true;
    for (std::size_t k = 0; k < byFirst.size(); ++k) isUsual &= k == i || byFirst[k] == self;
    if (!isUsual) continue;
    sentences.push_back(FileOf(i) + " is used, or " + Join(byFirst[i]) +
                        " if the folder's listing has " + FileOf(i) + " first.");
  }
  if (isTheFirst) sentences = {"the one that the folder's listing has first is used."};
  return sentences;
}

class LintChoiceTest : public LintTest {
 protected:
  std::string Sentence(const Versions& versions) {
    for (std::size_t i = 0; i < maxPacks; ++i) {
      boost::filesystem::remove(boost::filesystem::path(folder.Path()) / FileOf(i));
    }
    for (std::size_t i = 0; i < versions.size(); ++i) {
      const std::string own = OwnInstance(FileOf(i));
      folder.Write(FileOf(i),
                   PackText({versions[i].empty() ? Drop(own, "Version")
                                                 : PutValue(own, "Version", versions[i])}));
    }
    for (const auto& finding : Cli::Lint({folder.Path(), Cli::nativeTarget}).findings) {
      if (finding.id != Cli::LintId::PacksCompete) continue;
      return finding.text.substr(finding.text.find("Of these, ") + 10);
    }
    return "no finding";
  }
};

// Each list of as many versions, of which some are equal and some missing.
std::vector<Versions> AllVersions(std::size_t packs) {
  std::vector<Versions> all{{}};
  for (std::size_t i = 0; i < packs; ++i) {
    std::vector<Versions> longer;
    for (const Versions& versions : all) {
      for (const char* version : {"", "10.1", "9.0", "A", "a"}) {
        longer.push_back(versions);
        longer.back().emplace_back(version);
      }
    }
    all = std::move(longer);
  }
  return all;
}

TEST_F(LintChoiceTest, SentenceIsTrueInEveryOrderOfTheListing) {
  for (std::size_t packs = 2; packs <= maxPacks; ++packs) {
    for (const Versions& versions : AllVersions(packs)) {
      EXPECT_THAT(TrueSentences(ChosenByFirst(versions)), testing::Contains(Sentence(versions)))
          << testing::PrintToString(versions);
    }
  }
}

}  // namespace
}  // namespace Vornik::Testing
