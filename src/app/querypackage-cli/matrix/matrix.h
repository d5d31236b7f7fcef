// What each kind of machine gets of a folder: packages against machines.
#ifndef VORNIK_CLI_MATRIX_MATRIX_H
#define VORNIK_CLI_MATRIX_MATRIX_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "matrix/machine_list.h"
#include "model/answer.h"
#include "model/hazard_check.h"
#include "model/query_model.h"

namespace Vornik::Cli {

// What a machine gets of one package, in few bytes: a matrix has millions of them.
class MatrixCell {
 public:
  MatrixCell() = default;  // the query gives the machine no record of the package
  explicit MatrixCell(const PackageAnswer& answer);

  bool IsAbsent() const { return !isPresent_; }
  bool IsOffered() const { return isPresent_ && refusedBy_ == 0 && undecidedBy_ == 0; }

  // offered, refused, undecided, absent
  const char* Name() const;

  // In the order in which they run.
  std::vector<FilterId> RefusedBy() const;
  std::vector<FilterId> UndecidedBy() const;

  bool operator<(const MatrixCell& other) const;

 private:
  std::uint16_t refusedBy_ = 0;  // a bit for each FilterId
  std::uint16_t undecidedBy_ = 0;
  bool isPresent_ = false;
};

struct KindResult {
  int returnCode = QueryCode::Completed;  // of a query: Completed or NoResults
  std::vector<MatrixCell> cells;          // of each package of the matrix

  // If the request keeps them, as ReasonOf returns them, each text once: most are equal.
  std::vector<std::string> reasons;
  std::vector<std::uint32_t> reasonOf;  // of each package the index of its reason

  std::vector<QueryPackageResult> records;  // if the request keeps them
};

struct Matrix {
  std::vector<std::string> packages;  // codes, each once, in byte order; "": packages without one
  std::vector<KindResult> kinds;      // of each kind, in their order
};

struct MatrixRequest {
  const QuerySettings& settings;  // valid but for the machine
  const std::vector<MachineKind>& kinds;
  bool keepsReasons = false;
  bool keepsRecords = false;
  unsigned int threads = 1;
  std::function<bool(const std::string& code)> wants = nullptr;  // null: each package

  // Called on one of the threads, one call at a time, after each kind; what it throws ends the
  // evaluation and is thrown by it. May be null.
  std::function<void(std::size_t done)> progress = nullptr;
};

// The model's folder has to be that of the settings, and was walked to its end, and no kind has a
// hazard. Throws std::logic_error where one has.
Matrix EvaluateMatrix(QueryModel& model, const MatrixRequest& request);

// What would hang or abort the query of one of the kinds. hazards: of the folder, as FindHazards
// returns them.
std::optional<Hazard> FindHazard(QueryModel& model, const QuerySettings& settings,
                                 const std::vector<MachineKind>& kinds,
                                 const std::vector<Hazard>& hazards);

// The codes that queries of the folder can return, with "" where a package has none.
std::vector<std::string> CodesOfRecords(const Repository& repository);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MATRIX_MATRIX_H
