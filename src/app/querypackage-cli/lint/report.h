// What lint found, in one order whatever the order in which it was found.
#ifndef VORNIK_CLI_LINT_REPORT_H
#define VORNIK_CLI_LINT_REPORT_H

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "inspection/text_position.h"
#include "lint/package.h"
#include "lint/rules.h"

namespace Vornik::Cli {

struct LintPlace {
  std::string file;    // relative to the folder, with forward slashes
  TextPosition place;  // 0: the file as a whole
};

struct LintFinding {
  LintId id = LintId::ExtensionCase;
  std::string file;    // relative to the folder, with forward slashes
  TextPosition place;  // 0: the file as a whole
  std::string text;    // one sentence for a person
  std::string code;    // of the package that it is about; empty if there is none

  // The other files that are part of it, or describe the same package and have the same fault.
  std::vector<LintPlace> also = {};
};

// By file, line, column and id.
bool operator<(const LintFinding& a, const LintFinding& b);

class LintReport {
 public:
  // Findings of one id in one file that are kept one by one; of the others the number alone.
  static constexpr std::size_t mostPerFile = 100;

  explicit LintReport(std::set<LintId> ignored = {}) : ignored_(std::move(ignored)) {}

  // Does nothing for an ignored id, and for what is known already.
  void Add(LintId id, const std::string& file, TextPosition place, std::string text);

  // About a package that several files may describe. Equal findings about one code become one.
  void Add(LintId id, const LintPackage& package, TextPosition place, std::string text);

  void Add(LintFinding finding);

  // So many more of the kind, without their places.
  void AddUnplaced(LintId id, const std::string& file, std::size_t count);

  // In order. Where there were more than are kept, the last one of the id in the file says so.
  std::vector<LintFinding> Findings() const;

 private:
  struct Tally {
    std::size_t kept = 0;
    std::size_t more = 0;
  };
  using Key = std::pair<std::string, LintId>;

  std::set<LintId> ignored_;
  std::set<LintFinding> findings_;
  std::map<Key, Tally> tallies_;
};

struct LintCounts {
  std::size_t errors = 0;
  std::size_t warnings = 0;
  std::size_t infos = 0;
};

LintCounts CountBySeverity(const std::vector<LintFinding>& findings);

// Of the ids that are among them, in the table's order.
std::map<LintId, std::size_t> CountById(const std::vector<LintFinding>& findings);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_REPORT_H
