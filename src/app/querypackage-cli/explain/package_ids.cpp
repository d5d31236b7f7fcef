#include "explain/package_ids.h"

#include <algorithm>
#include <set>

#include "model/edit_distance.h"
#include "model/literals.h"

namespace Vornik::Cli {

namespace {

// Keeps the first of equal texts.
class DistinctTexts {
 public:
  void Add(const std::string& text) {
    if (known_.insert(text).second) texts_.push_back(text);
  }
  bool Contains(const std::string& text) const { return known_.count(text) != 0; }
  const std::vector<std::string>& Texts() const { return texts_; }

 private:
  std::set<std::string> known_;
  std::vector<std::string> texts_;
};

DistinctTexts CodesOf(const EvaluatedQuery& query) {
  DistinctTexts codes;
  for (const QueryPackageResult& record : query.run.records) codes.Add(record.identificationCode);
  for (const KovuPackEntry& pack : query.model.Packages().kovuPackEntries()) {
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      codes.Add(GetPropertyValue(PropertyName::identificationCode, pack.members[i].properties));
    }
  }
  return codes;
}

// False if the id is no pattern, or matches nothing.
bool AddMatches(const std::string& id, const DistinctTexts& codes, DistinctTexts& ids) {
  if (!IsPattern(id) || codes.Contains(id)) return false;
  bool matches = false;
  for (const std::string& code : codes.Texts()) {
    if (!MatchesPattern(id, code)) continue;
    ids.Add(code);
    matches = true;
  }
  return matches;
}

}  // namespace

bool IsPattern(const std::string& id) { return id.find_first_of("*?") != std::string::npos; }

bool MatchesPattern(std::string_view pattern, std::string_view text) {
  std::size_t p = 0;
  std::size_t t = 0;
  std::size_t star = std::string_view::npos;  // the last * so far, and what it stands for
  std::size_t starText = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      starText = t;
    } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[t])) {
      ++p;
      ++t;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      t = ++starText;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

std::vector<std::string> NearestCodes(const EvaluatedQuery& query, const std::string& id) {
  return NearestNames(id, CodesOf(query).Texts());
}

std::vector<std::string> ResolveIds(const EvaluatedQuery& query,
                                    const std::vector<std::string>& asked) {
  DistinctTexts ids;
  if (std::none_of(asked.begin(), asked.end(), IsPattern)) {
    for (const std::string& id : asked) ids.Add(id);
    return ids.Texts();
  }
  const DistinctTexts codes = CodesOf(query);
  for (const std::string& id : asked) {
    if (!AddMatches(id, codes, ids)) ids.Add(id);
  }
  return ids.Texts();
}

}  // namespace Vornik::Cli
