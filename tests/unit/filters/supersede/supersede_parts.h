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
    for (const RecordGroup& group : BuiltGroups()) groups.push_back(CodesOf(group));
    return groups;
  }

  std::vector<CodeList> RankedGroups() const {
    std::vector<CodeList> groups;
    for (const RecordGroup& group : BuiltGroups()) {
      const RecordGroup cleaned = CleanGroup(group, found_->isExcluded);
      if (cleaned.size() >= 2) groups.push_back(CodesOf(cleaned));
    }
    return groups;
  }

  // The records of each.
  std::vector<RecordGroup> Rankings() const {
    std::vector<RecordGroup> rankings;
    ForEachRanking(*found_, [&rankings](const RecordGroup& one) { rankings.push_back(one); });
    return rankings;
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
  CodeList CodesOf(const RecordGroup& group) const {
    CodeList codes;
    for (const RecordIndex i : group) codes.push_back(CodeOf(i));
    return codes;
  }
  std::vector<RecordGroup> BuiltGroups() const {
    GroupMembers members(found_->takesPart, found_->codes, found_->byFile);
    std::vector<RecordGroup> groups;
    for (const RecordGroup& anchors : found_->groups) groups.push_back(members.Of(anchors));
    return groups;
  }

  const LocaleFold fold_;
  const Records records_;
  Lists lists_;
  const CodeList excludedIds_;
  std::optional<Supersedence> found_;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_SUPERSEDE_PARTS_H
