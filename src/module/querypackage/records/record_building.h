// One result record from one descriptor.
//
//   "a.xml" with {"identificationCode" {"a"}, "preReq" {"b", "c"}}, pack "P.xml", name "P"
//     =>  packageXmlFile "a.xml", identificationCode "a", preReq {"b", "c"}, kovuXmlFile "P.xml",
//         kovuName "P", all other texts and lists empty
#ifndef VORNIK_QUERYPACKAGE_RECORDS_RECORD_BUILDING_H
#define VORNIK_QUERYPACKAGE_RECORDS_RECORD_BUILDING_H

#include <string>

#include "QueryPackage.h"
#include "model/repository.h"

namespace Vornik {

// Everything but the driver files; the verdicts and the supersede members stay as they are in a new
// record. kovuXmlFile and kovuName are empty for an individual descriptor.
QueryPackageResult BuildRecord(const PackageXmlEntry& entry, const std::string& kovuXmlFile,
                               const std::string& kovuName);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_RECORDS_RECORD_BUILDING_H
