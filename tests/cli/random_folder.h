// Random small package folders on disk, and valid queries of them.
#ifndef VORNIK_TESTS_CLI_RANDOM_FOLDER_H
#define VORNIK_TESTS_CLI_RANDOM_FOLDER_H

#include <string>
#include <vector>

#include "cli_fixture.h"
#include "model/query_settings.h"
#include "random_repository.h"

namespace Vornik::Testing {

Cli::QuerySettings SettingsOf(const QueryPackageImp& query);

class RandomFolderTest : public CliTest {
 protected:
  RandomFolderTest() { folder.Write("p.exe", "x"); }

  // Replaces what was written before.
  void WriteRepository(RandomRepository& random);

  Cli::QuerySettings ValidSettings(RandomRepository& random) const;

 private:
  void WritePack(const std::string& name, RandomRepository& random);
  void WriteFile(const std::string& name, const std::string& text);

  std::vector<std::string> names_;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_RANDOM_FOLDER_H
