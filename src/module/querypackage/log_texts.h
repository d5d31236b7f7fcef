// The library's messages, each written once. What varies is streamed next to them with no
// separator of its own, so their leading and trailing blanks count.
#ifndef VORNIK_QUERYPACKAGE_LOG_TEXTS_H
#define VORNIK_QUERYPACKAGE_LOG_TEXTS_H

namespace Vornik {

namespace LogLevel {
inline constexpr unsigned int error = 1;
inline constexpr unsigned int warning = 2;
inline constexpr unsigned int progress = 3;
}  // namespace LogLevel

// The lines before and after a stage.
struct StageText {
  const char* start;
  const char* end;
};

// A stage that a host can switch off also has the line that is logged instead.
struct SwitchedStageText : StageText {
  const char* ignored;
};

namespace LogText {

inline constexpr StageText parameterCheck{"Check parameter validity - Start",
                                          "Check parameter validity - End"};
inline constexpr StageText parseFolder{"Parse XML Package Folder - Start",
                                       "Parse XML Package Folder - End"};
inline constexpr StageText createResults{"Create Query Package Results - Start",
                                         "Create Query Package Results - End"};
inline constexpr StageText preCallback{"PreQueryPackage Callback - Start",
                                       "PreQueryPackage Callback - End"};
inline constexpr StageText duplicate{"Duplicate Filter - Start", "Duplicate Filter - End"};
inline constexpr StageText platform{"Platform Filter - Start", "Platform Filter - End"};
inline constexpr SwitchedStageText kovu{{"Kovu Filter - Start", "Kovu Filter - End"},
                                        "Kovu Filter Ignored!"};
inline constexpr SwitchedStageText sep{{"Sep Filter - Start", "Sep Filter - End"},
                                       "Sep Filter Ignored!"};
inline constexpr SwitchedStageText payloadExist{
    {"PayloadExist Filter - Start", "PayloadExist Filter - End"}, "PayloadExist Filter Ignored!"};
inline constexpr SwitchedStageText supersede{{"Supersede Filter - Start", "Supersede Filter - End"},
                                             "Supersede Filter Ignored!"};
inline constexpr SwitchedStageText includeIds{
    {"IncludePackageIDs Filter - Start", "IncludePackageIDs Filter - End"},
    "IncludePackageIDs Filter Ignored!"};
inline constexpr SwitchedStageText excludeIds{
    {"ExcludePackageIDs Filter - Start", "ExcludePackageIDs Filter - End"},
    "ExcludePackageIDs Filter Ignored!"};
inline constexpr SwitchedStageText updateType{
    {"UpdateType Filter - Start", "UpdateType Filter - End"}, "UpdateType Filter Ignored!"};

// Parameter check.
inline constexpr char folderNotSet[] = "xml package folder is not set";
inline constexpr char folderNotValidBefore[] = "xml package folder: ";
inline constexpr char folderNotValidAfter[] = " is not valid folder";
inline constexpr char machineTypeNotSet[] = "MachineType is not set";
inline constexpr char machineTypeInvalid[] = "MachineType is invalid";
inline constexpr char osNotSet[] = "OS is not set";
inline constexpr char arcNotSet[] = "Arc is not set";
inline constexpr char idInBothLists[] = " is in both IncludePackageIDs and ExcludePackageIDs";

// Folder scan.
inline constexpr char doesNotExist[] = " does not exist\n";
inline constexpr char notADirectory[] = " exists, but is not a directory\n";
inline constexpr char notValidXml[] = " is not a valid ORX xml";
inline constexpr char isKovuXml[] = " is Kovu xml";
inline constexpr char isNotKovuXml[] = " is not Kovu xml";
inline constexpr char isIndividualXml[] = " is individual xml";
inline constexpr char isNotIndividualXml[] = " is not individual xml";

// Individual descriptors.
inline constexpr char loadPackage[] = "Load Package XML file: ";
inline constexpr char loadPackageFailed[] = "Faile to load Package XML: ";
inline constexpr char loadPackageRoot[] = "Load Package XML's root node";
inline constexpr char loadPackageRootFailed[] = "Faile to load Package XML's root node";
inline constexpr char getPackageProperties[] = "Get Package XML's property value";
inline constexpr char getPackagePropertiesFailed[] = "Faile to load Package XML's property value";

// Packs.
inline constexpr char loadKovu[] = "Load Kovu XML file: ";
inline constexpr char loadKovuFailed[] = "Faile to load Kovu XML: ";
inline constexpr char loadKovuRoot[] = "Load Kovu XML's root node";
inline constexpr char loadKovuRootFailed[] = "Faile to load Kovu XML's root node";
inline constexpr char noUpdateElements[] = "UpdateElements in Kovu is empty";
inline constexpr char getKovuProperties[] = "Get Kovu's UpdateElement XML's property value";
inline constexpr char getKovuPropertiesFailed[] =
    "Faile to load Kovu's UpdateElement XML's property value";

// Result building.
inline constexpr char noValidPackage[] = "There is not any valid xml package in ";
inline constexpr char noApplicableMachineTypes[] =
    "ERROR: Couldn't find applicableMachineTypeList!";
inline constexpr char noApplicableSystems[] = "ERROR: Couldn't find applicableOperatingSystems!";
inline constexpr char driverFileFailed[] = "Fail to parse driverFiles's property value";

// Filters.
inline constexpr char codeIsEmpty[] = "Package IdentificationCode is empty";
inline constexpr char noProperties[] = "ERROR: Couldn't find correct SupXmlProperties";
inline constexpr char duplicateDropped[] = " is filtered in FilterDuplicate";
inline constexpr char noMachineTypeList[] = "ERROR: Couldn't find orderedMachineTypeList!";
inline constexpr char noOsList[] = "ERROR: Couldn't find orderedOSList!";
inline constexpr char noArchitectureList[] = "ERROR: Couldn't find orderedOSArchitectureList!";
inline constexpr char platformMatched[] = " Platform Filter is matched!";
inline constexpr char platformNotMatched[] = " Platform Filter is not matched!";
inline constexpr char kovuMatched[] = " Kovu Filter is matched!";
inline constexpr char kovuNotMatched[] = " Kovu Filter is not matched!";
inline constexpr char sepMatched[] = " Sep Filter is matched!";
inline constexpr char sepNotMatched[] = " Sep Filter is not matched!";
inline constexpr char noXmlFilename[] = "ERROR: Couldn't find xml!";
inline constexpr char noPayload[] = "ERROR: Couldn't find payload!";
inline constexpr char payloadExistMatched[] = " PayloadExist Filter is matched!";
inline constexpr char payloadExistNotMatched[] = " PayloadExist Filter is not matched!";
inline constexpr char includeIdsEmpty[] = "ERROR: IncludePackageIDs is empty!";
inline constexpr char includeIdMatched[] = " IncludeId Filter is matched!";
inline constexpr char includeIdNotMatched[] = " IncludeId Filter is not matched!";
inline constexpr char excludeIdsEmpty[] = "ERROR: ExcludePackageIDs is empty!";
inline constexpr char excludeIdMatched[] = " ExcludeId Filter is matched!";
inline constexpr char excludeIdNotMatched[] = " ExcludeId Filter is not matched!";
inline constexpr char updateTypesEmpty[] = "ERROR: UpdateType is not set!";
inline constexpr char noUpdateType[] = "ERROR: Couldn't find update type!";
inline constexpr char updateTypeMatched[] = " UpdateType Filter is matched!";
inline constexpr char updateTypeNotMatched[] = " UpdateType Filter is not matched!";

}  // namespace LogText

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_LOG_TEXTS_H
