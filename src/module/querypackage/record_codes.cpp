#include "record_codes.h"

#include <numeric>

namespace Vornik {

RecordCodes::RecordCodes(const std::vector<QueryPackageResult>& records) {
  // Its characters must not move while views of them are made.
  foldedCodes_.reserve(std::accumulate(records.begin(), records.end(), std::size_t{0},
                                       [](std::size_t size, const QueryPackageResult& record) {
                                         return size + record.identificationCode.size();
                                       }));
  firstByFoldedCode_.reserve(records.size());
  found_.reserve(records.size());
  firstOfSame_.reserve(records.size());
  std::unordered_map<std::string_view, RecordPlace> othersByCode;
  for (RecordPlace i = 0; i < records.size(); ++i) {
    const std::string& code = records[i].identificationCode;
    const std::size_t begin = foldedCodes_.size();
    fold_.Append(code, foldedCodes_);
    const std::string_view folded = std::string_view(foldedCodes_).substr(begin);
    const RecordPlace first = firstByFoldedCode_.try_emplace(folded, i).first->second;
    found_.push_back(first);
    const bool isSame = records[first].identificationCode == code;
    firstOfSame_.push_back(isSame ? first : othersByCode.try_emplace(code, i).first->second);
  }
}

RecordPlace RecordCodes::Find(const std::string& code) {
  foldedCode_.clear();
  fold_.Append(code, foldedCode_);
  const auto found = firstByFoldedCode_.find(foldedCode_);
  return found == firstByFoldedCode_.end() ? noRecord : found->second;
}

}  // namespace Vornik
