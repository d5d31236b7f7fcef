// Random folders: each machine of a listing has the pack and the packages that a query of it finds.
#include <algorithm>

#include "list/folder_list.h"
#include "model/query_model.h"
#include "output/wording.h"
#include "random_folder.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

class PackageCountsTest : public RandomFolderTest {
 protected:
  Cli::QuerySettings SettingsFor(const Cli::Machine& machine) const {
    Cli::QuerySettings settings;
    settings.folder = folder.Path();
    settings.machineType = machine.machineType;
    settings.osValue = machine.osValue;
    settings.arcValue = machine.arcValue;
    return settings;
  }
};

std::size_t PackagesOf(Cli::QueryModel& model, const Cli::QuerySettings& settings) {
  const auto records = model.Evaluate(settings).records;
  return static_cast<std::size_t>(
      std::count_if(records.begin(), records.end(), [](const QueryPackageResult& record) {
        return record.platformFilterStatus == FilterStatus::Matched;
      }));
}

std::string PackOf(Cli::QueryModel& model, const Cli::QuerySettings& settings) {
  const auto chosen = model.ChosenPackFor(settings);
  if (!chosen) return "";
  return Cli::FileNameOf(model.Packages().kovuPackEntries()[*chosen].kovuXmlFile);
}

TEST_F(PackageCountsTest, AreThoseOfAQueryOfTheMachine) {
  const TestRandom test;
  RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
  std::size_t machines = 0;
  std::size_t packs = 0;
  std::size_t unnamed = 0;
  for (std::size_t round = test.Rounds(150); round != 0; --round) {
    SCOPED_TRACE(round);
    WriteRepository(random);
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    Cli::QueryModel model(reading, folder.Path());
    const Cli::FolderList list = Cli::ListFolder(folder.Path());
    EXPECT_TRUE(list.hasAllMachines);
    for (const Cli::ListedMachine& listed : list.machines) {
      const Cli::QuerySettings settings = SettingsFor(listed.machine);
      ASSERT_TRUE(Cli::HasValidParameters(settings));
      ASSERT_EQ(listed.packages, PackagesOf(model, settings));
      ASSERT_EQ(listed.pack ? list.packs[*listed.pack].file : "", PackOf(model, settings));
      ++machines;
      packs += listed.pack ? 1 : 0;
      unnamed += listed.machine.osIsNamed && listed.machine.arcIsNamed ? 0 : 1;
    }
  }
  if (!test.RunsAllRounds()) return;
  EXPECT_GT(machines, 300U);
  EXPECT_GT(packs, 30U);
  EXPECT_GT(unnamed, 100U);
}

TEST_F(PackageCountsTest, NoOtherMachineHasAPackage) {
  const TestRandom test;
  RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
  for (std::size_t round = test.Rounds(50); round != 0; --round) {
    SCOPED_TRACE(round);
    WriteRepository(random);
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    Cli::QueryModel model(reading, folder.Path());
    const Cli::FolderList list = Cli::ListFolder(folder.Path());
    for (const char* type : {"1234", "5678"}) {
      for (std::uint32_t os = 1; os != 13; ++os) {
        for (std::uint32_t arc = 1; arc != 11; ++arc) {
          const Cli::Machine machine{type, static_cast<OsValue>(os), static_cast<ArcValue>(arc)};
          if (PackagesOf(model, SettingsFor(machine)) == 0) continue;
          ASSERT_TRUE(std::any_of(list.machines.begin(), list.machines.end(),
                                  [&](const Cli::ListedMachine& listed) {
                                    const Cli::Machine& known = listed.machine;
                                    return known.machineType == type &&
                                           (known.osValue == machine.osValue || !known.osIsNamed) &&
                                           (known.arcValue == machine.arcValue ||
                                            !known.arcIsNamed);
                                  }))
              << type << ' ' << os << ' ' << arc;
        }
      }
    }
  }
}

}  // namespace
}  // namespace Vornik::Testing
