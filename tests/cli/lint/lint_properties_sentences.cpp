// Properties, numbers and identification codes.
#include <algorithm>

#include "lint/lint_sentences.h"
#include "record_members.h"

namespace Vornik::Testing {

namespace {

// The record of the package that the case is named after has something; false if there is none.
template <typename Test>
bool OfPackage(const Asked& asked, const LintCase& of, const Test& test) {
  const QueryPackageResult* record = FindRecord(asked, of.id);
  return record != nullptr && test(*record);
}

// Each was asked of a folder of its own.
bool IsEqual(Asked a, Asked b) {
  for (Asked* asked : {&a, &b}) {
    for (QueryPackageResult& record : asked->records) record.packageXmlFile.clear();
  }
  return FirstDifference(a.records, b.records).empty();
}

const std::string& TextOf(const LintFiles& files, const LintCase& of) {
  return TextOfFile(files, of.id + ".xml");
}

// "... so the package is judged wrongly or not at all": by the filter that needs the property.
bool IsEvaluatedWithout(const LintFiles& files, const LintCase& of) {
  const Asked asked = Ask(files);
  if (of.what == "member") {
    return std::none_of(asked.records.begin(), asked.records.end(),
                        [](const auto& record) { return !record.kovuXmlFile.empty(); });
  }
  const QueryPackageResult& record = asked.records.at(0);
  if (of.what == "xmlFilename" || of.what == "payload") return record.payloadExistFilterStatus == 2;
  return of.what == "type" ? record.updateTypeFilterStatus == 0 : record.platformFilterStatus == 0;
}

// The three are alike. With another last one the update type is another.
bool IsDecidedByTheLast(const LintFiles& files, const LintCase& of) {
  const std::string& text = TextOf(files, of);
  const std::size_t last = text.rfind("<VALUE>1</VALUE>");
  std::string changed = text;
  changed.replace(last, 16, "<VALUE>3</VALUE>");
  const auto isRequested = [&of](const LintFiles& queried) {
    return OfPackage(Ask(queried), of,
                     [](const auto& record) { return record.updateTypeFilterStatus == 1; });
  };
  const bool isRepeated = text.find("\"TYPE\"") != std::string::npos;
  return isRepeated && isRequested(files) && !isRequested(WithFile(files, of.id + ".xml", changed));
}

// "a comparison with the same text without it fails"
bool FailsToCompare(const LintFiles& files, const LintCase& of) {
  const Asked asked = Ask(files, [&of](auto& settings) { settings.includePackageIds = {of.id}; });
  if (of.what == "brackets") {
    return std::none_of(asked.records.begin(), asked.records.end(),
                        [](const auto& record) { return !record.kovuXmlFile.empty(); });
  }
  const QueryPackageResult& record = asked.records.at(0);
  if (of.what == "identificationCode") return record.includeIdFilterStatus == 2;
  if (of.what == "Version") return record.Version != "1";
  if (of.what == "machine-type") return record.platformFilterStatus == 2;
  return record.payloadExistFilterStatus == 2;
}

// "nothing finds its value", "its content is lost", "is not read"
bool LosesDescription(const LintFiles& files, const LintCase& of) {
  return OfPackage(Ask(files), of, [](const auto& record) { return record.description.empty(); });
}

// A property of the name is read by nothing: the answer is the same without it.
bool IsReadByNothing(const LintFiles& files, const LintCase& of) {
  const std::string& text = TextOf(files, of);
  if (text.find('"' + of.what + '"') == std::string::npos) return false;
  return IsEqual(Ask(files), Ask(WithFile(files, of.id + ".xml", Drop(text, of.what))));
}

// A package ranks below one whose version is the lowest there is; a pack displaces none.
bool RanksLowest(const LintFiles& files, const LintCase& of) {
  const std::string& text = TextOf(files, of);
  if (of.what == "pack") {
    const std::string other = of.id + "-zero.xml";
    const std::string own = PutValue(OwnInstance(other), "Version", "0");
    const Asked asked =
        Ask(WithFile(files, other, PackText({own, SoundInstance(of.id + "-other")})));
    const bool hasNone = text.find("\"Version\"") > text.find("</INSTANCE>");
    return hasNone && HasCode(asked, of.id + "-other");
  }
  const std::string rival =
      PutValue(PutValue(SoundText(of.id + "-zero"), "Version", "0"), "driverFiles", "one.sys-#1");
  LintFiles both = WithFile(files, of.id + "-zero.xml", rival);
  both = WithFile(both, of.id + ".xml", PutValue(text, "driverFiles", "one.sys-#1"));
  return OfPackage(Ask(both), of,
                   [](const auto& record) { return record.supersedeFilterStatus == 2; });
}

bool IsOfType(const LintFiles& files, const LintCase& of, std::int32_t type) {
  const Asked asked = Ask(
      files, [type](auto& settings) { settings.updateTypes = {static_cast<UpdateType>(type)}; });
  return OfPackage(asked, of,
                   [](const auto& record) { return record.updateTypeFilterStatus == 1; });
}

// A query for the number that is left of it when it is cut to 32 bits meets it.
bool ReadsAsAnother(const LintFiles& files, const LintCase& of) {
  if (of.what == "type") return IsOfType(files, of, INT32_MIN);
  if (of.what == "least") return IsOfType(files, of, INT32_MAX);
  // The lists' second entries, in lists of one length.
  const bool isSystem = of.what != "huge";
  const std::string list = isSystem ? "orderedOSList" : "orderedOSArchitectureList";
  const std::string other = isSystem ? "orderedOSArchitectureList" : "orderedOSList";
  std::string text = PutValues(TextOf(files, of), "orderedMachineTypeList", {"9999", "1234"});
  text = PutValues(text, other, {"0", "0"});
  const auto matches = [&](std::uint32_t number) {
    const Asked asked = Ask(WithFile(files, of.id + ".xml", text), [&](auto& settings) {
      settings.osValue = static_cast<OsValue>(isSystem ? number : 10U);
      settings.arcValue = static_cast<ArcValue>(isSystem ? 9U : number);
    });
    return OfPackage(asked, of,
                     [](const auto& record) { return record.platformFilterStatus == 1; });
  };
  if (of.what == "system") return matches(7) && matches(8);  // 0: any
  return matches(0xFFFFFFFFU) && !matches(7);
}

// "What follows the digits of a number is ignored."
bool IgnoresWhatFollows(const LintFiles& files, const LintCase& of) {
  const std::string& text = TextOf(files, of);
  if (of.what == "type") {
    return text.find("4 (utility)") != std::string::npos && IsOfType(files, of, 4);
  }
  if (text.find("10x64") == std::string::npos) return false;
  std::string equal = PutValues(text, "orderedMachineTypeList", {"9999", "1234"});
  equal = PutValues(equal, "orderedOSArchitectureList", {"0", "0"});
  return OfPackage(Ask(WithFile(files, of.id + ".xml", equal)), of,
                   [](const auto& record) { return record.platformFilterStatus == 1; });
}

std::size_t CountOf(const Asked& asked, const std::string& member, const std::string& text) {
  return static_cast<std::size_t>(
      std::count_if(asked.records.begin(), asked.records.end(), [&](const auto& record) {
        return (member == "file" ? record.packageXmlFile : record.identificationCode).find(text) !=
               std::string::npos;
      }));
}

// Both files describe a package, and one of them is kept.
bool KeepsOneOfTwo(const LintFiles& files, const LintCase& of) {
  return CountOf(Ask(files), "file", of.id + "-") < 2;
}

// "cannot tell them apart": the include list has the first code only.
bool IncludesBoth(const LintFiles& files, const LintCase&) {
  const Asked asked = Ask(files, [](auto& settings) { settings.includePackageIds = {"one-code"}; });
  return asked.records.size() == 2 &&
         std::all_of(asked.records.begin(), asked.records.end(),
                     [](const auto& record) { return record.includeIdFilterStatus == 1; });
}

// The individual descriptor says something else than its record, or than the filters read. Of two
// packs, the one that is not in use may decide.
bool IsDecidedByThePack(const LintFiles& files, const LintCase& of) {
  const std::string code = of.id + "-member";
  if (of.what == "packs") {
    const bool differ = TextOfFile(files, "-2.xml").find("<VALUE>2</VALUE>") != std::string::npos;
    const Asked asked = Ask(files);
    return differ && asked.records.size() == 1 && !asked.records.front().kovuXmlFile.empty();
  }
  const Asked alone = Ask({{code + ".xml", TextOfFile(files, code + ".xml")},
                           {code + ".exe", "x"},
                           {of.id + ".xml", "<a/>"}});
  const Asked both = Ask(files);
  const QueryPackageResult* own = FindRecord(alone, code);
  const QueryPackageResult* record = FindRecord(both, code);
  return own == nullptr || record == nullptr || own->Version != record->Version ||
         own->description != record->description || own->category != record->category ||
         own->platformFilterStatus != record->platformFilterStatus;
}

}  // namespace

LintClaims PropertyClaims() {
  return {
      {"element-case", LosesDescription},
      {"value-misplaced", LosesDescription},
      {"ampersand-lost",
       [](const LintFiles& files, const LintCase& of) {
         return OfPackage(Ask(files), of, [](const auto& record) {
           return record.description.find('&') == std::string::npos;
         });
       }},
      {"value-split",
       [](const LintFiles& files, const LintCase& of) {
         return OfPackage(Ask(files), of,
                          [](const auto& record) { return record.description == "a"; });
       }},
      // With as many machine types, an entry after the empty ones would be the first.
      {"value-empty",
       [](const LintFiles& files, const LintCase& of) {
         const std::string& text = TextOf(files, of);
         const std::string third = "<VALUE/></VALUE.ARRAY>";
         if (text.find(third) == std::string::npos) return false;
         std::string more = Replace(text, third, "<VALUE/><VALUE>12</VALUE></VALUE.ARRAY>");
         more = PutValues(more, "orderedMachineTypeList", {"9999", "1234", "9999", "9999"});
         more = PutValues(more, "orderedOSArchitectureList", {"0", "0", "0", "0"});
         const Asked asked = Ask(WithFile(files, of.id + ".xml", more), [](auto& settings) {
           settings.osValue = static_cast<OsValue>(12);
         });
         return OfPackage(asked, of,
                          [](const auto& record) { return record.platformFilterStatus == 1; });
       }},
      {"property-missing", IsEvaluatedWithout},
      {"property-empty", IsEvaluatedWithout},
      {"property-repeated", IsDecidedByTheLast},
      {"property-blank", FailsToCompare},
      {"property-unnamed", LosesDescription},
      {"property-misspelled", IsReadByNothing},
      {"version-missing", RanksLowest},
      {"type-not-number",
       [](const LintFiles& files, const LintCase& of) { return IsOfType(files, of, 0); }},
      {"number-out-of-range", ReadsAsAnother},
      {"number-trailing-text", IgnoresWhatFollows},
  };
}

LintClaims CodeClaims() {
  return {
      {"code-repeated", KeepsOneOfTwo},
      {"code-case", IncludesBoth},
      {"code-shadowed", IsDecidedByThePack},
  };
}

}  // namespace Vornik::Testing
