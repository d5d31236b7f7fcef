#include "matrix/summary.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>
#include <utility>

#include "model/filter_table.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

// How many machines are offered a package, and how many have each other cell.
struct CellCounts {
  std::uint64_t offered = 0;
  std::map<MatrixCell, std::uint64_t> others;

  void Add(const MatrixCell& cell, std::uint64_t count) {
    if (cell.IsOffered()) {
      offered += count;
    } else {
      others[cell] += count;
    }
  }

  // The first one of equal counts.
  CommonestCell Commonest() const {
    CommonestCell commonest;
    for (const auto& [cell, count] : others) {
      if (count > commonest.count) commonest = {cell, count};
    }
    return commonest;
  }
};

std::string NamesOf(const std::vector<FilterId>& filters) {
  std::vector<std::string> names;
  names.reserve(filters.size());
  for (const FilterId filter : filters) names.emplace_back(FilterOf(filter).name);
  return fmt::format("{}", fmt::join(names, ", "));
}

}  // namespace

MatrixSummary Summarize(const Matrix& matrix, const std::vector<MachineKind>& kinds) {
  MatrixSummary summary;
  std::vector<CellCounts> packages(matrix.packages.size());
  for (std::size_t kind = 0; kind < kinds.size(); ++kind) {
    CellCounts machine;
    const std::vector<MatrixCell>& cells = matrix.kinds[kind].cells;
    for (std::size_t package = 0; package < cells.size(); ++package) {
      machine.Add(cells[package], 1);
      packages[package].Add(cells[package], kinds[kind].machines);
    }
    if (machine.offered == 0) summary.nothing.push_back({kind, machine.Commonest()});
    summary.machines += kinds[kind].machines;
  }
  for (std::size_t package = 0; package < packages.size(); ++package) {
    const CellCounts& counts = packages[package];
    if (counts.offered == 0) summary.unreachable.push_back({package, counts.Commonest()});
    if (counts.offered == summary.machines) summary.everywhere.push_back(package);
  }
  return summary;
}

std::string TextOf(const MatrixCell& cell) {
  const std::vector<FilterId> refusedBy = cell.RefusedBy();
  const std::vector<FilterId> undecidedBy = cell.UndecidedBy();
  if (!refusedBy.empty()) return "refused: " + NamesOf(refusedBy);
  if (!undecidedBy.empty()) return "undecided: " + NamesOf(undecidedBy);
  return cell.Name();
}

std::string TextOf(const KindResult& kind, const CommonestCell& commonest) {
  if (kind.returnCode == QueryCode::NoResults) return "the folder has no package for it";
  return fmt::format("{} of {}: {}", commonest.count, Count(kind.cells.size(), "package"),
                     TextOf(commonest.cell));
}

}  // namespace Vornik::Cli
