#include "plain_absence.h"

#include <optional>

#include "plain_properties.h"
#include "plain_results.h"

namespace Vornik::Testing {

namespace {

using Kind = PlainFile::Kind;

std::string CodeOf(const SupXmlProperties& properties) {
  return PlainValue("identificationCode", properties);
}

std::string NameOf(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::string StemOf(const std::string& path) {
  const std::string name = NameOf(path);
  return name.substr(0, name.rfind('.'));
}

// The first value that means the id, in properties of the name; of any name where it is empty.
const std::string* FindValue(const SupXmlProperties& properties, const std::string& name,
                             const std::string& id) {
  for (const SupXmlProperty& property : properties) {
    if (!name.empty() && !PlainSameName(property.name, name)) continue;
    for (const std::string& value : property.values) {
      if (PlainFoldedEqual(value, id)) return &value;
    }
  }
  return nullptr;
}

class Absence {
 public:
  Absence(const PlainFacts& facts, const std::vector<PlainFile>& unread, const std::string& id)
      : facts_(facts), query_(facts.query), unread_(unread), id_(id) {}

  std::vector<PlainAbsence> Find() {
    if (HasRecordOf(id_)) return {};
    AddPacks();
    AddSharedFiles();
    AddFilesWithOtherCodes();
    AddFilesWithoutPackage();
    AddUnreadFiles();
    return found_;
  }

 private:
  bool Means(const std::string& text) const { return PlainFoldedEqual(text, id_); }

  bool IsNamedAfterId(const std::string& path) const {
    return !id_.empty() && (Means(StemOf(path)) || Means(NameOf(path)));
  }

  bool HasRecordOf(const std::string& code) const {
    for (const QueryPackageResult& record : facts_.records) {
      if (record.identificationCode == code) return true;
    }
    return false;
  }

  // Where the packages of a query have the id in another case, what is said of them is no reason.
  void Add(const std::string& word, const std::string& code, const std::string& file) {
    if (!Means(code) || !HasRecordOf(code)) found_.push_back({word, code, file});
  }

  void AddPacks() {
    PlainLog log;
    const int chosen = PlainPackChoice(query_, log);
    const auto& packs = query_.repository.kovuPackEntries();
    for (std::size_t i = 0; i < packs.size(); ++i) {
      AddMembers(packs[i], static_cast<int>(i) == chosen);
      if (!packs[i].members.empty() || Means(StemOf(packs[i].kovuXmlFile))) AddPackItself(packs[i]);
    }
  }

  void AddMembers(const KovuPackEntry& pack, bool isChosen) {
    for (std::size_t m = 0; m < pack.members.size(); ++m) {
      const std::string code = CodeOf(pack.members[m].properties);
      if (!Means(code)) continue;
      if (m == 0 && IsOwn(pack)) continue;
      if (m == 0) Add("packFirstMember", code, pack.kovuXmlFile);
      if (!isChosen) Add("packNotChosen", code, pack.kovuXmlFile);
    }
  }

  static bool IsOwn(const KovuPackEntry& pack) {
    const std::string name = PlainValue("xmlFilename", pack.members[0].properties);
    return name.empty() || name == NameOf(pack.kovuXmlFile);
  }

  void AddPackItself(const KovuPackEntry& pack) {
    const std::string code = pack.members.empty() ? "" : CodeOf(pack.members[0].properties);
    const bool hasCode = !pack.members.empty() && Means(code) && IsOwn(pack);
    if (hasCode || Means(StemOf(pack.kovuXmlFile))) Add("packItself", code, pack.kovuXmlFile);
  }

  void AddSharedFiles() {
    if (id_.empty()) return;
    for (const PackageXmlEntry& entry : query_.repository.packageXmlEntries()) {
      const std::string* lost = LostIn(entry);
      if (lost != nullptr) Add("sharedFile", *lost, entry.xmlFile);
    }
  }

  // The id, where a later code of the same descriptor counts.
  const std::string* LostIn(const PackageXmlEntry& entry) const {
    if (Means(CodeOf(entry.properties))) return nullptr;
    return FindValue(entry.properties, "identificationCode", id_);
  }

  void AddFilesWithOtherCodes() {
    for (const PackageXmlEntry& entry : query_.repository.packageXmlEntries()) {
      const std::string code = CodeOf(entry.properties);
      if (!IsNamedAfterId(entry.xmlFile) || Means(code) || LostIn(entry) != nullptr) continue;
      const bool isKept = PlainOriginOf(query_, code).file == entry.xmlFile;
      Add(isKept ? "otherCode" : "duplicate", code, entry.xmlFile);
    }
  }

  void AddFilesWithoutPackage() {
    for (const PlainFile& file : facts_.folder.files) {
      const std::string word = FaultOf(file);
      if (!word.empty()) AddFile(word, file);
    }
  }

  // Empty: none.
  static std::string FaultOf(const PlainFile& file) {
    switch (file.kind) {
      case Kind::Folder:
        return "notRead";
      case Kind::Neither:
        return "notADescriptor";
      case Kind::Individual:
        return file.instances.at(0).empty() ? "notLoaded" : "";
      case Kind::Pack:
        return "";
      default:
        return "notLoaded";
    }
  }

  void AddFile(const std::string& word, const PlainFile& file) {
    const std::optional<std::string> code = FindIn(file);
    const std::string path = PlainPathOf(facts_, file);
    if (code) {
      Add(word, *code, path);
    } else if (IsNamedAfterId(path)) {
      Add(word, "", path);
    }
  }

  // The id as a file's codes spell it; of a file that cannot be parsed, as any of its texts does.
  std::optional<std::string> FindIn(const PlainFile& file) const {
    const bool isBroken = file.kind == Kind::BrokenIndividual || file.kind == Kind::BrokenPack;
    const bool isRootless =
        file.kind == Kind::RootlessIndividual || file.kind == Kind::RootlessPack;
    if (isRootless || (isBroken && id_.empty())) return std::nullopt;
    for (const SupXmlProperties& properties : file.instances) {
      const std::string* value = FindValue(properties, isBroken ? "" : "identificationCode", id_);
      if (value != nullptr) return *value;
    }
    return std::nullopt;
  }

  void AddUnreadFiles() {
    for (const PlainFile& file : unread_) {
      const bool isInSubfolder = file.name.find('/') != std::string::npos;
      AddFile(isInSubfolder ? "inSubfolder" : "otherExtension", file);
    }
  }

  const PlainFacts& facts_;
  const QueryPackageImp& query_;
  const std::vector<PlainFile>& unread_;
  const std::string& id_;
  std::vector<PlainAbsence> found_;
};

}  // namespace

std::vector<PlainAbsence> PlainAbsenceOf(const PlainFacts& facts,
                                         const std::vector<PlainFile>& unread,
                                         const std::string& id) {
  return Absence(facts, unread, id).Find();
}

}  // namespace Vornik::Testing
