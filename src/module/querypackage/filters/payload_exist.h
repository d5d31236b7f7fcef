// Whether a package's two files, its descriptor and its payload, are in the package folder. The
// names follow the folder unchanged.
//
//   "xmlFilename" "a.xml", "payload" "a.exe", folder "/pkgs" with both  =>  Found
//   the same, folder with a.xml and a sub-folder a.exe                  =>  PayloadMissing
//   "xmlFilename" "a.xml"                                               =>  NoPayload
#ifndef VORNIK_QUERYPACKAGE_FILTERS_PAYLOAD_EXIST_H
#define VORNIK_QUERYPACKAGE_FILTERS_PAYLOAD_EXIST_H

#include <functional>
#include <string>

#include "model/properties.h"

namespace Vornik {

// In the order in which the tests are made; the first failure decides.
enum class PayloadVerdict {
  NoXmlFilename,      // "xmlFilename" is missing or empty
  NoPayload,          // "payload" is missing or empty
  DescriptorMissing,  // no regular file of that name; any file-system error counts as that
  PayloadMissing,     // the same for the payload
  Found,
};

PayloadVerdict EvaluatePayload(const SupXmlProperties& properties, const std::string& folder);

// The same with another answer to which paths are regular files.
using IsFile = std::function<bool(const std::string& path)>;
PayloadVerdict EvaluatePayload(const SupXmlProperties& properties, const std::string& folder,
                               const IsFile& isFile);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_PAYLOAD_EXIST_H
