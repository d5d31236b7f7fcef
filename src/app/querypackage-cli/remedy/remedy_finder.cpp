#include "remedy/remedy_finder.h"

#include <algorithm>
#include <utility>

#include "model/literals.h"
#include "remedy/edit_search.h"
#include "remedy/remedies.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

// Whether it changes which packs apply or which one is chosen, and so all their members.
bool IsOfPack(const Edit& edit) {
  if (edit.instance.pack == InstanceId::noPack) return false;
  if (edit.kind == EditKind::AddPackEntry) {
    return IsSelfInstance(edit.file, GetPropertyValue(PropertyName::xmlFilename, edit.properties));
  }
  return edit.kind == EditKind::SetProperty &&
         (edit.property == PropertyName::applicableMachineTypes ||
          edit.property == PropertyName::applicableOperatingSystems ||
          edit.property == PropertyName::Version);
}

template <typename Visit>
void ForEachEntry(const Repository& repository, Visit visit) {
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) {
    std::for_each(pack.members.begin(), pack.members.end(), visit);
  }
  const auto& individuals = repository.packageXmlEntries();
  std::for_each(individuals.begin(), individuals.end(), visit);
}

}  // namespace

RemedyFinder::RemedyFinder(QueryModel& folder, const QuerySettings& settings,
                           PropertyPlaces& places)
    : folder_(folder), settings_(settings), places_(places) {}

const Neighbourhoods& RemedyFinder::Connections() {
  if (!connections_) connections_.emplace(folder_.Packages());
  return *connections_;
}

EditedFolder& RemedyFinder::Part(const std::string& code) {
  const bool isKnown =
      part_ != nullptr && Connections().NumberOf(code) == Connections().NumberOf(partCode_);
  if (!isKnown) {
    part_ =
        std::make_unique<EditedFolder>(Connections().Of({code}), Edits(), settings_.folder, files_);
    partCode_ = code;
    partQuery_.reset();
  }
  return *part_;
}

const Evaluation& RemedyFinder::QueryOfPart(const std::string& code) {
  QueryModel& model = PartOf(code);
  if (!partQuery_) partQuery_ = model.Evaluate(settings_);
  return *partQuery_;
}

Remedies RemedyFinder::Find(const std::string& code) {
  Remedies remedies = FindRemedies(PartOf(code), folder_.Named(), settings_, code);
  AddEdits(remedies);
  return remedies;
}

void RemedyFinder::AddEdits(Remedies& remedies) {
  RepositoryRemedies& edits = remedies.edits;
  const FolderCopy& part = Part(remedies.code).Copy();
  EditSearch search = FindEdits(part, settings_, remedies.code, files_, Sparing::No);
  edits.searchEnded = search.hasReachedLimit;
  edits.obstacle = search.obstacle;
  edits.isFixed = search.isFixed;
  for (Edits& each : search.smallest) {
    edits.smallest.push_back(RemedyOf(remedies.code, std::move(each)));
  }
  if (edits.smallest.empty()) {
    edits.state = search.hasReachedLimit ? RemedyState::Unknown : RemedyState::None;
    return;
  }
  edits.state = RemedyState::Found;
  const auto withdraws = [](const RepositoryRemedy& each) { return each.effects.Withdraws(); };
  if (!std::all_of(edits.smallest.begin(), edits.smallest.end(), withdraws)) return;
  search = FindEdits(part, settings_, remedies.code, files_, Sparing::Yes);
  for (Edits& each : search.smallest) {
    RepositoryRemedy sparing = RemedyOf(remedies.code, std::move(each));
    if (sparing.effects.Withdraws()) continue;
    edits.sparing = std::move(sparing);
    return;
  }
}

RepositoryRemedy RemedyFinder::RemedyOf(const std::string& code, Edits edits) {
  const FolderCopy affected = AffectedBy(edits, code);
  const FolderReading reading = affected.Reading();
  const FolderMachines machines = NamedMachines(reading.repository).All();
  RepositoryRemedy remedy;
  remedy.effects = EffectsOf(edits, affected, machines.machines, settings_, code, files_);
  if (!machines.isComplete) remedy.effects.isComplete = false;
  AddLines(edits);
  remedy.edits = std::move(edits);
  return remedy;
}

void RemedyFinder::AddLines(Edits& edits) {
  const Repository& packages = folder_.Packages();
  for (Edit& edit : edits) {
    if (edit.kind != EditKind::SetProperty) continue;
    const InstanceId& id = edit.instance;
    const auto& instances = id.pack == InstanceId::noPack
                                ? packages.packageXmlEntries()
                                : packages.kovuPackEntries()[id.pack].members;
    if (id.entry >= instances.size()) continue;  // of an entry that another edit adds
    edit.line = places_.LineOf(edit.file, instances[id.entry].properties, edit.property.c_str(),
                               PropertyRead::List);
  }
}

FolderCopy RemedyFinder::AffectedBy(const Edits& edits, const std::string& code) {
  if (std::any_of(edits.begin(), edits.end(), IsOfPack)) return CopyOf(folder_.Packages());
  std::vector<std::string> codes{code};
  for (const Edit& edit : edits) {
    if (edit.kind != EditKind::AddFile) continue;
    const std::vector<std::string> others = CodesThatName(edit.file);
    codes.insert(codes.end(), others.begin(), others.end());
  }
  return Connections().Of(codes);
}

std::vector<std::string> RemedyFinder::CodesThatName(const std::string& file) {
  if (!codesByFile_) {
    codesByFile_.emplace();
    ForEachEntry(folder_.Packages(), [this](const PackageXmlEntry& entry) {
      const std::string code = CodeOf(entry);
      for (const char* property : {PropertyName::xmlFilename, PropertyName::payload}) {
        const std::string name = GetPropertyValue(property, entry.properties);
        if (!name.empty()) (*codesByFile_)[PathInFolder(settings_.folder, name)].insert(code);
      }
    });
  }
  const auto codes = codesByFile_->find(file);
  if (codes == codesByFile_->end()) return {};
  return {codes->second.begin(), codes->second.end()};
}

}  // namespace Vornik::Cli
