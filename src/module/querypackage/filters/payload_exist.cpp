#include "filters/payload_exist.h"

#include <boost/system/system_error.hpp>

#include "model/literals.h"
#include "reading/descriptor_files.h"
#include "text/paths.h"

namespace Vornik {

namespace {

bool IsMissing(const std::string* value) { return value == nullptr || value->empty(); }

// A name that cannot be turned into a path of this system names no file.
bool IsFileInFolder(const std::string& folder, const std::string& name, const IsFile& isFile) {
  try {
    return isFile(PathInFolder(folder, name));
  } catch (const boost::system::system_error&) {
    return false;
  }
}

}  // namespace

PayloadVerdict EvaluatePayload(const SupXmlProperties& properties, const std::string& folder) {
  return EvaluatePayload(properties, folder, IsRegularFile);
}

PayloadVerdict EvaluatePayload(const SupXmlProperties& properties, const std::string& folder,
                               const IsFile& isFile) {
  const std::string* xmlFilename = FindPropertyValue(PropertyName::xmlFilename, properties);
  if (IsMissing(xmlFilename)) return PayloadVerdict::NoXmlFilename;
  const std::string* payload = FindPropertyValue(PropertyName::payload, properties);
  if (IsMissing(payload)) return PayloadVerdict::NoPayload;
  if (!IsFileInFolder(folder, *xmlFilename, isFile)) return PayloadVerdict::DescriptorMissing;
  if (!IsFileInFolder(folder, *payload, isFile)) return PayloadVerdict::PayloadMissing;
  return PayloadVerdict::Found;
}

}  // namespace Vornik
