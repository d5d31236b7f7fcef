// The machines of a matrix, and the kinds of machines among them.
#ifndef VORNIK_CLI_MATRIX_MACHINE_LIST_H
#define VORNIK_CLI_MATRIX_MACHINE_LIST_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "model/machines.h"

namespace Vornik::Cli {

struct MatrixMachine {
  std::string name;
  std::uint64_t count = 1;  // of machines like this one
  std::size_t kind = 0;     // index into the kinds
};

// Machines with the same machine type, operating system and architecture: a query gives all of them
// the same.
struct MachineKind {
  Machine machine;
  std::string name;
  std::uint64_t machines = 0;  // with their counts
};

class MachineList {
 public:
  // An empty name becomes that of the kind.
  void Add(const Machine& machine, std::string name = "", std::uint64_t count = 1);

  const std::vector<MatrixMachine>& Machines() const { return machines_; }  // in their order
  const std::vector<MachineKind>& Kinds() const { return kinds_; }  // by their first machines

 private:
  std::vector<MatrixMachine> machines_;
  std::vector<MachineKind> kinds_;
  std::map<std::tuple<std::string, OsValue, ArcValue>, std::size_t> kindOf_;
};

//   1234, 10, 9                          =>  1234/10/9
//   1234, 1, 9, the system is not named  =>  1234/other/9
std::string NameOf(const Machine& machine);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MATRIX_MACHINE_LIST_H
