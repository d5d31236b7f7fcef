// The machines in a file of comma-separated values:
//
//   machine_type,os,arch,name,count
//   1234,10,9,Front office,250
//   5678,11,9,,
//
// The columns may be in any order, and the last two are optional.
#ifndef VORNIK_CLI_MATRIX_MACHINE_FILE_H
#define VORNIK_CLI_MATRIX_MACHINE_FILE_H

#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "matrix/machine_list.h"

namespace Vornik::Cli {

// Sentences without a full stop, each with its line.
struct MachineFileFaults {
  std::optional<std::string> header;  // no line of the file can be used
  std::vector<std::string> lines;     // lines that are passed over
};

// Adds the machines of the file.
MachineFileFaults ReadMachines(std::istream& file, MachineList& machines);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MATRIX_MACHINE_FILE_H
