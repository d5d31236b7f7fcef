#include "model/answer.h"

#include "model/filter_table.h"

namespace Vornik::Cli {

PackageAnswer AnswerFor(const QueryPackageResult& record, const QuerySettings& settings) {
  PackageAnswer result;
  for (const Filter& filter : Filters()) {
    if (filter.slot == nullptr) continue;
    const std::uint32_t status = record.*filter.slot;
    if (status == FilterStatus::NotMatched) result.refusedBy.push_back(filter.id);
    if (status == FilterStatus::NotEvaluated && Runs(filter, settings)) {
      result.undecidedBy.push_back(filter.id);
    }
  }
  if (!result.refusedBy.empty()) {
    result.answer = Answer::Refused;
  } else if (!result.undecidedBy.empty()) {
    result.answer = Answer::Undecided;
  }
  return result;
}

const char* NameOf(Answer answer) {
  switch (answer) {
    case Answer::Offered:
      return "offered";
    case Answer::Refused:
      return "refused";
    case Answer::Undecided:
      break;
  }
  return "undecided";
}

}  // namespace Vornik::Cli
