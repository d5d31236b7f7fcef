#include "lint_documents.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "lint_package.h"
#include "literals.h"
#include "wording.h"

namespace Vornik::Cli {

namespace {

using Nodes = std::vector<const TiXmlNode*>;

LintId IdOf(LoadFault fault) {
  switch (fault) {
    case LoadFault::NestedTooDeep:
    case LoadFault::TooManyAttributes:
    case LoadFault::TooManyProperties:
      return LintId::OverLimits;
    case LoadFault::Unreadable:
      return LintId::NotReadable;
    case LoadFault::Empty:
    case LoadFault::NotWellFormed:
    case LoadFault::None:
      break;
  }
  return LintId::NotWellFormed;
}

// To be followed by a full stop.
std::string ReasonOf(const LoadOutcome& outcome) {
  std::string reason = outcome.reason;
  while (!reason.empty() && reason.back() == '.') reason.pop_back();
  return reason;
}

void CheckMisfits(const SearchedFile& file, const TiXmlNode& root, LintReport& report) {
  Nodes misfits;
  CollectMisfits(&root, misfits);
  const bool isPack = IsKovuText(file.markers);
  for (const TiXmlNode* misfit : misfits) {
    report.Add(isPack ? LintId::InstanceMisfit : LintId::InstanceMisfitUnread, file.name,
               PlaceOf(*misfit),
               fmt::format("The first attribute of this INSTANCE is {}, not CLASSNAME{}.",
                           QuotedBriefly(FirstAttributeOf(*misfit).name),
                           isPack ? ": a query of this folder never returns"
                                  : ", which would hold every query if the file were a pack"));
  }
}

bool HasPackClass(const TiXmlNode* instance) {
  return FirstAttributeOf(*instance).value.find(Marker::pack) != std::string::npos;
}

void CheckBothMarkers(const SearchedFile& file, const Nodes& instances, LintReport& report) {
  if (!file.markers.individual) return;
  if (std::any_of(instances.begin(), instances.end(), HasPackClass)) return;
  const std::size_t offset = std::min(file.text.find(Marker::pack), file.text.size());
  report.Add(LintId::BothMarkers, file.name, TextPositions(file.text).Of(offset),
             fmt::format("The file holds the markers {} and {} and is read as a pack, but no "
                         "INSTANCE of it has the pack's class.",
                         Quoted(Marker::pack), Quoted(Marker::individual)));
}

void CheckInstance(const SearchedFile& file, const TiXmlNode& instance, LintReport& report) {
  Nodes properties;
  CollectProperties(&instance, properties);
  if (properties.empty()) {
    report.Add(LintId::InstanceEmpty, file.name, PlaceOf(instance),
               "This INSTANCE has no property, so it gives no package.");
  }
  if (const TiXmlNode* outer = EnclosingInstance(instance)) {
    report.Add(LintId::InstanceNested, file.name, PlaceOf(instance),
               fmt::format("This INSTANCE stands inside the one of line {}, which gets its "
                           "properties too.",
                           LineOf(*outer)));
  }
}

void CheckPack(const SearchedFile& file, const TiXmlNode& root, LintReport& report) {
  Nodes instances;
  const bool isHeld = CollectInstances(&root, instances) != nullptr;
  CheckBothMarkers(file, instances, report);
  if (isHeld) return;
  if (instances.empty()) {
    report.Add(LintId::NoInstances, file.name, PlaceOf(root),
               "The pack has no INSTANCE that begins with CLASSNAME, so nothing of it is read.");
  }
  for (const TiXmlNode* instance : instances) CheckInstance(file, *instance, report);
}

void CheckIndividual(const SearchedFile& file, const TiXmlNode& root, LintReport& report) {
  Nodes properties;
  CollectProperties(&root, properties);
  if (!properties.empty()) return;
  report.Add(LintId::NoProperties, file.name, PlaceOf(root),
             "The descriptor has no PROPERTY and no PROPERTY.ARRAY, so it gives no package.");
}

void CheckAmpersands(const SearchedFile& file, LintReport& report) {
  const LostAmpersands lost = FindLostAmpersands(file.bytes, LintReport::mostPerFile);
  for (const TextPosition& place : lost.first) {
    report.Add(LintId::AmpersandLost, file.name, place,
               "This ampersand begins no reference, so it vanishes from the text.");
  }
  report.AddUnplaced(LintId::AmpersandLost, file.name, lost.count - lost.first.size());
}

}  // namespace

void CheckDocument(const SearchedFile& file, const CimXmlDocument& document,
                   const LoadOutcome& outcome, LintReport& report) {
  if (outcome.fault != LoadFault::None) {
    report.Add(IdOf(outcome.fault), file.name, {outcome.line, outcome.column},
               fmt::format("The document does not load: {}.", ReasonOf(outcome)));
    return;
  }
  if (document.Root() == nullptr) {
    report.Add(LintId::NoRoot, file.name, {},
               "The document has no element that can be read, so it gives no package.");
    return;
  }
  const TiXmlNode& root = *document.Root();
  CheckMisfits(file, root, report);
  if (IsKovuText(file.markers)) {
    CheckPack(file, root, report);
  } else {
    CheckIndividual(file, root, report);
  }
  CheckAmpersands(file, report);
}

}  // namespace Vornik::Cli
