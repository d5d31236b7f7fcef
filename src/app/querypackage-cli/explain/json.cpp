#include "explain/json.h"

#include <vector>

#include "explain/edits_text.h"
#include "explain/explain.h"
#include "output/query_json.h"
#include "remedy/edit_text.h"
#include "remedy/settings_change.h"

namespace Vornik::Cli {

namespace {

const char* NameOf(RemedyState state) {
  switch (state) {
    case RemedyState::NotNeeded:
      return "notNeeded";
    case RemedyState::Found:
      return "found";
    case RemedyState::None:
      return "none";
    case RemedyState::Unknown:
      break;
  }
  return "unknown";
}

const char* VerdictOf(const FilterExplanation& filter) {
  switch (filter.status) {
    case FilterStatus::Matched:
      return "matched";
    case FilterStatus::NotMatched:
      return "notMatched";
    default:
      return "notEvaluated";
  }
}

Json NamesOf(const std::vector<FilterId>& filters) {
  return ArrayOf(filters, [](FilterId filter) { return Json(FilterOf(filter).name); });
}

// Null where no file decided; a line of 0 is not known.
Json PlaceObject(const FilePlace& place) {
  if (place.file.empty()) return {};
  return {{"file", place.file}, {"line", place.line}};
}

Json FilterObject(const FilterExplanation& filter) {
  const Filter& info = FilterOf(filter.filter);
  const auto property = [](const PropertyReading& reading) {
    return Json{{"name", reading.name}, {"values", reading.values}};
  };
  return {{"filter", info.name},
          {"slot", info.slotName},
          {"status", filter.status},
          {"verdict", VerdictOf(filter)},
          {"runs", filter.runs},
          {"reason", filter.reason},
          {"text", filter.text.full},
          {"rule", info.rule},
          {"file", filter.file},
          {"properties", ArrayOf(filter.properties, property)},
          {"details", ArrayOf(filter.details, [](const auto& one) { return Json(one.full); })},
          {"log", filter.log},
          {"place", PlaceObject(filter.place)}};
}

Json GroupObject(const DriverGroup& group) {
  const auto ranked = [](const RankedPackage& package) {
    return Json{{"code", package.code},
                {"version", package.version},
                {"comparedAs", package.comparedAs},
                {"file", package.file},
                {"isThis", package.isThis}};
  };
  return {{"driverFiles", group.driverFiles}, {"ranking", ArrayOf(group.ranking, ranked)}};
}

Json SupersedeObject(const SupersedeChain& chain) {
  const auto listed = [](const ListedBy& list) {
    return Json{{"code", list.code}, {"file", list.file}, {"spelling", list.spelling}};
  };
  return {{"listedBy", ArrayOf(chain.listedBy, listed)},
          {"lists", chain.lists},
          {"listsUnknown", chain.unknown},
          {"groups", ArrayOf(chain.groups, GroupObject)},
          {"leftOutByExcludeList", chain.excluded},
          {"leftOutByPlatform", chain.otherPlatform},
          {"listOverridden", chain.listOverridden}};
}

// The changes from one query to another, with the whole of it as arguments of the program.
Json ChangeObject(const QuerySettings& before, const QuerySettings& after) {
  const Json from = SettingsObject(before);
  const Json to = SettingsObject(after);
  const auto change = [&](const SettingChange& one) {
    return Json{{"setting", one.setting},
                {"from", from[one.setting]},
                {"to", to[one.setting]},
                {"text", one.text}};
  };
  return {{"changes", ArrayOf(ChangesBetween(before, after), change)},
          {"arguments", QueryArguments(after)}};
}

Json MachineObject(const Machine& machine) {
  return {{"machineType", machine.machineType},
          {"osValue", static_cast<std::uint32_t>(machine.osValue)},
          {"osIsNamed", machine.osIsNamed},
          {"arcValue", static_cast<std::uint32_t>(machine.arcValue)},
          {"arcIsNamed", machine.arcIsNamed}};
}

const char* NameOf(EditKind kind) {
  switch (kind) {
    case EditKind::SetProperty:
      return "setProperty";
    case EditKind::AddFile:
      return "addFile";
    case EditKind::AddPackEntry:
      break;
  }
  return "addPackEntry";
}

Json EditObject(const Edit& edit) {
  const auto property = [](const SupXmlProperty& each) {
    return Json{{"name", each.name}, {"values", each.values}};
  };
  return {{"kind", NameOf(edit.kind)},
          {"file", edit.file},
          {"line", edit.line},
          {"property", edit.property},
          {"from", edit.before},
          {"to", edit.after},
          {"instance", ArrayOf(edit.properties, property)},
          {"text", TextOf(edit)}};
}

Json EffectsObject(const EditEffects& effects) {
  const auto machine = [](const MachineChanges& each) {
    return Json{{"machineType", each.machine.machineType},
                {"osValue", static_cast<std::uint32_t>(each.machine.osValue)},
                {"arcValue", static_cast<std::uint32_t>(each.machine.arcValue)},
                {"withdrawn", each.changes.withdrawn},
                {"offered", each.changes.offered}};
  };
  return {{"withdrawn", effects.changes.withdrawn},
          {"offered", effects.changes.offered},
          {"machines", ArrayOf(effects.machines, machine)},
          {"complete", effects.isComplete}};
}

Json RepositoryRemedyObject(const RepositoryRemedy& remedy) {
  return {{"edits", ArrayOf(remedy.edits, EditObject)}, {"effects", EffectsObject(remedy.effects)}};
}

Json RepositoryRemediesObject(const RepositoryRemedies& edits) {
  return {
      {"state", NameOf(edits.state)},
      {"smallest", ArrayOf(edits.smallest, RepositoryRemedyObject)},
      {"sparing", edits.sparing ? RepositoryRemedyObject(*edits.sparing) : Json()},
      {"searchEnded", edits.searchEnded},
      {"text",
       edits.smallest.empty() && edits.state != RemedyState::NotNeeded ? NoEditText(edits) : ""}};
}

Json RemediesObject(const QuerySettings& query, const Remedies& remedies) {
  const auto change = [&query](const QuerySettings& after) { return ChangeObject(query, after); };
  return {{"state", NameOf(remedies.state)},
          {"code", remedies.code},
          {"smallest", ArrayOf(remedies.queries, change)},
          {"searchEnded", remedies.searchEnded},
          {"inTheRepository", remedies.inTheRepository},
          {"machines", ArrayOf(remedies.machines.machines, MachineObject)},
          {"machinesComplete", remedies.machines.isComplete},
          {"repository", RepositoryRemediesObject(remedies.edits)}};
}

Json PackageObject(const QuerySettings& query, const PackageExplanation& package) {
  const auto repeat = [](const Repeat& dropped) {
    return Json{{"packageXmlFile", dropped.packageXmlFile},
                {"kovuXmlFile", dropped.kovuXmlFile},
                {"version", dropped.version}};
  };
  return {{"identificationCode", package.record.identificationCode},
          {"answer", NameOf(package.answer)},
          {"refusedBy", NamesOf(package.refusedBy)},
          {"undecidedBy", NamesOf(package.undecidedBy)},
          {"otherCase", package.otherCase},
          {"otherSpellings", package.otherSpellings},
          {"source",
           {{"file", package.sourceFile},
            {"isOwn", package.sourceIsOwn},
            {"text", package.sourceText}}},
          {"filters", ArrayOf(package.filters, FilterObject)},
          {"repeats", ArrayOf(package.repeats, repeat)},
          {"supersede", SupersedeObject(package.supersede)},
          {"wayOut", RemediesObject(query, package.remedies)}};
}

Json AbsenceObject(const AbsenceReason& reason) {
  return {{"reason", reason.reason}, {"code", reason.code},     {"file", reason.file},
          {"text", reason.text},     {"remedy", reason.remedy}, {"log", reason.log}};
}

const char* NameOf(Conclusion conclusion) {
  switch (conclusion) {
    case Conclusion::NotRun:
      return "notRun";
    case Conclusion::Offered:
      return NameOf(Answer::Offered);
    case Conclusion::Refused:
      return NameOf(Answer::Refused);
    case Conclusion::Undecided:
      return NameOf(Answer::Undecided);
    case Conclusion::Absent:
      return "absent";
    case Conclusion::Unknown:
      break;
  }
  return "unknown";
}

Json ExplanationDocument(const Explanation& explanation) {
  const auto record = [](const PackageExplanation& package) {
    return RecordObject(package.record);
  };
  Json document = QueryDocument(explanation.query, explanation.returnCode,
                                ArrayOf(explanation.packages, record));
  document["packageId"] = explanation.packageId;
  document["answer"] = NameOf(ConclusionOf(explanation));
  document["folderChanged"] = explanation.folderChanged;
  document["packages"] = ArrayOf(explanation.packages, [&](const PackageExplanation& package) {
    return PackageObject(explanation.query, package);
  });
  document["absence"] = ArrayOf(explanation.absence, AbsenceObject);
  document["absenceWayOut"] = explanation.absenceRemedies.code.empty()
                                  ? Json()
                                  : RemediesObject(explanation.query, explanation.absenceRemedies);
  document["warnings"] = explanation.warnings;
  return document;
}

}  // namespace

std::string ExplanationJson(const Explanation& explanation) {
  return JsonText(ExplanationDocument(explanation));
}

std::string ExplanationsJson(const std::vector<Explanation>& explanations) {
  return JsonText({{"schemaVersion", querySchemaVersion},
                   {"explanations", ArrayOf(explanations, ExplanationDocument)}});
}

}  // namespace Vornik::Cli
