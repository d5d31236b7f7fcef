#include "matrix/matrix.h"

#include <algorithm>
#include <exception>
#include <future>
#include <limits>
#include <map>
#include <mutex>
#include <numeric>
#include <set>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "matrix/reasons.h"
#include "model/machines.h"
#include "model/property_places.h"

namespace Vornik::Cli {

namespace {

using Indices = std::vector<std::size_t>;

constexpr std::size_t noPackage = std::numeric_limits<std::size_t>::max();

static_assert(filterCount <= std::numeric_limits<std::uint16_t>::digits);

std::uint16_t BitsOf(const std::vector<FilterId>& filters) {
  unsigned int bits = 0;
  for (const FilterId filter : filters) bits |= 1U << static_cast<unsigned int>(filter);
  return static_cast<std::uint16_t>(bits);
}

std::vector<FilterId> FiltersIn(std::uint16_t bits) {
  std::vector<FilterId> filters;
  for (unsigned int i = 0; i < filterCount; ++i) {
    if ((bits >> i & 1U) != 0) filters.push_back(static_cast<FilterId>(i));
  }
  return filters;
}

// Keeps each text once.
class ReasonList {
 public:
  explicit ReasonList(std::size_t packages) : reasonOf_(packages, Add(reasonOfAbsence)) {}

  void Set(std::size_t package, const std::string& reason) { reasonOf_[package] = Add(reason); }

  void MoveTo(KindResult& result) {
    result.reasons = std::move(reasons_);
    result.reasonOf = std::move(reasonOf_);
  }

 private:
  std::uint32_t Add(const std::string& reason) {
    const auto [known, isNew] =
        indices_.try_emplace(reason, static_cast<std::uint32_t>(reasons_.size()));
    if (isNew) reasons_.push_back(reason);
    return known->second;
  }

  std::vector<std::string> reasons_;
  std::map<std::string, std::uint32_t> indices_;
  std::vector<std::uint32_t> reasonOf_;
};

using PackageIndex = std::map<std::string, std::size_t>;

// The records of one kind of machine after the other. Those that have the same pack in turn share
// the evaluation of what does not depend on the machine.
class KindEvaluator {
 public:
  KindEvaluator(QueryModel& model, const MatrixRequest& request, const PackageIndex& packages)
      : model_(model), request_(request), packages_(packages), settings_(request.settings) {}

  KindResult Evaluate(const Machine& machine) {
    settings_.machineType = machine.machineType;
    settings_.osValue = machine.osValue;
    settings_.arcValue = machine.arcValue;
    EvaluateQuery();
    if (!query_.canRun) throw std::logic_error("a query of the matrix cannot run");
    return Result();
  }

 private:
  void EvaluateQuery() {
    const std::optional<std::size_t> pack = model_.ChosenPackFor(settings_);
    if (query_.canRun && pack == pack_) {
      QueryModel::EvaluateMachine(settings_, query_);
      return;
    }
    query_ = model_.Evaluate(settings_);
    pack_ = pack;
    packageOf_.clear();
    for (const QueryPackageResult& record : query_.records) {
      const auto package = packages_.find(record.identificationCode);
      packageOf_.push_back(package == packages_.end() ? noPackage : package->second);
    }
  }

  KindResult Result() {
    KindResult result;
    if (query_.records.empty()) result.returnCode = QueryCode::NoResults;
    result.cells.resize(packages_.size());
    ReasonList reasons(packages_.size());
    for (std::size_t i = 0; i < query_.records.size(); ++i) {
      if (packageOf_[i] == noPackage) continue;
      const PackageAnswer answer = AnswerFor(query_.records[i], settings_);
      result.cells[packageOf_[i]] = MatrixCell(answer);
      if (request_.keepsReasons) reasons.Set(packageOf_[i], ReasonOfRecord(i, answer));
    }
    if (request_.keepsReasons) reasons.MoveTo(result);
    if (request_.keepsRecords) result.records = query_.records;
    return result;
  }

  std::string ReasonOfRecord(std::size_t record, const PackageAnswer& answer) {
    PropertyPlaces places = PropertyPlaces::WithoutLines();
    return ReasonOf({settings_, model_, query_, places, record, query_.sources[record]}, answer);
  }

  QueryModel& model_;
  const MatrixRequest& request_;
  const PackageIndex& packages_;
  QuerySettings settings_;
  Evaluation query_;
  std::optional<std::size_t> pack_;
  Indices packageOf_;  // of each record
};

// Of each kind the index of the pack in use.
std::vector<std::optional<std::size_t>> PacksOf(QueryModel& model, QuerySettings settings,
                                                const std::vector<MachineKind>& kinds) {
  std::vector<std::optional<std::size_t>> packs;
  packs.reserve(kinds.size());
  for (const MachineKind& kind : kinds) {
    settings.machineType = kind.machine.machineType;
    settings.osValue = kind.machine.osValue;
    packs.push_back(model.ChosenPackFor(settings));
  }
  return packs;
}

// The kinds with the same pack one after the other.
Indices OrderByPack(QueryModel& model, const MatrixRequest& request) {
  const auto packs = PacksOf(model, request.settings, request.kinds);
  Indices order(packs.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&packs](std::size_t a, std::size_t b) { return packs[a] < packs[b]; });
  return order;
}

// Shares the kinds out to threads. Each result is written by one of them, in its own place, so that
// the number of threads changes nothing.
class MatrixEvaluator {
 public:
  MatrixEvaluator(QueryModel& model, const MatrixRequest& request, Matrix& matrix)
      : model_(model), request_(request), matrix_(matrix), order_(OrderByPack(model, request)) {
    for (std::size_t i = 0; i < matrix.packages.size(); ++i) {
      packageIndex_.emplace(matrix.packages[i], i);
    }
    matrix.kinds.resize(request.kinds.size());
  }

  void Run() {
    const std::size_t kinds = order_.size();
    const std::size_t threads =
        std::max<std::size_t>(1, std::min<std::size_t>(request_.threads, kinds));
    std::vector<std::future<void>> others;
    for (std::size_t i = 1; i < threads; ++i) {
      others.push_back(std::async(std::launch::async, [this, i, threads, kinds] {
        EvaluateRange(kinds * i / threads, kinds * (i + 1) / threads);
      }));
    }
    EvaluateRange(0, kinds / threads);
    for (std::future<void>& other : others) other.wait();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  void EvaluateRange(std::size_t begin, std::size_t end) {
    try {
      KindEvaluator evaluator(model_, request_, packageIndex_);
      for (std::size_t i = begin; i < end && Continues(); ++i) {
        const std::size_t kind = order_[i];
        Take(kind, evaluator.Evaluate(request_.kinds[kind].machine));
      }
    } catch (...) {
      const std::lock_guard<std::mutex> lock(mutex_);
      failure_ = std::current_exception();
    }
  }

  bool Continues() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return !failure_;
  }

  void Take(std::size_t kind, KindResult result) {
    const std::lock_guard<std::mutex> lock(mutex_);
    matrix_.kinds[kind] = std::move(result);
    ++done_;
    if (request_.progress != nullptr) request_.progress(done_);
  }

  QueryModel& model_;
  const MatrixRequest& request_;
  Matrix& matrix_;
  const Indices order_;
  PackageIndex packageIndex_;

  std::mutex mutex_;  // of what follows, and of the matrix
  std::exception_ptr failure_;
  std::size_t done_ = 0;
};

}  // namespace

MatrixCell::MatrixCell(const PackageAnswer& answer)
    : refusedBy_(BitsOf(answer.refusedBy)),
      undecidedBy_(BitsOf(answer.undecidedBy)),
      isPresent_(true) {}

const char* MatrixCell::Name() const {
  if (IsAbsent()) return "absent";
  if (refusedBy_ != 0) return NameOf(Answer::Refused);
  return NameOf(undecidedBy_ != 0 ? Answer::Undecided : Answer::Offered);
}

std::vector<FilterId> MatrixCell::RefusedBy() const { return FiltersIn(refusedBy_); }

std::vector<FilterId> MatrixCell::UndecidedBy() const { return FiltersIn(undecidedBy_); }

bool MatrixCell::operator<(const MatrixCell& other) const {
  return std::tie(isPresent_, refusedBy_, undecidedBy_) <
         std::tie(other.isPresent_, other.refusedBy_, other.undecidedBy_);
}

std::vector<std::string> CodesOfRecords(const Repository& repository) {
  const auto hasNone = [](const PackageXmlEntry& entry) { return CodeOf(entry).empty(); };
  const auto& packs = repository.kovuPackEntries();
  const auto& individuals = repository.packageXmlEntries();
  std::vector<std::string> codes = CodesOf(repository);
  const bool hasUncoded =
      std::any_of(individuals.begin(), individuals.end(), hasNone) ||
      std::any_of(packs.begin(), packs.end(), [&hasNone](const KovuPackEntry& pack) {
        return !pack.members.empty() &&
               std::any_of(pack.members.begin() + 1, pack.members.end(), hasNone);
      });
  if (hasUncoded) codes.insert(codes.begin(), "");
  return codes;
}

std::optional<Hazard> FindHazard(QueryModel& model, const QuerySettings& settings,
                                 const std::vector<MachineKind>& kinds,
                                 const std::vector<Hazard>& hazards) {
  const auto& packs = model.Packages().kovuPackEntries();
  std::set<std::string> reached;  // packs in use
  for (const auto& pack : PacksOf(model, settings, kinds)) {
    if (pack) reached.insert(packs[*pack].kovuXmlFile);
  }
  std::set<std::string> unreached;
  for (const KovuPackEntry& pack : packs) {
    if (reached.count(pack.kovuXmlFile) == 0) unreached.insert(pack.kovuXmlFile);
  }
  const auto hazard = std::find_if(hazards.begin(), hazards.end(), [&](const Hazard& one) {
    return unreached.count(one.file) == 0;
  });
  if (hazard == hazards.end()) return std::nullopt;
  return *hazard;
}

Matrix EvaluateMatrix(QueryModel& model, const MatrixRequest& request) {
  Matrix matrix;
  for (std::string& code : CodesOfRecords(model.Packages())) {
    if (request.wants == nullptr || request.wants(code)) {
      matrix.packages.push_back(std::move(code));
    }
  }
  std::vector<Machine> machines;
  machines.reserve(request.kinds.size());
  for (const MachineKind& kind : request.kinds) machines.push_back(kind.machine);
  model.Prepare(request.settings, machines);
  MatrixEvaluator(model, request, matrix).Run();
  return matrix;
}

}  // namespace Vornik::Cli
