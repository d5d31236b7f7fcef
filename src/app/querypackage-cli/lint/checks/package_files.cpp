#include <fmt/format.h>

#include <map>
#include <set>
#include <string>

#include "lint/checks/checks.h"
#include "lint/checks/lookup.h"
#include "model/literals.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

std::string MissingText(const char* property, const std::string& name, const LookedUpFile& found) {
  std::string text =
      fmt::format("{} of \"{}\" is no regular file of the folder", QuotedBriefly(name), property);
  if (!found.otherCase.empty()) {
    text += fmt::format("; {} differs in case", QuotedBriefly(found.otherCase));
  }
  return text + '.';
}

class FileChecks {
 public:
  FileChecks(const LintFolder& folder, LintReport& report)
      : folder_(folder), report_(report), lookup_(folder.path, folder.target) {}

  void Check() {
    for (const LintPack& pack : folder_.packs) {
      for (std::size_t i = pack.ownInstances; i < pack.members.size(); ++i) {
        if (pack.misnamedOwn == i) continue;
        CheckDescriptor(pack.members[i], LintId::MemberFileMissing);
      }
    }
    for (const LintPackage& package : folder_.individuals) CheckOwnName(package);
    for (const LintPackage* package : AllPackages(folder_)) CheckPayload(*package);
    ReportShared();
  }

 private:
  struct Use {
    const LintPackage* package;
    std::string code;
  };

  void CheckDescriptor(const LintPackage& package, LintId missing) {
    const std::string name = package.Value(PropertyName::xmlFilename);
    if (name.empty() || !IsSoundName(package, PropertyName::xmlFilename)) return;
    const LookedUpFile found = lookup_.Find(name);
    if (found.exists) return;
    Add(missing, package, PropertyName::xmlFilename,
        MissingText(PropertyName::xmlFilename, name, found));
  }

  // An individual descriptor should name itself.
  void CheckOwnName(const LintPackage& package) {
    const std::string name = package.Value(PropertyName::xmlFilename);
    if (name.empty() || KeyOf(name) == KeyOf(package.File())) return;
    CheckDescriptor(package, LintId::XmlFilenameMissingFile);
    if (!lookup_.Find(name).exists) return;
    Add(LintId::XmlFilenameOther, package, PropertyName::xmlFilename,
        fmt::format("\"{}\" names {}, but the descriptor is {}.", PropertyName::xmlFilename,
                    QuotedBriefly(name), QuotedBriefly(package.File())));
  }

  void CheckPayload(const LintPackage& package) {
    const std::string name = package.Value(PropertyName::payload);
    if (name.empty()) return;
    uses_[KeyOf(name)].push_back({&package, package.Code()});
    if (!IsSoundName(package, PropertyName::payload)) return;
    const LookedUpFile found = lookup_.Find(name);
    if (found.outside) {
      Add(LintId::PayloadOutside, package, PropertyName::payload,
          fmt::format("The payload {} lies outside the folder.", QuotedBriefly(name)));
    } else if (!found.exists) {
      Add(LintId::PayloadMissing, package, PropertyName::payload,
          MissingText(PropertyName::payload, name, found));
    }
  }

  void ReportShared() {
    for (const auto& [key, uses] : uses_) {
      std::set<std::string> codes;
      for (const Use& use : uses) codes.insert(use.code);
      if (codes.size() == 1) continue;
      const std::string list = CodeList({codes.begin(), codes.end()});
      for (const Use& use : uses) {
        Add(LintId::PayloadShared, *use.package, PropertyName::payload,
            fmt::format("The payload {} is that of {} packages: {}.",
                        QuotedBriefly(use.package->Value(PropertyName::payload)), codes.size(),
                        list));
      }
    }
  }

  // Reports a fault of the name itself. A name that the target cannot have is not looked up.
  bool IsSoundName(const LintPackage& package, const char* property) {
    const std::string name = package.Value(property);
    const auto text = [&](const std::string& fault) {
      return fmt::format("The name {} of \"{}\" {}.", QuotedBriefly(name), property, fault);
    };
    if (const auto fault = EncodingFault(name, folder_.target); !fault.empty()) {
      Add(LintId::NameEncoding, package, property, text(fault));
    }
    if (const auto fault = NameFault(name, folder_.target); !fault.empty()) {
      Add(LintId::NameInvalid, package, property, text(fault));
      return false;
    }
    const bool isForeign = folder_.target == LintTarget::Posix &&
                           name.find('\\') != std::string::npos && !lookup_.Find(name).exists;
    if (!isForeign) return true;
    Add(LintId::SeparatorForeign, package, property,
        text("holds a backslash, which is no separator on POSIX"));
    return false;
  }

  void Add(LintId id, const LintPackage& package, const char* property, std::string text) {
    report_.Add(id, package, package.PlaceOfValue(property), std::move(text));
  }

  std::string KeyOf(const std::string& name) const {
    return NameKey(NameParts(name, folder_.target), folder_.target);
  }

  const LintFolder& folder_;
  LintReport& report_;
  LintLookup lookup_;
  std::map<std::string, std::vector<Use>> uses_;
};

}  // namespace

void CheckPackageFiles(const LintFolder& folder, LintReport& report) {
  FileChecks(folder, report).Check();
}

}  // namespace Vornik::Cli
