#include "matrix/machine_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Reading {
  Cli::MachineList list;
  Cli::MachineFileFaults faults;
};

Reading Read(const std::string& text) {
  Reading reading;
  std::istringstream stream(text);
  reading.faults = Cli::ReadMachines(stream, reading.list);
  return reading;
}

std::vector<std::string> MachinesOf(const Cli::MachineList& list) {
  std::vector<std::string> machines;
  for (const Cli::MatrixMachine& machine : list.Machines()) {
    machines.push_back(machine.name + " x" + std::to_string(machine.count) + " = " +
                       list.Kinds()[machine.kind].name);
  }
  return machines;
}

TEST(MachineFile, EqualMachinesAreOfOneKind) {
  const Reading reading = Read(
      "machine_type,os,arch,name,count\n"
      "1234,10,9,Front office,250\n"
      "5678,11,9,,\n"
      "1234,10,9,,3\n");
  EXPECT_THAT(MachinesOf(reading.list),
              ElementsAre("Front office x250 = 1234/10/9", "5678/11/9 x1 = 5678/11/9",
                          "1234/10/9 x3 = 1234/10/9"));
  ASSERT_EQ(reading.list.Kinds().size(), 2U);
  EXPECT_EQ(reading.list.Kinds()[0].machines, 253U);
  EXPECT_EQ(reading.list.Kinds()[1].machines, 1U);
  EXPECT_THAT(reading.faults.lines, IsEmpty());
  EXPECT_FALSE(reading.faults.header);
}

TEST(MachineFile, ColumnsMayBeInAnyOrder) {
  const Reading reading = Read("count,arch,os,machine_type\r\n2,9,4294967295,0123\r\n");
  EXPECT_THAT(MachinesOf(reading.list), ElementsAre("0123/4294967295/9 x2 = 0123/4294967295/9"));
}

TEST(MachineFile, HeaderHasToBeRight) {
  const auto faultOf = [](const std::string& text) {
    return Read(text).faults.header.value_or("");
  };
  EXPECT_EQ(faultOf(""), "it has no header");
  EXPECT_EQ(faultOf("machine_type,os\n"), "line 1: the column \"arch\" is missing");
  EXPECT_EQ(faultOf("\nmachine_type,os,arch,os\n"), "line 2: the column \"os\" is repeated");
  EXPECT_THAT(faultOf("machine_type,os,arch,site\n"),
              HasSubstr("line 1: \"site\" is not a column"));
  EXPECT_THAT(faultOf("1234,10,9\n"), HasSubstr("line 1: \"1234\" is not a column"));
  EXPECT_EQ(faultOf("machine_type,os,\"arch\n"), "line 1: a quotation mark is not closed");
}

TEST(MachineFile, WrongLinesAreNamedAndTheOthersAreAdded) {
  const Reading reading = Read(
      "machine_type,os,arch,name,count\n"
      "12a4,10,9,,\n"
      "1234,0,9,,\n"
      "1234,10,4294967296,,\n"
      "1234,10,-1,,\n"
      "1234, 10,9,,\n"
      "1234,10,9,,0\n"
      "1234,10,9\n"
      "1234,10,9,\"two\nlines\",\n"
      "1234,10,9,a\"b,\n"
      "1234,10,9,,\n");
  const std::string numbers = " is not a whole number from 1 to 4294967295";
  EXPECT_THAT(
      reading.faults.lines,
      ElementsAre("line 2: the machine type \"12a4\" is not four digits",
                  "line 3: os \"0\"" + numbers, "line 4: arch \"4294967296\"" + numbers,
                  "line 5: arch \"-1\"" + numbers, "line 6: os \" 10\"" + numbers,
                  "line 7: count \"0\"" + numbers, "line 8: it has 3 fields, and the header has 5",
                  "line 11: a quotation mark is inside a field"));
  EXPECT_THAT(MachinesOf(reading.list),
              ElementsAre("two\nlines x1 = 1234/10/9", "1234/10/9 x1 = 1234/10/9"));
}

}  // namespace
}  // namespace Vornik::Testing
