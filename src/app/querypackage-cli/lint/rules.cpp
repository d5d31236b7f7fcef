#include "lint/rules.h"

#include <algorithm>
#include <iterator>

namespace Vornik::Cli {

namespace {

constexpr LintRule table[] = {
    {LintId::ExtensionCase, Severity::Warning, "extension-case",
     "The file's name ends in \".xml\" in another case, so no query reads it.",
     "Rename the file so that it ends in exactly \".xml\"."},
    {LintId::ExtensionOther, Severity::Info, "extension-other",
     "The file holds a descriptor's marker but does not end in \".xml\", so no query reads it.",
     "Rename the file if it is meant to be a descriptor."},
    {LintId::InSubfolder, Severity::Info, "in-subfolder",
     "The descriptor lies in a subfolder, and subfolders are not searched.",
     "Move the file into the folder itself if it is meant to be read."},
    {LintId::NotReadable, Severity::Error, "not-readable",
     "The entry's name ends in \".xml\", but it is no regular file that can be read, so it gives "
     "no package.",
     "Replace it by a readable file, or remove it."},
    {LintId::NoMarker, Severity::Warning, "no-marker",
     "The file holds neither the marker of a pack nor that of an individual descriptor, so it "
     "gives no package.",
     "Give the INSTANCE the class name of its kind, or move the file away."},
    {LintId::MarkerSplit, Severity::Error, "marker-split",
     "A line break stands inside the marker, so the search misses it and the file is taken for "
     "another kind.",
     "Write the marker on one line."},
    {LintId::MarkerStraddles, Severity::Error, "marker-straddles",
     "The marker reaches over the end of a piece of 1,023 bytes, so the search misses it and the "
     "file is taken for another kind.",
     "Begin a new line shortly before the marker."},
    {LintId::MarkerHidden, Severity::Error, "marker-hidden",
     "The marker stands behind a byte at which the search ends, so it is missed and the file is "
     "taken for another kind.",
     "Remove the zero bytes, and on Windows the bytes 0x1A, before the marker."},
    {LintId::Utf16, Severity::Error, "utf-16",
     "The file is in UTF-16, in which the search finds no marker, so it gives no package.",
     "Save the file in UTF-8."},
    {LintId::BothMarkers, Severity::Warning, "both-markers",
     "The file holds both markers but no INSTANCE of the pack's class, so an individual "
     "descriptor is probably read as a pack.",
     "Remove the pack's marker from comments and values, or give the pack's own INSTANCE its "
     "class name."},
    {LintId::NameEncoding, Severity::Warning, "name-encoding",
     "The file name holds characters that the target's encoding of names may not hold, so the "
     "file may not be found.",
     "Use letters, digits and punctuation of ASCII in file names."},
    {LintId::NameInvalid, Severity::Error, "name-invalid",
     "The target's file system cannot hold a file of this name.",
     "Choose a name without the named character or word."},
    {LintId::NameCollision, Severity::Error, "name-collision",
     "Two files of the folder have the same name on the target, which can hold only one of them.",
     "Rename or remove one of the two."},
    {LintId::SeparatorForeign, Severity::Error, "separator-foreign",
     "The file name holds a backslash, which is no separator on the target, so the file is not "
     "found.",
     "Write forward slashes between folder and file."},
    {LintId::NoDescriptors, Severity::Error, "no-descriptors",
     "No file of the folder is a descriptor that can be read, so a query of it finds nothing.",
     "Check that this is the folder of the descriptors."},

    {LintId::OverLimits, Severity::Error, "over-limits",
     "The document is over a limit of the reader, so it does not load and gives no package.",
     "Make the document flatter or smaller, or divide it."},
    {LintId::NotWellFormed, Severity::Error, "not-well-formed",
     "The document is not well-formed XML, so it does not load and gives no package.",
     "Correct the document at the place that is named."},
    {LintId::NoRoot, Severity::Error, "no-root",
     "The document has no root element that can be read, so it gives no package.",
     "Write the descriptor's elements, and no declarations inside a document type."},
    {LintId::NoProperties, Severity::Error, "no-properties",
     "The descriptor has no property at all, so it gives no package.",
     "Write PROPERTY and PROPERTY.ARRAY elements, in exactly this case."},
    {LintId::NoInstances, Severity::Error, "no-instances",
     "The pack has no INSTANCE that begins with CLASSNAME, so none of its packages is read.",
     "Put the pack and each member into an INSTANCE with a CLASSNAME."},
    {LintId::InstanceMisfit, Severity::Error, "instance-misfit",
     "The first attribute of an INSTANCE of a pack is not CLASSNAME, so a query of this folder "
     "never returns.",
     "Put CLASSNAME before every other attribute."},
    {LintId::InstanceMisfitUnread, Severity::Info, "instance-misfit-unread",
     "The first attribute of an INSTANCE is not CLASSNAME, which would hold every query if the "
     "file were a pack.",
     "Put CLASSNAME before every other attribute."},
    {LintId::InstanceCodeTooLong, Severity::Error, "instance-code-too-long",
     "The identification code of an INSTANCE of a pack has more than 4,096 bytes, so it gives no "
     "package.",
     "Give the package a shorter code."},
    {LintId::InstanceEmpty, Severity::Warning, "instance-empty",
     "An INSTANCE of a pack has no property, so it gives no package.",
     "Write the member's properties, or remove the INSTANCE."},
    {LintId::InstanceNested, Severity::Warning, "instance-nested",
     "An INSTANCE of a pack stands inside another one, which gets its properties too.",
     "Put the INSTANCE elements beside one another."},
    {LintId::InstanceUnread, Severity::Error, "instance-unread",
     "An INSTANCE of a pack has no attributes or is not in capital letters, so it gives no "
     "package: "
     "its properties are lost, or belong to the INSTANCE around it.",
     "Write INSTANCE, with CLASSNAME as its first attribute."},
    {LintId::InstancesMerged, Severity::Error, "instances-merged",
     "An individual descriptor has several INSTANCE elements and is read as one package of all "
     "their properties.",
     "Divide the file into one for each package."},
    {LintId::ElementCase, Severity::Error, "element-case",
     "An element is written in another case than one that is read, so its content is lost.",
     "Write PROPERTY, PROPERTY.ARRAY, VALUE and VALUE.ARRAY in capital letters."},
    {LintId::ValueMisplaced, Severity::Error, "value-misplaced",
     "A VALUE directly in a PROPERTY.ARRAY, or a VALUE.ARRAY in a PROPERTY, is not read.",
     "Put the VALUE elements of a PROPERTY.ARRAY into a VALUE.ARRAY, and those of a PROPERTY into "
     "the PROPERTY itself."},
    {LintId::AmpersandLost, Severity::Warning, "ampersand-lost",
     "An ampersand begins no reference and vanishes from the text.",
     "Write \"&amp;\" for an ampersand."},
    {LintId::ValueSplit, Severity::Warning, "value-split",
     "A comment, an element or a mix of CDATA and text divides a VALUE into several values.",
     "Keep one piece of text in each VALUE."},
    {LintId::ValueEmpty, Severity::Warning, "value-empty",
     "An empty VALUE is no entry of its list, so every later entry moves up by one.",
     "Write a value, or remove the VALUE and its counterparts in the other lists."},

    {LintId::PropertyMissing, Severity::Error, "property-missing",
     "A property that the filters need is missing, so the package is judged wrongly or not at "
     "all.",
     "Write the property."},
    {LintId::PropertyEmpty, Severity::Error, "property-empty",
     "A property that the filters need has no value, so the package is judged wrongly or not at "
     "all.",
     "Give the property a value."},
    {LintId::PropertyRepeated, Severity::Warning, "property-repeated",
     "A property is given more than once, and the last one decides.", "Write every property once."},
    {LintId::PropertyBlank, Severity::Error, "property-blank",
     "A value begins or ends with a blank, so a comparison with the same text without it fails.",
     "Remove the blank; none is removed from CDATA and references."},
    {LintId::PropertyUnnamed, Severity::Error, "property-unnamed",
     "A property has no attribute NAME, in this case, so nothing finds its value.",
     "Write the attribute NAME in capital letters."},
    {LintId::PropertyMisspelled, Severity::Warning, "property-misspelled",
     "The name of a property is one letter away from one that is read, so it is probably "
     "misspelled and nothing reads it.",
     "Correct the name."},
    {LintId::VersionMissing, Severity::Warning, "version-missing",
     "\"Version\" is missing or empty, so the package ranks lowest of its driver family, or the "
     "pack displaces no other.",
     "Write the version."},
    {LintId::TypeNotNumber, Severity::Error, "type-not-number",
     "\"type\" is no number, so it reads as 0.", "Write the update type as a decimal number."},
    {LintId::NumberOutOfRange, Severity::Error, "number-out-of-range",
     "A number is out of range, so it reads as another one.",
     "Write a number of at most 2147483647."},
    {LintId::NumberTrailingText, Severity::Info, "number-trailing-text",
     "What follows the digits of a number is ignored.", "Write the digits alone."},

    {LintId::CodeRepeated, Severity::Error, "code-repeated",
     "Two packages have the same identification code, so only one of them is kept.",
     "Give every package a code of its own."},
    {LintId::CodeCase, Severity::Warning, "code-case",
     "Two identification codes differ only in case, so the lists of a query and of \"supersede\" "
     "cannot tell them apart.",
     "Give every package a code of its own, in lower case."},
    {LintId::CodeShadowed, Severity::Warning, "code-shadowed",
     "A pack describes a package of this code otherwise, and the pack's description decides.",
     "Describe the package alike wherever it stands."},

    {LintId::ListsUnequal, Severity::Error, "lists-unequal",
     "The three ordered lists differ in length, so the surplus entries count for nothing.",
     "Give the lists one entry for each platform; 0 stands for any system or architecture."},
    {LintId::PlatformNotNumber, Severity::Error, "platform-not-number",
     "An operating system or architecture is no number, so it means any.",
     "Write the code as a decimal number, or 0 for any."},
    {LintId::MachineTypeInvalid, Severity::Error, "machine-type-invalid",
     "A machine type is not four digits, so no machine can have it.",
     "Write the four digits of the machine type."},
    {LintId::PackageUnreachable, Severity::Warning, "package-unreachable",
     "No machine type of any pack of the folder is among the package's platforms, so those "
     "machines never get it.",
     "Correct the package's machine types or those of the packs."},
    {LintId::PackageUnlisted, Severity::Warning, "package-unlisted",
     "The folder has packs, but none of them lists the package, so the Kovu filter refuses it.",
     "Add the package to a pack, or query with the Kovu filter off."},
    {LintId::PackageListedElsewhere, Severity::Warning, "package-listed-elsewhere",
     "The packs that list the package are for other machine types or operating systems than its "
     "own, so no machine gets it from a pack.",
     "Correct the platforms of the package or those of the pack, or list it in another pack."},

    {LintId::ClassificationsMissing, Severity::Error, "classifications-missing",
     "The package has fewer classifications than driver files, which ends the process that "
     "queries the folder.",
     "Give each driver file a classification, or none."},
    {LintId::ClassificationsSurplus, Severity::Warning, "classifications-surplus",
     "The package has more classifications than driver files, and the surplus ones are ignored.",
     "Give each driver file one classification."},
    {LintId::DriverFileUnparsed, Severity::Warning, "driver-file-unparsed",
     "A driver file is not a name, \"-#\" and a version, so it is dropped.",
     "Write name, \"-#\" and version, each once."},
    {LintId::VersionOrder, Severity::Warning, "version-order",
     "Versions of one driver family are ordered otherwise as text than as numbers, so the wrong "
     "package is kept.",
     "Pad the numbers to one length, for example 09.0 and 10.1."},
    {LintId::VersionOrderMixed, Severity::Info, "version-order-mixed",
     "Versions of one driver family that contain more than numbers are ordered otherwise as text "
     "than as numbers, which may be meant.",
     "Check which package is to be kept, and pad the numbers to one length if it is the other."},
    {LintId::VersionEqual, Severity::Warning, "version-equal",
     "Two packages of one driver family have the same version, so which of them is kept depends "
     "on the folder's listing.",
     "Give each package of the family a version of its own."},
    {LintId::CategoryShared, Severity::Info, "category-shared",
     "Packages without driver files share a category, so all but one of them are superseded.",
     "Give packages that do not replace one another categories of their own."},
    {LintId::SupersedeUnknown, Severity::Warning, "supersede-unknown",
     "\"supersede\" names a package that the folder does not have.",
     "Correct the code, or remove it if the package is gone."},
    {LintId::SupersedeSelf, Severity::Warning, "supersede-self",
     "\"supersede\" names the package itself.", "Remove the package's own code."},
    {LintId::SupersedeRing, Severity::Warning, "supersede-ring",
     "Packages supersede one another in a ring, so the order of their codes decides which of "
     "them is kept.",
     "Let the newer package name the older one, and no other way round."},
    {LintId::SupersedeChain, Severity::Warning, "supersede-chain",
     "A superseded package has a list of its own that is applied later and keeps the package.",
     "Move what the superseded package lists into the list of the newest one, and remove its own."},
    {LintId::SupersedeOverridden, Severity::Warning, "supersede-overridden",
     "A package names another one in \"supersede\", but they share a driver file, and the other "
     "one has the greater version.",
     "Give the newer package the version that is greater as text, for example 10.1 after 09.0."},
    {LintId::RequirementUnknown, Severity::Warning, "requirement-unknown",
     "\"preReq\" or \"coReq\" names a package that the folder does not have.",
     "Correct the code, or add the package."},

    {LintId::PackOwnMissing, Severity::Error, "pack-own-missing",
     "The pack has no instance of its own, so its first member is taken for the pack and never "
     "becomes a package.",
     "Add an INSTANCE whose \"xmlFilename\" is the pack's own file name, in its case."},
    {LintId::PackOwnRepeated, Severity::Error, "pack-own-repeated",
     "The pack has several instances of its own: the last one decides, and the others become "
     "packages.",
     "Keep one own instance, and give every other one the \"xmlFilename\" of its descriptor."},
    {LintId::PackListMissing, Severity::Error, "pack-list-missing",
     "The pack's own instance lacks machine types or operating systems, so the pack never "
     "applies.",
     "Write \"applicableMachineTypes\" and \"applicableOperatingSystems\"."},
    {LintId::PacksCompete, Severity::Warning, "packs-compete",
     "Several packs apply to the same machine, and only one of them is used.",
     "Keep one pack for each machine type and operating system."},
    {LintId::MemberFileMissing, Severity::Error, "member-file-missing",
     "The descriptor file of a pack's member is missing, so the payload filter refuses it.",
     "Add the member's descriptor, or correct \"xmlFilename\"."},

    {LintId::XmlFilenameMissingFile, Severity::Error, "xml-filename-missing-file",
     "\"xmlFilename\" names a file that is not there, so the payload filter refuses the package.",
     "Write the name of the descriptor itself."},
    {LintId::XmlFilenameOther, Severity::Warning, "xml-filename-other",
     "\"xmlFilename\" names another file than the descriptor itself.",
     "Write the name of the descriptor itself."},
    {LintId::PayloadMissing, Severity::Error, "payload-missing",
     "The payload is no regular file of the folder, so the payload filter refuses the package.",
     "Add the payload, or correct its name."},
    {LintId::PayloadShared, Severity::Warning, "payload-shared",
     "Packages of different codes name the same payload.",
     "Check the names: each package usually has a payload of its own."},
    {LintId::PayloadOutside, Severity::Warning, "payload-outside",
     "The payload lies outside the folder, so it is lost when the folder is copied.",
     "Move the payload into the folder."},
    {LintId::FilesUnnamed, Severity::Info, "files-unnamed",
     "The folder has files that no descriptor names, so no query uses them.",
     "Remove the files, or name them in a descriptor."},
};

}  // namespace

const std::vector<LintRule>& LintRules() {
  static const std::vector<LintRule> rules(std::begin(table), std::end(table));
  return rules;
}

const LintRule& RuleOf(LintId id) { return LintRules().at(static_cast<std::size_t>(id)); }

const LintRule* FindLintRule(std::string_view name) {
  const auto& rules = LintRules();
  const auto found = std::find_if(rules.begin(), rules.end(),
                                  [name](const LintRule& rule) { return rule.name == name; });
  return found == rules.end() ? nullptr : &*found;
}

const char* NameOf(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return "error";
    case Severity::Warning:
      return "warning";
    case Severity::Info:
      break;
  }
  return "info";
}

}  // namespace Vornik::Cli
