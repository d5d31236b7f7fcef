#include "remedy/edit_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "model/literals.h"
#include "output/wording.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxLines = 5;

using Texts = std::vector<std::string>;

bool Begins(const Texts& values, const Texts& front) {
  return front.size() <= values.size() && std::equal(front.begin(), front.end(), values.begin());
}

Texts TakenOut(const Texts& before, const Texts& after) {
  Texts taken;
  auto kept = after.begin();
  for (const std::string& value : before) {
    if (kept != after.end() && *kept == value) {
      ++kept;
    } else {
      taken.push_back(value);
    }
  }
  return kept == after.end() ? taken : Texts();
}

std::size_t FirstDifference(const Texts& a, const Texts& b) {
  return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first -
                                  a.begin());
}

std::string TextOfProperty(const Edit& edit) {
  const Texts& before = edit.before;
  const Texts& after = edit.after;
  if (before.empty()) return EditText::Add(edit.property, after);
  if (before.size() == 1 && after.size() == 1) {
    return EditText::Write(edit.property, before.front(), after.front());
  }
  if (after.size() > before.size() && Begins(after, before)) {
    return EditText::AddToList(
        edit.property, {after.begin() + static_cast<std::ptrdiff_t>(before.size()), after.end()});
  }
  const Texts taken = TakenOut(before, after);
  if (!taken.empty()) return EditText::TakeOut(edit.property, taken);
  const std::size_t position = FirstDifference(before, after);
  if (position >= std::min(before.size(), after.size())) {
    return fmt::format("write {} for {} in \"{}\"", BriefList(after), BriefList(before),
                       edit.property);
  }
  return EditText::WriteAt(edit.property, position, before[position], after[position]);
}

std::string TextOfEntry(const Edit& edit) {
  const bool isOwn =
      IsSelfInstance(edit.file, GetPropertyValue(PropertyName::xmlFilename, edit.properties));
  return isOwn
             ? EditText::AddOwnInstance(edit.file)
             : EditText::ListInPack(
                   GetPropertyValue(PropertyName::identificationCode, edit.properties), edit.file);
}

std::string PlaceOf(const Edit& edit) {
  if (edit.kind != EditKind::SetProperty) return "";
  return edit.line == 0 ? edit.file + ", the new INSTANCE: "
                        : fmt::format("{}:{}: ", edit.file, edit.line);
}

bool IsOfOrderedLists(const Edit& edit) {
  return edit.kind == EditKind::SetProperty &&
         (edit.property == PropertyName::orderedMachineTypeList ||
          edit.property == PropertyName::orderedOSList ||
          edit.property == PropertyName::orderedOSArchitectureList);
}

// Of a list with one value more or with one other value.
bool ChangesOne(const Edit& edit) {
  if (!IsOfOrderedLists(edit)) return false;
  const std::size_t i = FirstDifference(edit.before, edit.after);
  if (i == edit.before.size()) return edit.after.size() == i + 1;
  return edit.after.size() == edit.before.size() &&
         std::equal(edit.after.begin() + static_cast<std::ptrdiff_t>(i) + 1, edit.after.end(),
                    edit.before.begin() + static_cast<std::ptrdiff_t>(i) + 1);
}

// How many edits from here on change one position of several ordered lists of an instance.
std::size_t EditsOfPosition(const Edits& edits, std::size_t begin) {
  std::size_t end = begin;
  while (end < edits.size() && ChangesOne(edits[end]) &&
         edits[end].instance == edits[begin].instance &&
         FirstDifference(edits[end].before, edits[end].after) ==
             FirstDifference(edits[begin].before, edits[begin].after)) {
    ++end;
  }
  return end - begin;
}

// add "1234" with "10" and "9" to the ordered lists
std::string PositionText(const Edits& edits, std::size_t begin, std::size_t count) {
  const std::size_t position = FirstDifference(edits[begin].before, edits[begin].after);
  std::string values;
  bool adds = count == 3;
  for (std::size_t i = begin; i < begin + count; ++i) {
    const Edit& edit = edits[i];
    const char* join = i == begin ? "" : i == begin + 1 ? " with " : " and ";
    values += join + Quoted(edit.after[position]);
    if (position == edit.before.size()) continue;
    adds = false;
    values += " for " + Quoted(edit.before[position]);
  }
  return adds ? fmt::format("add {} to the ordered lists", values)
              : fmt::format("write {} at position {} of the ordered lists", values, position + 1);
}

}  // namespace

namespace EditText {

std::string AddToList(const std::string& property, const Texts& values) {
  return fmt::format("add {} to \"{}\"", BriefList(values), property);
}

std::string WriteAt(const std::string& property, std::size_t position, const std::string& before,
                    const std::string& after) {
  return fmt::format("write {} for {} at position {} of \"{}\"", QuotedBriefly(after),
                     QuotedBriefly(before), position + 1, property);
}

std::string TakeOut(const std::string& property, const Texts& values) {
  return fmt::format("take {} out of \"{}\"", BriefList(values), property);
}

std::string Write(const std::string& property, const std::string& before,
                  const std::string& after) {
  return fmt::format("write {} for {} in \"{}\"", QuotedBriefly(after), QuotedBriefly(before),
                     property);
}

std::string Add(const std::string& property, const Texts& values) {
  return fmt::format("add \"{}\" with {}", property, BriefList(values));
}

std::string AddFile(const std::string& path) { return "add the file " + path; }

std::string ListInPack(const std::string& code, const std::string& pack) {
  return fmt::format("list {} in {}", QuotedBriefly(code), pack);
}

std::string AddOwnInstance(const std::string& pack) {
  return fmt::format("give {} an INSTANCE of its own", pack);
}

}  // namespace EditText

std::string TextOf(const Edit& edit) {
  switch (edit.kind) {
    case EditKind::AddFile:
      return EditText::AddFile(edit.file);
    case EditKind::AddPackEntry:
      return TextOfEntry(edit);
    case EditKind::SetProperty:
      break;
  }
  return TextOfProperty(edit);
}

std::vector<std::string> LinesOf(const Edits& edits) {
  Texts lines;
  std::size_t i = 0;
  while (i < edits.size()) {
    const std::size_t count = EditsOfPosition(edits, i);
    lines.push_back(PlaceOf(edits[i]) +
                    (count < 2 ? TextOf(edits[i]) : PositionText(edits, i, count)));
    i += std::max<std::size_t>(count, 1);
  }
  if (lines.size() <= maxLines) return lines;
  const std::size_t left = lines.size() - maxLines + 1;
  lines.resize(maxLines - 1);
  lines.push_back(fmt::format("and {}", Count(left, "edit")));
  return lines;
}

}  // namespace Vornik::Cli
