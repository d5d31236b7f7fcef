// What a matrix says in short.
#ifndef VORNIK_CLI_MATRIX_SUMMARY_H
#define VORNIK_CLI_MATRIX_SUMMARY_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "matrix/matrix.h"

namespace Vornik::Cli {

// Which cell is the commonest one among those that are not offered.
struct CommonestCell {
  MatrixCell cell;
  std::uint64_t count = 0;
};

struct MatrixSummary {
  // Kinds of machines that are offered no package. Their commonest cell is of packages.
  struct Nothing {
    std::size_t kind = 0;
    CommonestCell commonest;
  };
  // Packages that no machine is offered. Their commonest cell is of machines, with their counts.
  struct Unreachable {
    std::size_t package = 0;
    CommonestCell commonest;
  };

  std::uint64_t machines = 0;  // with their counts
  std::vector<Nothing> nothing;
  std::vector<Unreachable> unreachable;
  std::vector<std::size_t> everywhere;  // packages that each machine is offered
};

MatrixSummary Summarize(const Matrix& matrix, const std::vector<MachineKind>& kinds);

//   "refused: platform, payloadExist"
std::string TextOf(const MatrixCell& cell);

// Why a kind of machine gets nothing, for a person.
std::string TextOf(const KindResult& kind, const CommonestCell& commonest);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MATRIX_SUMMARY_H
