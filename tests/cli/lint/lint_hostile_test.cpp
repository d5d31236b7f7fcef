// Folders that are made to hang or crash whoever reads them.
#include <boost/filesystem.hpp>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "lint/lint_fixture.h"
#include "repeat.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;

class LintHostileTest : public LintTest {
 protected:
  // Lints the file beside a sound package, which keeps its good name.
  Json LintBesideSound(const std::string& bytes) {
    WriteFiles(SoundPackage("sound") + LintFiles{{"hostile.xml", bytes}});
    // A hostile pack does not list the sound package.
    Json document = LintJson({"--ignore", "package-unlisted", "--ignore", "files-unnamed"});
    for (const Json& finding : document["findings"]) EXPECT_NE(finding["file"], "sound.xml");
    return document;
  }
};

const std::string marked = "<!-- SystemUpdateElement -->\n";
const std::string packMarked = "<!-- ORXQDL_SystemUpdateProduct -->\n";

TEST_F(LintHostileTest, DeepNestingIsOverTheLimits) {
  for (const std::string& end : {Repeat("</a>", 200'000), std::string()}) {
    const Json document = LintBesideSound(marked + Repeat("<a>", 200'000) + end);
    EXPECT_THAT(IdsIn(document), ElementsAre("over-limits"));
  }
}

TEST_F(LintHostileTest, ManyAttributesAreOverTheLimits) {
  std::string element = "<a";
  for (int i = 0; i < 64'000; ++i) element += " b" + std::to_string(i) + "=''";
  EXPECT_THAT(IdsIn(LintBesideSound(marked + element + "/>")), ElementsAre("over-limits"));
}

TEST_F(LintHostileTest, LongLineIsReadThrough) {
  const std::string line(20'000'000, 'x');
  EXPECT_EQ(IdsIn(LintBesideSound(marked + "<a>" + line + "</a>")).count("no-properties"), 1U);
  EXPECT_THAT(IdsIn(LintBesideSound("<a>" + line + "</a>")), ElementsAre("no-marker"));
}

TEST_F(LintHostileTest, ManyLineBreaksAreReadThrough) {
  EXPECT_THAT(IdsIn(LintBesideSound("<a>" + Repeat("\n ", 5'000'000) + "</a>")),
              ElementsAre("no-marker"));
}

TEST_F(LintHostileTest, TextThatEndsInsideACharacterHasAFinding) {
  for (const char* end : {"\xC3", "\xE2\x80", "\xF0\x9F\x98", "\xEF"}) {
    const Json document = LintBesideSound(marked + "<a>" + end);
    EXPECT_THAT(IdsIn(document), ElementsAre("not-well-formed"));
  }
}

TEST_F(LintHostileTest, ZeroBytesAnywhereHaveAFinding) {
  const std::string text = SoundText("hostile");
  WriteFiles(SoundPackage("hostile"));
  ASSERT_EQ(LintBesideSound(text)["findings"], Json::array());
  for (std::size_t at = 0; at + 1 < text.size(); at += 29) {
    std::string cut = text;
    cut[at] = '\0';
    EXPECT_FALSE(LintBesideSound(cut)["findings"].empty()) << at;
  }
}

TEST_F(LintHostileTest, DocumentTypeWithEntitiesHidesTheRoot) {
  EXPECT_THAT(
      IdsIn(LintBesideSound(marked + "<!DOCTYPE x [<!ENTITY a \"b\"><!ENTITY c \"&a;&a;\">]>\n"
                                     "<CIM>&c;</CIM>")),
      ElementsAre("no-root"));
}

TEST_F(LintHostileTest, ManyPropertiesAreCounted) {
  const Json document = LintBesideSound(
      marked + "<a>" + Repeat("<PROPERTY NAME='type'><VALUE>x&y</VALUE></PROPERTY>", 200'000) +
      "</a>");
  EXPECT_EQ(PlacesIn(document, "property-repeated").size(), 100U);
  EXPECT_EQ(PlacesIn(document, "ampersand-lost").size(), 100U);
}

TEST_F(LintHostileTest, LongListsOfBadValuesAreCounted) {
  const std::string values = Repeat("<VALUE>x</VALUE>", 100'000);
  std::string text = marked + "<a>";
  for (const char* list : {"orderedMachineTypeList", "orderedOSList", "orderedOSArchitectureList",
                           "driverFiles", "supersede"}) {
    text += "<PROPERTY.ARRAY NAME='" + std::string(list) + "'><VALUE.ARRAY>" + values +
            "</VALUE.ARRAY></PROPERTY.ARRAY>";
  }
  const Json document = LintBesideSound(text + "</a>");
  for (const char* id : {"machine-type-invalid", "platform-not-number", "driver-file-unparsed",
                         "supersede-unknown"}) {
    EXPECT_EQ(PlacesIn(document, id).size(), 100U) << id;
  }
}

TEST_F(LintHostileTest, NestedInstancesAreRead) {
  const std::string properties = Repeat("<PROPERTY NAME='p'><VALUE>1</VALUE></PROPERTY>", 1'000);
  const Json document =
      LintBesideSound(packMarked + "<a>" + Repeat("<INSTANCE CLASSNAME='x'>", 900) + properties +
                      Repeat("</INSTANCE>", 900) + "</a>");
  EXPECT_EQ(PlacesIn(document, "instance-nested").size(), 100U);
}

TEST_F(LintHostileTest, ManyUnnamedInstancesAreRead) {
  const Json document = LintBesideSound(
      packMarked + "<a>" +
      Repeat("<INSTANCE CLASSNAME='x'><PROPERTY NAME='p'/></INSTANCE>\n", 50'000) + "</a>");
  EXPECT_EQ(PlacesIn(document, "pack-own-repeated").size(), 100U);
}

TEST_F(LintHostileTest, ManyPackagesOfOneFamilyAreRanked) {
  std::string text = packMarked + "<a>\n" + OwnInstance("hostile.xml");
  for (int i = 0; i < 3'000; ++i) {
    text += PutValues(PutValue(SoundInstance("m" + std::to_string(i)), "payload", "one.exe"),
                      "driverFiles", {"one.sys-#1"});
  }
  const Json document = LintBesideSound(text + "</a>");
  EXPECT_EQ(PlacesIn(document, "version-equal").size(), 100U);
  EXPECT_EQ(PlacesIn(document, "payload-shared").size(), 100U);
}

// Two packages, of which the newer one's list is overridden by the older one's version.
std::string OverriddenPair(const std::string& code) {
  const auto instance = [&code](const std::string& suffix, const std::string& version) {
    const std::string text = PutValues(SoundInstance(code + suffix), "driverFiles", {code + "-#1"});
    return PutValue(text, "Version", version);
  };
  return PutValues(instance("", "10"), "supersede", {code + "-old"}) + instance("-old", "9");
}

// Each names all that come before it, which no machine gets together with it.
std::string PackagesThatNameAllBefore(int count) {
  std::string text;
  std::vector<std::string> before;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(1'000 + i);
    const std::string instance =
        PutValues(SoundInstance("m" + number), "orderedMachineTypeList", {number});
    text += before.empty() ? instance : PutValues(instance, "supersede", before);
    before.push_back("m" + number);
  }
  return text;
}

// 600 packages name 179,700 others, and 640 name 204,480.
TEST_F(LintHostileTest, OfSupersedeListsTheFirstTwoHundredThousandEntriesAreTried) {
  for (const int count : {600, 640}) {
    const Json document =
        LintBesideSound(packMarked + "<a>\n" + OwnInstance("hostile.xml") + OverriddenPair("a") +
                        PackagesThatNameAllBefore(count) + OverriddenPair("z") + "</a>");
    std::vector<std::string> codes;
    for (const Json& finding : document["findings"]) {
      if (finding["id"] == "supersede-overridden") codes.push_back(finding["code"]);
    }
    EXPECT_EQ(codes,
              count == 600 ? (std::vector<std::string>{"a", "z"}) : std::vector<std::string>{"a"});
  }
}

TEST_F(LintHostileTest, PackThatListsItselfManyTimesIsRead) {
  const std::string own = OwnInstance("hostile.xml");
  const Json document = LintBesideSound(packMarked + "<a>\n" + Repeat(own, 3'000) + "</a>");
  EXPECT_EQ(PlacesIn(document, "pack-own-repeated").size(), 100U);
}

TEST_F(LintHostileTest, PayloadNameThatClimbsAndDescendsIsFollowed) {
  WriteFiles({{"sub/x", ""}, {"hostile.exe", "x"}});
  const std::string name = Repeat("sub/../", 20'000) + "hostile.exe";
  const Json document = LintBesideSound(PutValue(SoundText("hostile"), "payload", name));
  EXPECT_EQ(document["findings"], Json::array());
}

#ifndef _WIN32
TEST_F(LintHostileTest, WhatIsNoFileIsNeverOpened) {
  namespace fs = boost::filesystem;
  const fs::path path(folder.Path());
  WriteFiles(SoundPackage("sound"));
  fs::create_directory(path / "a.xml");
  ASSERT_EQ(mkfifo((path / "b.xml").c_str(), 0600), 0);
  fs::create_symlink("c.xml", path / "c.xml");
  fs::create_symlink("gone", path / "d.xml");
  fs::create_symlink("/dev/zero", path / "e.xml");
  ASSERT_EQ(mkfifo((path / "f.XML").c_str(), 0600), 0);
  EXPECT_THAT(PlacesOf("not-readable"),
              ElementsAre("a.xml:0:0", "b.xml:0:0", "c.xml:0:0", "d.xml:0:0", "e.xml:0:0"));
}
#endif

TEST_F(LintHostileTest, LongNamesAreRead) {
  const std::string name = std::string(251, 'x') + ".xml";
  folder.Write(name, SoundText("a"));
  EXPECT_THAT(PlacesOf("payload-missing"), ElementsAre(testing::StartsWith(name + ":")));
}

}  // namespace
}  // namespace Vornik::Testing
