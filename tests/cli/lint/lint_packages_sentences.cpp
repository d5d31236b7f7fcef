// Platforms, driver files, superseding, packs and the files of a package.
#include <algorithm>
#include <cctype>
#include <set>

#include <boost/filesystem/operations.hpp>

#include "lint/lint_fixture.h"
#include "lint/lint_sentences.h"
#include "record_members.h"

namespace Vornik::Testing {

namespace {

using Texts = std::vector<std::string>;

std::uint32_t StatusOf(const Asked& asked, const std::string& code,
                       std::uint32_t QueryPackageResult::*slot) {
  const QueryPackageResult* record = FindRecord(asked, code);
  return record == nullptr ? 99 : record->*slot;
}

std::uint32_t PlatformOf(const Asked& asked, const std::string& code) {
  return StatusOf(asked, code, &QueryPackageResult::platformFilterStatus);
}

bool IsSuperseded(const Asked& asked, const std::string& code) {
  return StatusOf(asked, code, &QueryPackageResult::supersedeFilterStatus) == 2;
}

bool IsKept(const Asked& asked, const std::string& code) {
  return StatusOf(asked, code, &QueryPackageResult::supersedeFilterStatus) == 1;
}

SettingsChange ForMachine(const std::string& machineType, unsigned int os, unsigned int arch = 9) {
  return [=](auto& settings) {
    settings.machineType = machineType;
    settings.osValue = static_cast<OsValue>(os);
    settings.arcValue = static_cast<ArcValue>(arch);
  };
}

const std::string& TextOf(const LintFiles& files, const LintCase& of) {
  return TextOfFile(files, of.id + ".xml");
}

bool HasText(const LintFiles& files, const LintCase& of, const std::string& text) {
  return TextOf(files, of).find(text) != std::string::npos;
}

// Without the second entries every machine gets the same verdict, although there are some.
bool HasUselessEntries(const LintFiles& files, const LintCase& of) {
  std::string cut = TextOf(files, of);
  for (const char* entry : {"1235", "11"}) {
    const std::string two = "<VALUE>" + std::string(entry) + "</VALUE><VALUE>" + entry + "</VALUE>";
    const std::string one = "<VALUE>" + std::string(entry) + "</VALUE>";
    for (std::size_t at = 0; (at = cut.find(two)) != std::string::npos;) {
      cut.replace(at, two.size(), one);
    }
  }
  if (cut == TextOf(files, of)) return false;
  const LintFiles shorter = WithFile(files, of.id + ".xml", cut);
  for (const char* type : {"1234", "1235"}) {
    for (const unsigned int os : {10U, 11U}) {
      for (const unsigned int arch : {9U, 11U}) {
        const auto change = ForMachine(type, os, arch);
        if (PlatformOf(Ask(files, change), of.id) != PlatformOf(Ask(shorter, change), of.id)) {
          return false;
        }
      }
    }
  }
  return true;
}

// A system or architecture that nothing names gets the package, or the pack.
bool MeansAny(const LintFiles& files, const LintCase& of) {
  if (of.what == "pack") {
    const Asked asked = Ask(files, ForMachine("1234", 77));
    const QueryPackageResult* member = FindRecord(asked, of.id + "-member");
    return member != nullptr && !member->kovuXmlFile.empty();
  }
  const bool isZero = HasText(files, of, "<VALUE>0</VALUE>");
  const auto machine = of.what == "system" ? ForMachine("1234", 77, 9) : ForMachine("1234", 10, 77);
  return !isZero && PlatformOf(Ask(files, machine), of.id) == 1;
}

// A query for the machine type as it is written is refused, so that no machine has it.
bool IsNoMachineType(const LintFiles& files, const LintCase& of) {
  const std::string written = of.what == "five" ? "12345" : of.what == "name" ? "Desk" : "12a4";
  const bool isRefused = Ask(files, ForMachine(written, 10)).code == QueryCode::InvalidParameter;
  const bool isThere = HasText(files, of, written == "Desk" ? "Desk [1234]" : written);
  if (of.what == "pack") return isThere && isRefused;
  return isThere && isRefused && PlatformOf(Ask(files), of.id) == 2;
}

// The machines of all packs of the cases.
bool IsOfferedFromAPack(const LintFiles& files, const std::string& code) {
  for (const char* type : {"1234", "5678"}) {
    for (const unsigned int os : {10U, 11U, 12U}) {
      const Asked asked = Ask(files, ForMachine(type, os));
      const QueryPackageResult* record = FindRecord(asked, code);
      if (record != nullptr && record->kovuFilterStatus == 1 && record->platformFilterStatus == 1) {
        return true;
      }
    }
  }
  return false;
}

// The numbers in a version, in order.
std::vector<int> NumbersIn(const std::string& version) {
  std::vector<int> numbers;
  bool isInside = false;
  for (const char c : version) {
    const bool isDigit = std::isdigit(static_cast<unsigned char>(c)) != 0;
    if (isDigit && !isInside) numbers.push_back(0);
    if (isDigit) numbers.back() = numbers.back() * 10 + (c - '0');
    isInside = isDigit;
  }
  return numbers;
}

// "the wrong package is kept": one that is superseded has the greater numbers.
bool KeepsSmallerNumbers(const LintFiles& files, const LintCase& of) {
  const Asked asked = Ask(files);
  const QueryPackageResult* a = FindRecord(asked, of.id + "-a");
  const QueryPackageResult* b = FindRecord(asked, of.id + "-b");
  if (a == nullptr || b == nullptr) return false;
  return a->supersedeFilterStatus == 2 && NumbersIn(a->Version) > NumbersIn(b->Version);
}

// One of the two is superseded by the other one.
bool SupersedesOneOfTwo(const LintFiles& files, const LintCase& of) {
  const Asked asked = Ask(files);
  return IsSuperseded(asked, of.id + "-a") != IsSuperseded(asked, of.id + "-b");
}

bool AreEqualLetters(const std::string& a, const std::string& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

// The last one that the folder lists is kept, whichever it is.
bool DependsOnTheListing(const LintFiles& files, const LintCase& /*of*/) {
  const LintRecords records = Ask(files).records;
  return records.size() == 2 && AreEqualLetters(records[0].Version, records[1].Version) &&
         records[0].supersedeFilterStatus == 2 && records[1].supersedeFilterStatus == 1;
}

// The codes that a list of the package names, and that no record has.
template <typename List>
bool NamesWhatIsGone(const LintFiles& files, const LintCase& of, const List& listOf) {
  const Asked asked = Ask(files);
  const QueryPackageResult* record = FindRecord(asked, of.id);
  if (record == nullptr) return false;
  const Texts listed = listOf(*record);
  const auto isGone = [&asked](const std::string& code) {
    return std::none_of(asked.records.begin(), asked.records.end(), [&code](const auto& other) {
      return AreEqualLetters(other.identificationCode, code);
    });
  };
  return std::any_of(listed.begin(), listed.end(), isGone);
}

// Each is named by another one's list, and yet some are kept.
bool IsDecidedByOrder(const LintFiles& files, const LintCase& of) {
  const Asked asked = Ask(files);
  const Texts codes{of.id + "-a", of.id + "-b", of.id + "-c"};
  const auto kept = std::count_if(codes.begin(), codes.end(),
                                  [&](const std::string& code) { return IsKept(asked, code); });
  const bool isClosed =
      TextOfFile(files, "-c.xml").find("<VALUE>" + of.id + "-a</VALUE>") != std::string::npos;
  return isClosed && kept != 0 && kept != 3;
}

// What comes first in the pack never becomes a package of it.
bool LosesFirstInstance(const LintFiles& files, const LintCase& of) {
  const Asked asked = Ask(files);
  const QueryPackageResult* member = FindRecord(asked, of.id + "-member");
  const bool isOwnNamed = HasText(files, of, "<VALUE>" + of.id + ".xml</VALUE>");
  if (isOwnNamed) return false;
  if (of.what == "case behind") return member == nullptr || member->kovuXmlFile.empty();
  return !HasCode(asked, "code-of-" + of.id + ".xml");
}

// The last own instance gets the lists of a pack, so that its pack applies; the first one is then a
// package.
bool LosesFirstOwn(const LintFiles& files, const LintCase& of) {
  const std::string& text = TextOf(files, of);
  const std::size_t last = text.rfind("</INSTANCE>");
  const std::string lists =
      "<PROPERTY.ARRAY NAME=\"applicableMachineTypes\"><VALUE.ARRAY><VALUE>1234</VALUE>"
      "</VALUE.ARRAY></PROPERTY.ARRAY><PROPERTY.ARRAY NAME=\"applicableOperatingSystems\">"
      "<VALUE.ARRAY><VALUE>0</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>\n";
  const LintFiles changed = WithFile(files, of.id + ".xml", std::string(text).insert(last, lists));
  return HasCode(Ask(changed), "code-of-" + of.id + ".xml");
}

// No machine gets the member from the pack.
bool NeverApplies(const LintFiles& files, const LintCase& of) {
  return !IsOfferedFromAPack(files, of.id + "-member");
}

// For some machine, each of the two packs alone is used, and of both only one.
bool UsesOneOfTwo(const LintFiles& files, const LintCase& of) {
  LintFiles one;
  LintFiles two;
  LintFiles both;
  for (const char* number : {"-1", "-2"}) {
    const std::string name = of.id + number + ".xml";
    const std::string text = Replace(TextOfFile(files, name), "</CIM>",
                                     SoundInstance(of.id + "-m" + number[1]) + "</CIM>");
    (number[1] == '1' ? one : two).emplace_back(name, text);
    both.emplace_back(name, text);
  }
  for (const unsigned int os : {10U, 11U}) {
    const auto machine = ForMachine("1234", os);
    const bool bothApply =
        HasCode(Ask(one, machine), of.id + "-m1") && HasCode(Ask(two, machine), of.id + "-m2");
    if (bothApply && Ask(both, machine).records.size() == 1) return true;
  }
  return false;
}

bool IsRefusedForItsFiles(const LintFiles& files, const std::string& code) {
  return StatusOf(Ask(files), code, &QueryPackageResult::payloadExistFilterStatus) == 2;
}

// Here it is found, and in a copy of the folder it is not.
bool IsLostInACopy(const LintFiles& files, const LintCase& of) {
  const auto isRefused = [&](bool withOutside) {
    const TempFolder parent;
    const std::string inside = parent.Path() + "/folder";
    boost::filesystem::create_directory(inside);
    LintFiles moved;
    for (const auto& [name, bytes] : files) moved.emplace_back("folder/" + name, bytes);
    if (withOutside) moved.emplace_back("x.exe", "x");
    WriteFilesTo(parent, moved);
    const Asked asked = Ask({}, [&](auto& settings) { settings.folder = inside; });
    return StatusOf(asked, of.id, &QueryPackageResult::payloadExistFilterStatus) == 2;
  };
  return !isRefused(true) && isRefused(false);
}

}  // namespace

LintClaims PlatformClaims() {
  return {
      {"lists-unequal", HasUselessEntries},
      {"platform-not-number", MeansAny},
      {"machine-type-invalid", IsNoMachineType},
      {"package-unreachable",
       [](const LintFiles& files, const LintCase& of) {
         return PlatformOf(Ask(files), of.id) == 2;
       }},
      {"package-unlisted",
       [](const LintFiles& files, const LintCase& of) {
         return StatusOf(Ask(files), of.id, &QueryPackageResult::kovuFilterStatus) == 2;
       }},
      {"package-listed-elsewhere",
       [](const LintFiles& files, const LintCase& of) {
         return !IsOfferedFromAPack(files, of.id + "-member");
       }},
  };
}

LintClaims DriverClaims() {
  const auto ofFirst = [](const auto& holds) {
    return [holds](const LintFiles& files, const LintCase& of) {
      const Asked asked = Ask(files);
      const QueryPackageResult* record = FindRecord(asked, of.id);
      return record != nullptr && holds(*record);
    };
  };
  return {
      {"classifications-missing",
       [](const LintFiles& files, const LintCase&) { return StatusOfQuery(files) == 65; }},
      // "the surplus ones are ignored"
      {"classifications-surplus",
       [](const LintFiles& files, const LintCase& of) {
         const Asked asked = Ask(files);
         const QueryPackageResult* record = FindRecord(asked, of.id);
         const bool isThere = HasText(files, of, "<VALUE>y</VALUE>");
         return isThere && record != nullptr && record->driverFiles.size() == 1 &&
                record->driverFiles[0].classification == "x";
       }},
      {"driver-file-unparsed",
       ofFirst([](const QueryPackageResult& record) { return record.driverFiles.size() == 1; })},
      {"version-order", KeepsSmallerNumbers},
      {"version-order-mixed", KeepsSmallerNumbers},
      {"version-equal", DependsOnTheListing},
      {"category-shared", SupersedesOneOfTwo},
      // Its entry changes nothing.
      {"supersede-unknown",
       [](const LintFiles& files, const LintCase& of) {
         const std::string gone = "<VALUE>" + of.id + "-gone</VALUE>";
         if (!HasText(files, of, gone)) return false;
         const LintFiles without =
             WithFile(files, of.id + ".xml", Replace(TextOf(files, of), gone, ""));
         const Asked one = Ask(files);
         const Asked other = Ask(without);
         return !HasCode(one, of.id + "-gone") &&
                FindRecord(one, of.id)->supersedesId == FindRecord(other, of.id)->supersedesId;
       }},
      {"supersede-self", ofFirst([](const QueryPackageResult& record) {
         return record.supersededById == record.identificationCode;
       })},
      {"supersede-ring", IsDecidedByOrder},
      // The middle one, which the newest names.
      {"supersede-chain",
       [](const LintFiles& files, const LintCase& of) { return IsKept(Ask(files), of.id + "-b"); }},
      {"supersede-overridden",
       [](const LintFiles& files, const LintCase& of) {
         const Asked asked = Ask(files);
         return IsSuperseded(asked, of.id) && IsKept(asked, of.id + "-old");
       }},
      {"requirement-unknown",
       [](const LintFiles& files, const LintCase& of) {
         return NamesWhatIsGone(files, of, [&of](const QueryPackageResult& record) {
           return of.what == "preReq" ? record.preReq : record.coReq;
         });
       }},
  };
}

LintClaims PackClaims() {
  return {
      {"pack-own-missing", LosesFirstInstance},
      {"pack-own-repeated", LosesFirstOwn},
      {"pack-list-missing", NeverApplies},
      {"packs-compete", UsesOneOfTwo},
      {"member-file-missing",
       [](const LintFiles& files, const LintCase& of) {
         return IsRefusedForItsFiles(files, of.id + "-member");
       }},
  };
}

LintClaims PackageFileClaims() {
  const auto isRefused = [](const LintFiles& files, const LintCase& of) {
    return IsRefusedForItsFiles(files, of.id);
  };
  return {
#ifndef _WIN32
      {"separator-foreign", isRefused},
#endif
      {"xml-filename-missing-file", isRefused},
      {"payload-missing", isRefused},
      {"payload-outside", IsLostInACopy},
  };
}

}  // namespace Vornik::Testing
