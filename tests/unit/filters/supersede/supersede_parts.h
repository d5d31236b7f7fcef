// The supersede rule for tests: it owns what the rule borrows, and shows the parts of what the rule
// finds as codes.
#ifndef VORNIK_TESTS_SUPERSEDE_PARTS_H
#define VORNIK_TESTS_SUPERSEDE_PARTS_H

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "filters/supersede/supersede.h"
#include "filters/supersede/supersede_reason.h"

namespace Vornik::Testing {

class SupersedeParts {
 public:
  using Records = std::vector<QueryPackageResult>;
  using Lists = std::vector<std::optional<CodeList>>;

  explicit SupersedeParts(Records records, Lists lists = {}, CodeList excludedIds = {})
      : records_(std::move(records)),
        lists_(std::move(lists)),
        excludedIds_(std::move(excludedIds)) {
    lists_.resize(records_.size(), CodeList());
    found_.emplace(ResolveSupersedence(Input()));
  }
  SupersedeParts(const SupersedeParts&) = delete;
  SupersedeParts& operator=(const SupersedeParts&) = delete;

  const Supersedence& Found() const { return *found_; }

  std::map<std::string, CodeList> Map() const {
    std::map<std::string, CodeList> map;
    for (const auto& [owner, list] : found_->lists) {
      for (const ListedCode& code : list.codes) {
        map[owner].push_back(lists_[list.owner]->at(code.position));
      }
    }
    return map;
  }

  CodeList KeysInOrder() const {
    CodeList keys;
    for (const auto& [owner, list] : found_->lists) keys.push_back(CodeOf(list.owner));
    return keys;
  }

  // As they are built, each code once.
  std::vector<CodeList> Groups() const {
    std::vector<CodeList> groups;
    for (const RecordGroup& group : BuiltGroups()) {
      CodeList& codes = groups.emplace_back();
      for (const RecordIndex i : group) {
        if (std::find(codes.begin(), codes.end(), CodeOf(i)) == codes.end()) {
          codes.push_back(CodeOf(i));
        }
      }
    }
    return groups;
  }

  std::vector<CodeList> RankedGroups() const {
    std::vector<CodeList> groups;
    for (const RecordGroup& group : CleanGroups(BuiltGroups(), records_, found_->excludedIds)) {
      CodeList& codes = groups.emplace_back();
      for (const RecordIndex i : group) codes.push_back(CodeOf(i));
    }
    return groups;
  }

  // The records, with the verdicts written into them.
  Records Resolved() const {
    const auto verdicts = ApplySupersedence(*found_, Input());
    Records records = records_;
    for (std::size_t i = 0; i < records.size(); ++i) WriteVerdict(verdicts.at(i), records[i]);
    return records;
  }

  SupersedeReason ReasonOf(RecordIndex record) const { return ReasonFor(record, *found_, Input()); }

 private:
  SupersedeInput Input() const { return {records_, lists_, excludedIds_, fold_}; }
  const std::string& CodeOf(RecordIndex i) const { return records_.at(i).identificationCode; }
  std::vector<RecordGroup> BuiltGroups() const {
    return GroupByDriverFile(records_, found_->codes, found_->byFile);
  }

  const LocaleFold fold_;
  const Records records_;
  Lists lists_;
  const CodeList excludedIds_;
  std::optional<Supersedence> found_;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_SUPERSEDE_PARTS_H
