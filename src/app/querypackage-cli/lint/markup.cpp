#include "lint/markup.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "model/literals.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

using Kind = UnreadMarkup::Kind;

LintId IdOf(Kind kind) {
  switch (kind) {
    case Kind::InstanceWithoutAttributes:
    case Kind::InstanceCase:
      return LintId::InstanceUnread;
    case Kind::ValueMisplaced:
      return LintId::ValueMisplaced;
    case Kind::PropertyUnnamed:
      return LintId::PropertyUnnamed;
    case Kind::ElementCase:
      break;
  }
  return LintId::ElementCase;
}

std::string InstanceText(const UnreadMarkup& unread) {
  const std::string what = unread.kind == Kind::InstanceCase
                               ? fmt::format("{} is not INSTANCE", Quoted(unread.element))
                               : "This INSTANCE has no attributes";
  if (!unread.outerLine) return what + ", so it is not read and its package is lost.";
  return fmt::format("{}, so it is not read, and the INSTANCE of line {} gets its properties.",
                     what, *unread.outerLine);
}

std::string TextOf(const UnreadMarkup& unread) {
  switch (unread.kind) {
    case Kind::InstanceWithoutAttributes:
    case Kind::InstanceCase:
      return InstanceText(unread);
    case Kind::ValueMisplaced:
      return fmt::format(
          "This {} is not read: values are in VALUE in a PROPERTY, and in VALUE in "
          "VALUE.ARRAY in a PROPERTY.ARRAY.",
          unread.element);
    case Kind::PropertyUnnamed:
      return fmt::format("This {} has no attribute NAME, in this case, so nothing finds its value.",
                         unread.element);
    case Kind::ElementCase:
      break;
  }
  return fmt::format("The element {} is not read: it has to be in capital letters.",
                     Quoted(unread.element));
}

void CheckInstances(const SearchedFile& file, LintReport& report) {
  const auto& instances = file.inspection.individualInstances;
  if (instances.empty()) return;
  const std::string code = GetPropertyValue(PropertyName::identificationCode,
                                            file.inspection.packages.front().properties);
  const std::string all = fmt::format("The file has {} instances and is read as one package, {}",
                                      instances.size(), CodeText(code));
  const bool losesCode = std::any_of(instances.begin(), instances.end(), [&](const auto& one) {
    return !one.code.empty() && one.code != code;
  });
  if (!losesCode) {
    report.Add(LintId::InstancesMerged, file.name, instances[1].place,
               all + ", of the properties of all.");
  }
  for (const IndividualInstance& instance : instances) {
    if (instance.code.empty() || instance.code == code) continue;
    report.Add(LintId::InstancesMerged, file.name, instance.place,
               fmt::format("{}, so this one, {}, is lost.", all, QuotedBriefly(instance.code)));
  }
}

}  // namespace

void CheckMarkup(const SearchedFile& file, LintReport& report) {
  for (const UnreadMarkup& unread : file.inspection.unreadMarkup) {
    report.Add(IdOf(unread.kind), file.name, unread.place, TextOf(unread));
  }
  CheckInstances(file, report);
}

}  // namespace Vornik::Cli
