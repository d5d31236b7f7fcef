// The schemas refuse what no document has. That they accept the documents is checked when the tests
// end.
#ifndef _WIN32

#include "cli_fixture.h"
#include "document_check.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;

class SchemasTest : public CliTest {
 protected:
  std::string DocumentOf(const std::string& subcommand, const Arguments& more) {
    Arguments arguments{subcommand, folder.Path(), "--format", "json"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunCli(arguments).out;
  }

  void ExpectStrict(const std::string& subcommand, const std::string& text) {
    SCOPED_TRACE(subcommand);
    EXPECT_EQ(FaultsOfDocument(subcommand, text), "");
    Json unknown = Json::parse(text);
    unknown["other"] = 1;
    EXPECT_THAT(FaultsOfDocument(subcommand, unknown.dump()), HasSubstr("'other' was unexpected"));
    Json missing = Json::parse(text);
    missing.erase("schemaVersion");
    EXPECT_THAT(FaultsOfDocument(subcommand, missing.dump()), HasSubstr("'schemaVersion'"));
    Json wrong = Json::parse(text);
    wrong["schemaVersion"] = 99;
    EXPECT_THAT(FaultsOfDocument(subcommand, wrong.dump()), HasSubstr("schemaVersion: "));
  }
};

TEST_F(SchemasTest, RefuseOtherMembersAndVersions) {
  WritePackage("a");
  const Arguments machine{"--machine-type", "1234", "--os", "10", "--arch", "9"};
  ExpectStrict("list", DocumentOf("list", {}));
  ExpectStrict("query", DocumentOf("query", machine));
  ExpectStrict("matrix", DocumentOf("matrix", {"--with-reasons", "--debug-records"}));
  Arguments package = machine;
  package.insert(package.end(), {"--package", "a"});
  ExpectStrict("explain", DocumentOf("explain", package));
}

TEST_F(SchemasTest, RefuseOtherMembersOfARecord) {
  WritePackage("a");
  Json document = QueryJson();
  document["records"][0]["other"] = 1;
  EXPECT_THAT(FaultsOfDocument("query", document.dump()), HasSubstr("records/0: "));
}

}  // namespace
}  // namespace Vornik::Testing

#endif
