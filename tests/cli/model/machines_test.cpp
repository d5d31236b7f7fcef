// The machines of a folder.
#include "model/machines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "descriptors.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void Add(const Descriptor& descriptor, Repository& repository) {
  repository.Add(PackageXmlEntry{"x.xml", descriptor.Properties()});
}

std::string TextOf(const Cli::Machine& machine) {
  const auto code = [](auto value, bool isNamed) {
    return (isNamed ? "" : "other ") + std::to_string(static_cast<std::uint32_t>(value));
  };
  return machine.machineType + '/' + code(machine.osValue, machine.osIsNamed) + '/' +
         code(machine.arcValue, machine.arcIsNamed);
}

std::vector<std::string> MachinesOf(const Repository& repository) {
  std::vector<std::string> texts;
  for (const Cli::Machine& machine : Cli::NamedMachines(repository).All().machines) {
    texts.push_back(TextOf(machine));
  }
  return texts;
}

TEST(MachinesTest, EachEntryIsOneMachine) {
  Repository repository;
  Add(Descriptor("a")
          .Set("orderedMachineTypeList", {"5678", "1234", "1234", "9999"})
          .Set("orderedOSList", {"11", "10", "10"})
          .Set("orderedOSArchitectureList", {"9", "12", "12", "9"}),
      repository);
  EXPECT_THAT(MachinesOf(repository), ElementsAre("1234/10/12", "5678/11/9"));
}

TEST(MachinesTest, ZeroIsEachNamedCodeOfTheMachineTypeAndAnUnnamedOne) {
  Repository repository;
  Add(Descriptor("a").For("1234", "1", "9"), repository);
  Add(Descriptor("b").For("1234", "3", "12"), repository);
  Add(Descriptor("c").For("1234", "0", "9"), repository);
  Add(Descriptor("d").For("5678", "7", "9"), repository);
  EXPECT_THAT(MachinesOf(repository),
              ElementsAre("1234/1/9", "1234/3/9", "1234/3/12", "1234/other 2/9", "5678/7/9"));
}

TEST(MachinesTest, ZeroForBothIsEveryPair) {
  Repository repository;
  Add(Descriptor("a").For("1234", "1", "9"), repository);
  Add(Descriptor("b").For("1234", "0", "0"), repository);
  EXPECT_THAT(MachinesOf(repository),
              ElementsAre("1234/1/9", "1234/1/other 1", "1234/other 2/9", "1234/other 2/other 1"));
}

TEST(MachinesTest, SystemsOfPacksAreNamed) {
  Repository repository;
  Add(Descriptor("a").For("1234", "0", "9"), repository);
  repository.Add(
      KovuPackEntry{"p.xml",
                    {{"p.xml", Descriptor()
                                   .Set("applicableMachineTypes", {"Desk [1234]", "5678"})
                                   .Set("applicableOperatingSystems", {"11", "0"})
                                   .Properties()}}});
  EXPECT_THAT(MachinesOf(repository), ElementsAre("1234/11/9", "1234/other 1/9"));
}

TEST(MachinesTest, InvalidMachineTypesAreApart) {
  Repository repository;
  Add(Descriptor("a").For("12a4", "10", "9"), repository);
  Add(Descriptor("b").For("12a4", "10", "9"), repository);
  Add(Descriptor("c").For("", "0", "9"), repository);
  const Cli::FolderMachines folder = Cli::NamedMachines(repository).All();
  EXPECT_THAT(folder.machines, IsEmpty());
  ASSERT_EQ(folder.invalid.size(), 2U);
  EXPECT_EQ(folder.invalid[1].machineType, "12a4");
  EXPECT_EQ(folder.invalid[1].osValue, static_cast<OsValue>(10));
}

TEST(MachinesTest, FirstMembersAndPackagesWithoutACodeNameNone) {
  Repository repository;
  Add(Descriptor().For("1234", "10", "9"), repository);
  repository.Add(KovuPackEntry{"p.xml",
                               {{"p.xml", Descriptor("p").For("1234", "11", "9").Properties()},
                                {"m.xml", Descriptor("m").For("1234", "12", "9").Properties()}}});
  EXPECT_THAT(MachinesOf(repository), ElementsAre("1234/12/9"));
}

// One package's machines, near a preferred one.
std::vector<std::string> MatchedBy(const Repository& repository, const Descriptor& package,
                                   const Cli::Machine& preferred = {}) {
  std::vector<std::string> texts;
  for (const Cli::Machine& machine :
       Cli::NamedMachines(repository).MatchedBy(package.Properties(), preferred).machines) {
    texts.push_back(TextOf(machine));
  }
  return texts;
}

TEST(MachinesTest, PackageHasThoseOfTheFolderThatItsListsMatch) {
  const Descriptor any = Descriptor("any").For("1234", "0", "9");
  const Descriptor one = Descriptor("one").For("1234", "10", "9");
  Repository repository;
  for (const Descriptor& descriptor :
       {any, one, Descriptor("b").For("1234", "11", "5"), Descriptor("c").For("5678", "12", "9")}) {
    Add(descriptor, repository);
  }
  EXPECT_THAT(MatchedBy(repository, one), ElementsAre("1234/10/9"));
  EXPECT_THAT(MatchedBy(repository, any), ElementsAre("1234/10/9", "1234/11/9", "1234/other 1/9"));
}

TEST(MachinesTest, InvalidMachineTypesMatchNone) {
  const Descriptor package = Descriptor("a").For("12a4", "10", "9");
  Repository repository;
  Add(package, repository);
  EXPECT_THAT(MatchedBy(repository, package), IsEmpty());
}

TEST(MachinesTest, UnnamedValueIsThePreferredOneUnlessItIsNamed) {
  const Descriptor package = Descriptor("a").For("1234", "0", "0");
  Repository repository;
  Add(package, repository);
  Add(Descriptor("b").For("1234", "10", "9"), repository);
  EXPECT_THAT(
      MatchedBy(repository, package, {"5678", OsValue{10}, ArcValue{7}}),
      ElementsAre("1234/10/9", "1234/10/other 7", "1234/other 1/9", "1234/other 1/other 7"));
}

TEST(MachinesTest, NoMoreThanTheLimitAreCollected) {
  std::vector<std::string> types;
  std::vector<std::string> codes;
  for (int i = 1; i <= 101; ++i) {
    types.push_back("1234");
    codes.push_back(std::to_string(i));
  }
  Repository repository;
  Add(Descriptor("a")
          .Set("orderedMachineTypeList", types)
          .Set("orderedOSList", codes)
          .Set("orderedOSArchitectureList", codes),
      repository);
  Add(Descriptor("b").For("1234", "0", "0"), repository);
  const Cli::FolderMachines folder = Cli::NamedMachines(repository).All();
  EXPECT_FALSE(folder.isComplete);
  EXPECT_EQ(folder.machines.size(), Cli::maxMachines);
}

}  // namespace
}  // namespace Vornik::Testing
