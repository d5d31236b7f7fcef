// What lint looks for. A rule's name is its stable id: lower-case words joined by dashes; the first
// one names what is wrong. It is never renamed and never given to another finding, because people
// put it into scripts.
#ifndef VORNIK_CLI_LINT_RULES_H
#define VORNIK_CLI_LINT_RULES_H

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace Vornik::Cli {

enum class Severity { Info, Warning, Error };

// In the order of the table.
enum class LintId {
  // Files
  ExtensionCase,
  ExtensionOther,
  InSubfolder,
  NotReadable,
  NoMarker,
  MarkerSplit,
  MarkerStraddles,
  MarkerHidden,
  Utf16,
  BothMarkers,
  NameEncoding,
  NameInvalid,
  NameCollision,
  SeparatorForeign,
  NoDescriptors,
  // Documents
  OverLimits,
  NotWellFormed,
  NoRoot,
  NoProperties,
  NoInstances,
  InstanceMisfit,
  InstanceMisfitUnread,
  InstanceCodeTooLong,
  InstanceEmpty,
  InstanceNested,
  InstanceUnread,
  InstancesMerged,
  ElementCase,
  ValueMisplaced,
  AmpersandLost,
  ValueSplit,
  ValueEmpty,
  // Properties
  PropertyMissing,
  PropertyEmpty,
  PropertyRepeated,
  PropertyBlank,
  PropertyUnnamed,
  PropertyMisspelled,
  VersionMissing,
  TypeNotNumber,
  NumberOutOfRange,
  NumberTrailingText,
  // Identification codes
  CodeRepeated,
  CodeCase,
  CodeShadowed,
  // Platforms
  ListsUnequal,
  PlatformNotNumber,
  MachineTypeInvalid,
  PackageUnreachable,
  PackageUnlisted,
  PackageListedElsewhere,
  // Driver files and superseding
  ClassificationsMissing,
  ClassificationsSurplus,
  DriverFileUnparsed,
  VersionOrder,
  VersionOrderMixed,
  VersionEqual,
  CategoryShared,
  SupersedeUnknown,
  SupersedeSelf,
  SupersedeRing,
  SupersedeChain,
  SupersedeOverridden,
  RequirementUnknown,
  // Packs
  PackOwnMissing,
  PackOwnRepeated,
  PackListMissing,
  PacksCompete,
  MemberFileMissing,
  // Files of a package
  XmlFilenameMissingFile,
  XmlFilenameOther,
  PayloadMissing,
  PayloadShared,
  PayloadOutside,
  FilesUnnamed,
};

struct LintRule {
  LintId id;
  Severity severity;
  const char* name;
  const char* what;    // one sentence: what is wrong, and its effect
  const char* remedy;  // one sentence: what to do
};

// All of them, in the order of LintId.
const std::vector<LintRule>& LintRules();

const LintRule& RuleOf(LintId id);

// The rule with exactly that name; null if there is none.
const LintRule* FindLintRule(std::string_view name);

// "error", "warning", "info"
const char* NameOf(Severity severity);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_RULES_H
