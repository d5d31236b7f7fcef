#include "model/edit_distance.h"

#include <algorithm>

#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxNearest = 3;

using Distances = std::vector<std::size_t>;

// The distances of the first i characters of a from each beginning of b, from the two rows before.
void FillRow(std::string_view a, std::string_view b, std::size_t i, const Distances& twoBefore,
             const Distances& before, Distances& row) {
  row[0] = i;
  for (std::size_t j = 1; j <= b.size(); ++j) {
    const std::size_t replaced = before[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
    row[j] = std::min({before[j] + 1, row[j - 1] + 1, replaced});
    if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
      row[j] = std::min(row[j], twoBefore[j - 2] + 1);
    }
  }
}

}  // namespace

std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit) {
  if (std::max(a.size(), b.size()) - std::min(a.size(), b.size()) > limit) return limit + 1;
  Distances twoBefore(b.size() + 1);
  Distances before(b.size() + 1);
  Distances row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    twoBefore.swap(before);
    before.swap(row);
    FillRow(a, b, i, twoBefore, before, row);
    // A later row has no smaller distance than the smallest of the last two.
    if (std::min(*std::min_element(row.begin(), row.end()),
                 *std::min_element(before.begin(), before.end())) > limit) {
      return limit + 1;
    }
  }
  return std::min(row[b.size()], limit + 1);
}

std::vector<std::string> NearestNames(const std::string& name,
                                      const std::vector<std::string>& known) {
  const LocaleFold fold;
  const std::string wanted = fold(name);
  std::size_t limit = std::max<std::size_t>(1, name.size() / 3);
  std::vector<std::string> nearest;
  for (const std::string& one : known) {
    const std::size_t distance = EditDistance(wanted, fold(one), limit);
    if (distance > limit) continue;
    if (distance < limit) nearest.clear();
    limit = distance;
    if (nearest.size() < maxNearest) nearest.push_back(one);
  }
  return nearest;
}

}  // namespace Vornik::Cli
