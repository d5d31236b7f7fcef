#include "matrix/reasons.h"

#include <fmt/format.h>

#include "model/filter_table.h"

namespace Vornik::Cli {

namespace {

// The explanations of these two filters look at all other packages.
std::string WordOf(const Filter& filter, const PackageContext& package) {
  switch (filter.id) {
    case FilterId::Supersede:
      return package.Record().supersededById;
    case FilterId::Kovu:
      return KovuReason(package.Record());
    default:
      return filter.explain(package).reason;
  }
}

void Append(const std::vector<FilterId>& filters, const PackageContext& package,
            std::string& text) {
  for (const FilterId id : filters) {
    const Filter& filter = FilterOf(id);
    if (!text.empty()) text += ", ";
    text += fmt::format("{} {}", filter.name, WordOf(filter, package));
  }
}

}  // namespace

std::string ReasonOf(const PackageContext& package, const PackageAnswer& answer) {
  std::string text;
  Append(answer.refusedBy, package, text);
  Append(answer.undecidedBy, package, text);
  return text;
}

}  // namespace Vornik::Cli
