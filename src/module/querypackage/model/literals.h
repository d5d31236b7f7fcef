// The fixed words of the descriptor format, each written once.
#ifndef VORNIK_QUERYPACKAGE_MODEL_LITERALS_H
#define VORNIK_QUERYPACKAGE_MODEL_LITERALS_H

#include <cstdint>

namespace Vornik {

namespace PropertyName {
inline constexpr char identificationCode[] = "identificationCode";
inline constexpr char buildNumber[] = "buildNumber";
inline constexpr char description[] = "description";
inline constexpr char updateSelection[] = "updateSelection";
inline constexpr char rebootRequired[] = "rebootRequired";
inline constexpr char severity[] = "severity";
inline constexpr char category[] = "category";
inline constexpr char payload[] = "payload";
inline constexpr char type[] = "type";
inline constexpr char Version[] = "Version";
inline constexpr char applicableDeviceId[] = "applicableDeviceId";
inline constexpr char preReq[] = "preReq";
inline constexpr char coReq[] = "coReq";
inline constexpr char driverFiles[] = "driverFiles";
inline constexpr char driverFilesClassification[] = "driverFilesClassification";
inline constexpr char supersede[] = "supersede";
inline constexpr char xmlFilename[] = "xmlFilename";
inline constexpr char applicableMachineTypes[] = "applicableMachineTypes";
inline constexpr char applicableOperatingSystems[] = "applicableOperatingSystems";
inline constexpr char orderedMachineTypeList[] = "orderedMachineTypeList";
inline constexpr char orderedOSList[] = "orderedOSList";
inline constexpr char orderedOSArchitectureList[] = "orderedOSArchitectureList";
}  // namespace PropertyName

namespace Marker {
inline constexpr char pack[] = "ORXQDL_SystemUpdateProduct";
inline constexpr char individual[] = "SystemUpdateElement";
}  // namespace Marker

namespace SepId {
inline constexpr char tsep[] = "orx_utl_tsep";
inline constexpr char sep[] = "orx_utl_sep";
}  // namespace SepId

inline constexpr char descriptorExtension[] = ".xml";
inline constexpr char driverFileSeparator[] = "-#";

// In an operating-system or architecture list, 0 means every one.
inline constexpr std::int32_t anyCode = 0;

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_MODEL_LITERALS_H
