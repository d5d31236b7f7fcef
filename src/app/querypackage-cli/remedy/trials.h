// Whether a package passes other queries of its folder.
//
// What is cheap to know about the one package is evaluated first. The supersede rule, which looks
// at every package, comes last, and runs once for each machine and exclude list.
#ifndef VORNIK_CLI_REMEDY_TRIALS_H
#define VORNIK_CLI_REMEDY_TRIALS_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "model/query_model.h"
#include "model/query_settings.h"

namespace Vornik::Cli {

// Codes of packages that the package is ranked with by a driver file.
struct Rivals {
  std::vector<std::string> above;
  std::vector<std::string> all;
};

class Trials {
 public:
  // model is borrowed.
  Trials(QueryModel& model, std::string code);

  // Whether every filter that runs matches the package.
  bool Passes(const QuerySettings& settings);

  // Null where the query has no such package.
  const Rivals* FindRivals(const QuerySettings& settings);

  // Whether one of the answers is missing, because the supersede rule was evaluated too often.
  bool HasReachedLimit() const { return hasReachedLimit_; }

 private:
  using Machine = std::tuple<std::string, OsValue, ArcValue>;

  struct Ranking {
    bool isKept = false;
    Rivals rivals;
  };

  bool HasPackage(const QuerySettings& settings);
  const Ranking* RankingFor(const QuerySettings& settings);
  void UseMachine(const Machine& machine, const QuerySettings& settings);
  Rivals RivalsOfPackage() const;

  QueryModel& model_;
  const std::string code_;

  // The records of the last query. Of their slots only the platform filter's is used.
  std::optional<Evaluation> query_;
  std::optional<std::size_t> pack_;  // from which they were built
  std::size_t index_ = 0;            // of the package

  std::map<Machine, std::vector<std::uint32_t>> platforms_;  // the platform filter's slots
  std::map<std::pair<Machine, std::vector<std::string>>, Ranking> rankings_;  // and exclude list
  bool hasReachedLimit_ = false;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_REMEDY_TRIALS_H
