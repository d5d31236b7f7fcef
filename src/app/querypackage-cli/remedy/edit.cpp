#include "remedy/edit.h"

#include <algorithm>
#include <utility>

#include "model/literals.h"
#include "records/pack_members.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

// The name of a member's file decides its path.
void SetPath(CopiedInstance& member, const std::string& pack) {
  member.entry = std::move(MembersOfPack(pack, {std::move(member.entry.properties)}).front());
}

void AddEntry(const Edit& edit, CopiedPack& pack) {
  CopiedInstance added{{edit.instance.pack, pack.nextEntry++}, {"", edit.properties}};
  SetPath(added, pack.file);
  const bool isOwn =
      IsSelfInstance(pack.file, GetPropertyValue(PropertyName::xmlFilename, edit.properties));
  pack.members.insert(isOwn ? pack.members.begin() : pack.members.end(), std::move(added));
}

bool SetTheSame(const Edit& a, const Edit& b) {
  return a.kind == EditKind::SetProperty && b.kind == a.kind && a.instance == b.instance &&
         a.property == b.property;
}

bool IsSame(const Edit& a, const Edit& b) {
  return a.kind == b.kind && a.file == b.file && a.instance == b.instance &&
         a.property == b.property && a.after == b.after &&
         std::equal(a.properties.begin(), a.properties.end(), b.properties.begin(),
                    b.properties.end(), [](const SupXmlProperty& x, const SupXmlProperty& y) {
                      return x.name == y.name && x.values == y.values;
                    });
}

}  // namespace

Edit EditOf(const CopiedInstance& instance, const std::string& file, std::string property,
            std::vector<std::string> after) {
  Edit edit;
  edit.file = file;
  edit.instance = instance.id;
  edit.before = GetPropertyValues(property, instance.entry.properties);
  edit.property = std::move(property);
  edit.after = std::move(after);
  return edit;
}

void SetValues(SupXmlProperties& properties, const std::string& name,
               const std::vector<std::string>& values) {
  const auto last = std::find_if(
      properties.rbegin(), properties.rend(),
      [&name](const SupXmlProperty& each) { return EqualByCLibraryFold(each.name, name); });
  if (last == properties.rend()) {
    properties.push_back({name, "string", values});
  } else {
    last->values = values;
  }
}

void Apply(const Edit& edit, FolderCopy& folder) {
  if (edit.kind == EditKind::AddFile) {
    folder.addedFiles.insert(edit.file);
    return;
  }
  if (edit.kind == EditKind::AddPackEntry) {
    AddEntry(edit, folder.packs[edit.instance.pack]);
    return;
  }
  CopiedInstance* instance = folder.Find(edit.instance);
  if (instance == nullptr) return;
  SetValues(instance->entry.properties, edit.property, edit.after);
  if (edit.instance.pack != InstanceId::noPack) {
    SetPath(*instance, folder.packs[edit.instance.pack].file);
  }
}

bool AreSame(const Edits& a, const Edits& b) {
  return std::is_permutation(a.begin(), a.end(), b.begin(), b.end(), IsSame);
}

Edits Merged(Edits edits) {
  Edits merged;
  for (Edit& edit : edits) {
    const auto same = std::find_if(merged.begin(), merged.end(),
                                   [&edit](const Edit& each) { return SetTheSame(each, edit); });
    if (same == merged.end()) {
      merged.push_back(std::move(edit));
    } else {
      same->after = std::move(edit.after);
    }
  }
  return merged;
}

}  // namespace Vornik::Cli
