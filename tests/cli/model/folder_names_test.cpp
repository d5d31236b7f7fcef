// Folders, descriptors and payloads whose names are no plain ASCII, or very long.
#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

const std::string accented = "\xC3\xA9t\xC3\xA9 \xC3\xBC\xC3\x9F";
const std::string cyrillic = "\xD0\x9F\xD0\xB0\xD0\xBA\xD0\xB5\xD1\x82\xD1\x8B";
const std::string cjk = "\xE5\xA5\x97\xE4\xBB\xB6\xED\x8C\xA8\xED\x82\xA4\xEC\xA7\x80";

// Four folders inside one another, together longer than Windows takes from a program that does not
// declare that it knows about such paths.
std::string LongPath() {
  const std::string part = std::string(90, 'l') + "ong";
  return part + "/" + part + "/" + part + "/" + part;
}

class FolderNamesTest : public CliTest, public testing::WithParamInterface<std::string> {
 protected:
  FolderNamesTest()
      : path_((boost::filesystem::path(folder.Path()) / GetParam()).make_preferred()) {
    boost::filesystem::create_directories(path_);
  }

  std::string Name() const { return path_.filename().string(); }
  std::string PathOf(const std::string& file) const { return (path_ / file).string(); }

  void Write(const std::string& file, const std::string& text) const {
    folder.Write((boost::filesystem::path(GetParam()) / file).string(), text);
  }

  // A package and a pack that lists it, their files named after the folder.
  void Fill() const {
    const std::string pack = "pack " + Name() + ".xml";
    const Descriptor package =
        Package(Name()).Set("xmlFilename", Name() + ".xml").Set("payload", Name() + ".exe");
    Write(Name() + ".xml", package.Individual());
    Write(Name() + ".exe", "payload");
    Write(pack, Pack({PackItself(pack), package}));
  }

  boost::filesystem::path path_;
};

TEST_P(FolderNamesTest, IsQueriedLikeAnyOther) {
  Fill();
  const Outcome outcome = RunCli({"query", path_.string(), "--machine-type", "1234", "--os", "10",
                                  "--arch", "9", "--format", "json"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  const Json document = Json::parse(outcome.out);
  ASSERT_EQ(CodesOf(document), std::vector<std::string>{Name()});
  const Json& record = document["records"][0];
  EXPECT_EQ(record["packageXmlFile"], PathOf(Name() + ".xml"));
  EXPECT_EQ(record["kovuXmlFile"], PathOf("pack " + Name() + ".xml"));
  EXPECT_EQ(record["kovuName"], "pack " + Name());
  EXPECT_EQ(record["payloadExistFilterStatus"], 1);
}

TEST_P(FolderNamesTest, IsNamedWhereAFileIsAtFault) {
  const std::string text = Package("cut").Individual();
  Write("cut.xml", text.substr(0, text.size() - 8));
  const Outcome outcome =
      RunCli({"query", path_.string(), "--machine-type", "1234", "--os", "10", "--arch", "9"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_THAT(outcome.err,
              testing::HasSubstr("Faile to load Package XML: " + InLogLine(PathOf("cut.xml"))));
}

INSTANTIATE_TEST_SUITE_P(Names, FolderNamesTest,
                         testing::Values("with blanks in it", accented, cyrillic, cjk,
                                         cyrillic + " " + cjk + "/" + accented, LongPath()));

}  // namespace
}  // namespace Vornik::Testing
