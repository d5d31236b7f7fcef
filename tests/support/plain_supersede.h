// The supersede rule step by step, with scans and copies and nothing else: what the product's rule
// is compared with. It shares no code with the product.
#ifndef VORNIK_TESTS_PLAIN_SUPERSEDE_H
#define VORNIK_TESTS_PLAIN_SUPERSEDE_H

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Testing {

using PlainRecords = std::vector<QueryPackageResult>;
using PlainCodes = std::vector<std::string>;

// Each character folded by the global locale.
std::string PlainFold(const std::string& text);
bool PlainFoldedEqual(const std::string& a, const std::string& b);

// The first record whose code equals it without regard to case; null if there is none.
QueryPackageResult* PlainFind(PlainRecords& records, const std::string& code);

bool PlainIsListed(const PlainCodes& ids, const std::string& code);

// lists: one element per record, the codes that its descriptor lists.
std::map<std::string, PlainCodes> PlainMap(PlainRecords records,
                                           const std::vector<PlainCodes>& lists);

// As they are built: a code stands in a group as often as it was met.
std::vector<PlainCodes> PlainGroups(const PlainRecords& records);

// Cleaned, and at least two strong.
std::vector<PlainCodes> PlainRankedGroups(PlainRecords records, const PlainCodes& excludedIds);

// Copies of the records that a group's codes find, by ascending version.
PlainRecords PlainRanking(PlainRecords records, const PlainCodes& group);

void PlainSupersede(PlainRecords& records, const std::vector<PlainCodes>& lists,
                    const PlainCodes& excludedIds);

// Parts of a reason as lines of text, so that two of them can be compared.
class PlainReasonLines {
 public:
  void Say(const std::string& text) { lines_.push_back(text); }
  void Say(const std::string& text, std::size_t number) {
    Say(text + " " + std::to_string(number));
  }
  void List(std::size_t owner, std::optional<std::size_t> position);
  void Ranking(const std::vector<std::size_t>& records, std::size_t place,
               const PlainCodes& versions, const PlainCodes& driverFiles);
  PlainCodes Take() const { return lines_; }

 private:
  PlainCodes lines_;
};

// Why a record is kept or superseded, and what was left out: in the order in which lists and
// rankings are applied, then what concerns the record itself, then its rivals.
PlainCodes PlainReason(PlainRecords records, const std::vector<PlainCodes>& lists,
                       const std::set<std::size_t>& withoutProperties,
                       const PlainCodes& excludedIds, std::size_t index);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_SUPERSEDE_H
