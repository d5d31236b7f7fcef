#include "explain/absence.h"

#include <fmt/format.h>

#include <algorithm>
#include <system_error>

#include "explain/log_lines.h"
#include "inspection/descriptor_inspection.h"
#include "model/literals.h"
#include "model/pack_text.h"
#include "model/unread_files.h"
#include "output/wording.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

std::string CodeOf(const SupXmlProperties& properties) {
  return GetPropertyValue(PropertyName::identificationCode, properties);
}

bool IsOwnInstance(const KovuPackEntry& pack, const PackageXmlEntry& member) {
  return IsSelfInstance(pack.kovuXmlFile,
                        GetPropertyValue(PropertyName::xmlFilename, member.properties));
}

// What became of a file that adds nothing to the query: a word for programs, what a sentence about
// the file says, and what to do.
struct Outcome {
  const char* reason;
  std::string text;
  std::string remedy;
};

std::string FailedTo(const char* verb, int error) {
  const std::string why =
      error == 0 ? "" : fmt::format(" ({})", std::generic_category().message(error));
  return fmt::format("cannot be {}{}", verb, why);
}

Outcome OutcomeWithoutMarker(const DescriptorReading& reading) {
  switch (reading.fault) {
    case DescriptorFault::Utf16:
      return {"notADescriptor", "is in UTF-16, in which no marker is found",
              "save the file in UTF-8"};
    case DescriptorFault::Empty:
      return {"notADescriptor", "is empty", "put the descriptor into the file"};
    default:
      return {"notADescriptor",
              "holds neither the marker of a pack nor that of an individual descriptor",
              "correct the file"};
  }
}

Outcome OutcomeOf(const DescriptorReading& reading) {
  switch (reading.fault) {
    case DescriptorFault::NotOpened:
      return {"notRead", FailedTo("opened", reading.error), "let the query open the file"};
    case DescriptorFault::IsFolder:
      return {"notRead", "is a folder",
              "give the folder another name, and the descriptor this one"};
    case DescriptorFault::NotRegular:
      return {"notRead", "is no regular file", "put a regular file in its place"};
    case DescriptorFault::NotRead:
      return {"notRead", FailedTo("read", reading.error), "let the query read the file"};
    case DescriptorFault::NoRoot:
      return {"notLoaded", "has no XML element", "correct the file"};
    case DescriptorFault::NoProperties:
      return {"notLoaded", "has no property", "correct the file"};
    case DescriptorFault::NoInstances:
      return {"notLoaded", "is a pack without an INSTANCE that begins with CLASSNAME",
              "correct the file"};
    case DescriptorFault::InstanceWithoutClassName:
      return {"notLoaded", "is a pack with an INSTANCE that does not begin with CLASSNAME",
              "correct the file"};
    default:
      return reading.kind == DescriptorKind::Neither
                 ? OutcomeWithoutMarker(reading)
                 : Outcome{"notLoaded", "failed to load", "correct the file"};
  }
}

std::string EvidenceText(const CodeFinding& finding) {
  switch (finding.evidence) {
    case CodeEvidence::IsCode:
      return fmt::format("it holds the code \"{}\"", finding.spelling);
    case CodeEvidence::IsInText:
      return fmt::format("its text holds \"{}\"", finding.spelling);
    case CodeEvidence::IsName:
    case CodeEvidence::None:
      break;
  }
  return "it has this name";
}

// What the XML library says about a file that does not load, with the place.
std::string LoadFaultText(const RepositoryFile& file) {
  const DescriptorReading reading = InspectDescriptor(file.path).reading;
  if (!IsLoadFault(reading.fault)) return "it loads by now, so the folder has changed";
  return reading.line == 0 ? FaultText(reading)
                           : fmt::format("line {}, column {}: {}", reading.line, reading.column,
                                         FaultText(reading));
}

// Collects the reasons of one code.
class Reasons {
 public:
  Reasons(const EvaluatedQuery& query, const std::string& code) : query_(query), code_(code) {}

  std::vector<AbsenceReason> Collect() {
    AddPacks();
    AddSharedFiles();
    AddFilesWithOtherCode();
    AddFaultyFiles();
    AddOverlongInstances();
    AddUnreadFiles();
    return std::move(reasons_);
  }

 private:
  void AddPacks() {
    const auto& packs = query_.model.Packages().kovuPackEntries();
    for (std::size_t i = 0; i < packs.size(); ++i) {
      for (std::size_t m = 0; m < packs[i].members.size(); ++m) AddMember(i, m);
      if (EqualByGlobalLocaleFold(FileStem(packs[i].kovuXmlFile), code_)) AddPackItself(packs[i]);
    }
  }

  void AddMember(std::size_t packIndex, std::size_t member) {
    const KovuPackEntry& pack = query_.model.Packages().kovuPackEntries()[packIndex];
    const PackageXmlEntry& entry = pack.members[member];
    const std::string code = CodeOf(entry.properties);
    if (code.empty() != code_.empty() || !EqualByGlobalLocaleFold(code, code_)) return;
    if (member == 0 && IsOwnInstance(pack, entry)) {
      AddPackItself(pack);
    } else if (member == 0) {
      reasons_.push_back({"packFirstMember",
                          code,
                          pack.kovuXmlFile,
                          fmt::format("{} lists it first, and the first member is taken for the "
                                      "pack itself: the pack has no instance of its own.",
                                      pack.kovuXmlFile),
                          "give the pack an INSTANCE of its own, whose \"xmlFilename\" is " +
                              Quoted(FileNameOf(pack.kovuXmlFile)),
                          {}});
      AddPackVerdict(packIndex, code);
    } else {
      AddPackVerdict(packIndex, code);
    }
  }

  // A chosen pack is no reason: its first member is lost for another one, the others are records.
  void AddPackVerdict(std::size_t packIndex, const std::string& code) {
    const auto& settings = query_.settings;
    const auto& packs = query_.model.Packages().kovuPackEntries();
    const auto& packResults = query_.model.Packs(settings.machineType, settings.osValue);
    if (packResults[packIndex].chosen) return;
    reasons_.push_back(
        {"packNotChosen",
         code,
         packs[packIndex].kovuXmlFile,
         fmt::format("{} lists it, but is not the pack in use: {}.", packs[packIndex].kovuXmlFile,
                     TextOf(packs, packResults, packIndex, settings.machineType, settings.osValue)),
         "",
         {}});
  }

  void AddPackItself(const KovuPackEntry& pack) {
    const auto known = std::find_if(reasons_.begin(), reasons_.end(), [&](const auto& reason) {
      return reason.reason == "packItself" && reason.file == pack.kovuXmlFile;
    });
    if (known != reasons_.end()) return;
    const std::string code =
        pack.members.empty() ? std::string() : CodeOf(pack.members.front().properties);
    reasons_.push_back(
        {"packItself",
         code,
         pack.kovuXmlFile,
         fmt::format("{} is a pack, and a pack itself never becomes a package.", pack.kovuXmlFile),
         "ask for one of its members",
         {}});
  }

  // An individual descriptor is one package, and has the last code in it.
  void AddSharedFiles() {
    if (code_.empty()) return;
    for (const PackageXmlEntry& entry : query_.model.Packages().packageXmlEntries()) {
      const std::string* lost = LostCodeIn(entry.properties);
      if (lost == nullptr) continue;
      reasons_.push_back(
          {"sharedFile",
           *lost,
           entry.xmlFile,
           fmt::format("{} holds the code {}, but is read as one package, whose code is the last "
                       "one in it, {}.",
                       entry.xmlFile, CodeText(*lost), CodeText(CodeOf(entry.properties))),
           "divide the file: each package needs a descriptor of its own",
           {}});
    }
  }

  // The requested code, if a later one in the same descriptor overrides it.
  const std::string* LostCodeIn(const SupXmlProperties& properties) const {
    if (EqualByGlobalLocaleFold(CodeOf(properties), code_)) return nullptr;
    for (const SupXmlProperty& property : properties) {
      if (!EqualByCLibraryFold(property.name, PropertyName::identificationCode)) continue;
      for (const std::string& value : property.values) {
        if (EqualByGlobalLocaleFold(value, code_)) return &value;
      }
    }
    return nullptr;
  }

  // The id may be the name of a file whose descriptor has another code.
  void AddFilesWithOtherCode() {
    for (std::size_t i = 0; i < query_.evaluation.built.size(); ++i) {
      const PropertySource& built = query_.evaluation.built[i];
      const std::string& file = built.entry->xmlFile;
      const bool named = !code_.empty() && (EqualByGlobalLocaleFold(FileStem(file), code_) ||
                                            EqualByGlobalLocaleFold(FileNameOf(file), code_));
      if (built.pack != nullptr || !named) continue;
      const std::string code = CodeOf(built.entry->properties);
      if (EqualByGlobalLocaleFold(code, code_)) continue;
      if (LostCodeIn(built.entry->properties) != nullptr) continue;
      const PropertySource* kept = KeptInsteadOf(i);
      reasons_.push_back(
          {kept == nullptr ? "otherCode" : "duplicate",
           code,
           file,
           fmt::format("{} is the descriptor of {}{}.", file, CodeText(code),
                       kept == nullptr
                           ? ""
                           : ", and was dropped as a repeat of the one in " + kept->File()),
           "ask for " + CodeText(code),
           {}});
    }
  }

  const PropertySource* KeptInsteadOf(std::size_t index) const {
    for (const Duplicate& duplicate : query_.evaluation.duplicates) {
      if (duplicate.index == index) return &query_.evaluation.built[duplicate.kept];
    }
    return nullptr;
  }

  void AddFaultyFiles() {
    for (const RepositoryFile& file : query_.model.Files()) {
      if (file.reading.fault == DescriptorFault::None) continue;
      const CodeFinding finding = FindCodeIn(file.path, code_);
      if (finding.evidence == CodeEvidence::None) continue;
      const Outcome outcome = OutcomeOf(file.reading);
      const bool isLoadFault =
          file.reading.kind != DescriptorKind::Neither && IsLoadFault(file.reading.fault);
      reasons_.push_back(
          {outcome.reason, finding.spelling, file.path,
           fmt::format("{} {}{}; {}.", file.path, outcome.text,
                       isLoadFault ? " (" + LoadFaultText(file) + ")" : "", EvidenceText(finding)),
           outcome.remedy, LogLinesOf(file)});
    }
  }

  void AddOverlongInstances() {
    if (code_.size() <= maxCodeBytes) return;
    for (const RepositoryFile& file : query_.model.Files()) {
      if (file.reading.overlongInstances.empty() || HasReasonIn(file.path)) continue;
      const CodeFinding finding = FindCodeIn(file.path, code_);
      if (finding.evidence != CodeEvidence::IsCode && finding.evidence != CodeEvidence::IsInText) {
        continue;
      }
      reasons_.push_back({"codeTooLong",
                          finding.spelling,
                          file.path,
                          fmt::format("{} has an INSTANCE with this code, and passes it over: an "
                                      "identification code has at most {} bytes.",
                                      file.path, maxCodeBytes),
                          "give the package a shorter code",
                          {}});
    }
  }

  bool HasReasonIn(const std::string& file) const {
    return std::any_of(reasons_.begin(), reasons_.end(),
                       [&file](const AbsenceReason& reason) { return reason.file == file; });
  }

  void AddUnreadFiles() {
    for (const UnreadFile& file : FindUnreadFiles(query_.settings.folder)) {
      const CodeFinding finding = FindCodeIn(file.path, code_);
      if (finding.evidence == CodeEvidence::None) continue;
      const std::string evidence = EvidenceText(finding);
      if (file.inSubfolder) {
        reasons_.push_back(
            {"inSubfolder",
             finding.spelling,
             file.path,
             fmt::format("{} is in a subfolder, and subfolders are not searched; {}.", file.path,
                         evidence),
             "move the file into the folder itself",
             {}});
      } else {
        reasons_.push_back(
            {"otherExtension",
             finding.spelling,
             file.path,
             fmt::format("{} is passed over, because its name does not end in exactly \"{}\"; {}.",
                         file.path, descriptorExtension, evidence),
             fmt::format("rename the file so that it ends in \"{}\"", descriptorExtension),
             {}});
      }
    }
  }

  const EvaluatedQuery& query_;
  const std::string& code_;
  std::vector<AbsenceReason> reasons_;
};

}  // namespace

std::vector<AbsenceReason> ExplainAbsence(const EvaluatedQuery& query, const std::string& code) {
  return Reasons(query, code).Collect();
}

std::vector<std::string> CodesInOtherPacks(const EvaluatedQuery& query, const std::string& code) {
  std::vector<std::string> codes;
  for (const KovuPackEntry& pack : query.model.Packages().kovuPackEntries()) {
    for (std::size_t m = 1; m < pack.members.size(); ++m) {
      const std::string spelling = CodeOf(pack.members[m].properties);
      if (!EqualByGlobalLocaleFold(spelling, code)) continue;
      if (std::find(codes.begin(), codes.end(), spelling) != codes.end()) continue;
      codes.insert(spelling == code ? codes.begin() : codes.end(), spelling);
    }
  }
  return codes;
}

}  // namespace Vornik::Cli
