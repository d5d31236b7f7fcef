#include "lint/documents.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "inspection/dropped_ampersands.h"
#include "lint/markup.h"
#include "model/folder_reading.h"
#include "model/literals.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

// To be followed by a full stop.
std::string ReasonOf(const DescriptorReading& reading) {
  std::string reason = FaultText(reading);
  while (!reason.empty() && reason.back() == '.') reason.pop_back();
  return reason;
}

void CheckFirstAttributes(const SearchedFile& file, LintReport& report) {
  const bool isPack = file.inspection.reading.kind == DescriptorKind::Pack;
  for (const auto& instance : file.inspection.instancesWithoutClassName) {
    report.Add(isPack ? LintId::InstanceMisfit : LintId::InstanceMisfitUnread, file.name,
               instance.place,
               fmt::format("The first attribute of this INSTANCE is {}, not CLASSNAME{}.",
                           QuotedBriefly(instance.firstAttribute),
                           isPack ? ": a query of this folder never returns"
                                  : ", which would hold every query if the file were a pack"));
  }
}

bool HasPackClass(const PlacedPackage& instance) {
  return instance.className.find(Marker::pack) != std::string::npos;
}

void CheckBothMarkers(const SearchedFile& file, LintReport& report) {
  const auto& instances = file.inspection.packages;
  if (!file.inspection.reading.markers.individual) return;
  if (std::any_of(instances.begin(), instances.end(), HasPackClass)) return;
  const std::size_t offset = std::min(file.text.find(Marker::pack), file.text.size());
  report.Add(LintId::BothMarkers, file.name, TextPositions(file.text).Of(offset),
             fmt::format("The file holds the markers {} and {} and is read as a pack, but no "
                         "INSTANCE of it has the pack's class.",
                         Quoted(Marker::pack), Quoted(Marker::individual)));
}

void CheckInstance(const SearchedFile& file, const PlacedPackage& instance, LintReport& report) {
  if (instance.hasOverlongCode) {
    report.Add(LintId::InstanceCodeTooLong, file.name, instance.place,
               "The identification code of this INSTANCE has more than 4,096 bytes, so it gives no "
               "package.");
  } else if (instance.properties.empty()) {
    report.Add(LintId::InstanceEmpty, file.name, instance.place,
               "This INSTANCE has no property, so it gives no package.");
  }
  if (instance.outerLine) {
    report.Add(LintId::InstanceNested, file.name, instance.place,
               fmt::format("This INSTANCE stands inside the one of line {}, which gets its "
                           "properties too.",
                           *instance.outerLine));
  }
}

void CheckPack(const SearchedFile& file, LintReport& report) {
  const DescriptorInspection& inspection = file.inspection;
  // The classes of the instances after the fault are not known.
  if (inspection.reading.fault == DescriptorFault::InstanceWithoutClassName) return;
  CheckBothMarkers(file, report);
  if (inspection.reading.fault == DescriptorFault::NoInstances) {
    report.Add(LintId::NoInstances, file.name, inspection.root,
               "The pack has no INSTANCE that begins with CLASSNAME, so nothing of it is read.");
  }
  for (const PlacedPackage& instance : inspection.packages) CheckInstance(file, instance, report);
}

void CheckIndividual(const SearchedFile& file, LintReport& report) {
  if (file.inspection.reading.fault != DescriptorFault::NoProperties) return;
  report.Add(LintId::NoProperties, file.name, file.inspection.root,
             "The descriptor has no PROPERTY and no PROPERTY.ARRAY, so it gives no package.");
}

void CheckAmpersands(const SearchedFile& file, LintReport& report) {
  const DroppedAmpersands dropped =
      FindDroppedAmpersands(*file.inspection.bytes, LintReport::mostPerFile);
  for (const TextPosition& place : dropped.first) {
    report.Add(LintId::AmpersandLost, file.name, place,
               "This ampersand begins no reference, so it vanishes from the text.");
  }
  report.AddUnplaced(LintId::AmpersandLost, file.name, dropped.count - dropped.first.size());
}

}  // namespace

void CheckDocument(const SearchedFile& file, LintReport& report) {
  const DescriptorReading& reading = file.inspection.reading;
  if (IsLoadFault(reading.fault)) {
    report.Add(IsOverLimit(reading.fault) ? LintId::OverLimits : LintId::NotWellFormed, file.name,
               {reading.line, reading.column},
               fmt::format("The document does not load: {}.", ReasonOf(reading)));
    return;
  }
  if (reading.fault == DescriptorFault::NoRoot) {
    report.Add(LintId::NoRoot, file.name, {},
               "The document has no element that can be read, so it gives no package.");
    return;
  }
  CheckFirstAttributes(file, report);
  if (reading.kind == DescriptorKind::Pack) {
    CheckPack(file, report);
  } else {
    CheckIndividual(file, report);
  }
  CheckMarkup(file, report);
  CheckAmpersands(file, report);
}

}  // namespace Vornik::Cli
