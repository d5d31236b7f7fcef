// Superseding: the lists that name the package, and the versions that it is ranked with.
#include <algorithm>
#include <optional>

#include "filters/supersede/supersede_reason.h"
#include "filters/supersede/version_ranking.h"
#include "lint/checks/version_order.h"
#include "model/literals.h"
#include "remedy/ways/ways.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxPaddedVersions = 3;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t EndOfDigits(const std::string& text, std::size_t begin) {
  while (begin < text.size() && IsDigit(text[begin])) ++begin;
  return begin;
}

// lower with zeros in front of the first number that is smaller than that of higher, so that the
// texts compare as the numbers do. None where that is of no use.
//
//   "9.0", "10.1"  =>  "09.0"
std::optional<std::string> Padded(const std::string& lower, const std::string& higher) {
  std::size_t at = 0;
  while (at < lower.size() && at < higher.size()) {
    if (!IsDigit(lower[at]) || !IsDigit(higher[at])) {
      if (lower[at] != higher[at]) return std::nullopt;
      ++at;
      continue;
    }
    const std::size_t endOfLower = EndOfDigits(lower, at);
    const std::size_t endOfHigher = EndOfDigits(higher, at);
    if (endOfLower - at < endOfHigher - at) {
      return lower.substr(0, at) + std::string(endOfHigher - endOfLower, '0') + lower.substr(at);
    }
    if (lower.compare(at, endOfLower - at, higher, at, endOfHigher - at) != 0) return std::nullopt;
    at = endOfLower;
  }
  return std::nullopt;
}

class Ways {
 public:
  Ways(const EditTarget& target, const Evaluation& query)
      : target_(target),
        query_(query),
        own_(IndexOf(query.records, target.code)),
        reason_(ReasonFor(own_, *query.supersedence,
                          {query.records, query.lists, target.settings.excludePackageIds, fold_})) {
  }

  std::vector<Edits> Collect() {
    if (reason_.rankings.empty()) {
      AddLists();
    } else {
      AddPaddedRivals();
      AddOwnVersion();
    }
    return std::move(ways_);
  }

 private:
  // Of the lists that name the package and that no later one overrides.
  void AddLists() {
    Edits edits;
    for (auto list = reason_.lists.rbegin(); list != reason_.lists.rend(); ++list) {
      if (!list->position) break;
      const PropertySource source =
          target_.folder.Model().SourceOf(query_.records[list->owner].identificationCode);
      if (source.entry == nullptr) return;
      std::vector<std::string> codes =
          GetPropertyValues(PropertyName::supersede, source.entry->properties);
      const auto isOwn = [this](const std::string& code) {
        return EqualByGlobalLocaleFold(code, target_.code);
      };
      codes.erase(std::remove_if(codes.begin(), codes.end(), isOwn), codes.end());
      edits.push_back(EditOf(target_.folder.InstanceOf(source), source.File(),
                             PropertyName::supersede, std::move(codes)));
    }
    if (!edits.empty()) ways_.push_back(Merged(std::move(edits)));
  }

  // A record is ranked by its own text, wherever the filters find its properties.
  Edit SetVersion(RecordIndex record, const std::string& version) const {
    const PropertySource& origin = query_.origins[record];
    return EditOf(target_.folder.InstanceOf(origin), origin.File(), PropertyName::Version,
                  {version});
  }

  // Those of the last ranking that are above the package, each once.
  std::vector<RecordIndex> RivalsAbove() const {
    std::vector<RecordIndex> above;
    const RankingReason& last = reason_.rankings.back();
    for (std::size_t k = last.place + 1; k < last.records.size(); ++k) {
      const RecordIndex rival = last.records[k];
      if (std::find(above.begin(), above.end(), rival) == above.end()) above.push_back(rival);
    }
    return above;
  }

  void AddPaddedRivals() {
    const std::vector<RecordIndex> rivals = RivalsAbove();
    if (rivals.empty() || rivals.size() > maxPaddedVersions) return;
    Edits edits;
    const std::string& own = query_.records[own_].Version;
    for (const RecordIndex rival : rivals) {
      const std::string& version = query_.records[rival].Version;
      if (CompareAsNumbers(version, own) >= 0) return;
      const std::optional<std::string> padded = Padded(version, own);
      if (!padded) return;
      edits.push_back(SetVersion(rival, *padded));
    }
    ways_.push_back(std::move(edits));
  }

  // Greater than that of each package with which it is ranked.
  void AddOwnVersion() {
    std::string greatest = query_.records[own_].Version;
    std::string compared = ComparedVersion(query_.records[own_], fold_);
    for (const RankingReason& ranking : reason_.rankings) {
      for (const RecordIndex rival : ranking.records) {
        std::string other = ComparedVersion(query_.records[rival], fold_);
        if (other <= compared) continue;
        compared = std::move(other);
        greatest = query_.records[rival].Version;
      }
    }
    ways_.push_back({SetVersion(own_, greatest + ".1")});
  }

  const EditTarget& target_;
  const Evaluation& query_;
  const LocaleFold fold_;
  const RecordIndex own_;
  const SupersedeReason reason_;
  std::vector<Edits> ways_;
};

}  // namespace

std::vector<Edits> SupersedeWays(const EditTarget& target, const Evaluation& query) {
  return Ways(target, query).Collect();
}

}  // namespace Vornik::Cli
