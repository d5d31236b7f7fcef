#include "code_index.h"

#include <string_view>

namespace Vornik {

CodeIndex::CodeIndex(const std::vector<QueryPackageResult>& records, const LocaleFold& fold)
    : fold_(fold) {
  std::map<std::string_view, RecordIndex> firstByCode;  // without those that are a first match
  for (RecordIndex i = 0; i < records.size(); ++i) {
    const std::string& code = records[i].identificationCode;
    const RecordIndex match = firstByFoldedCode_.try_emplace(fold(code), i).first->second;
    const bool isSame = records[match].identificationCode == code;
    firstMatch_.push_back(match);
    firstSame_.push_back(isSame ? match : firstByCode.try_emplace(code, i).first->second);
  }
}

RecordIndex CodeIndex::FirstCaseInsensitiveMatch(const std::string& code) const {
  const auto found = firstByFoldedCode_.find(fold_(code));
  return found == firstByFoldedCode_.end() ? noRecord : found->second;
}

}  // namespace Vornik
