#include "record_building.h"

#include "model/literals.h"

namespace Vornik {

QueryPackageResult BuildRecord(const PackageXmlEntry& entry, const std::string& kovuXmlFile,
                               const std::string& kovuName) {
  const auto value = [&entry](const char* name) {
    return GetPropertyValue(name, entry.properties);
  };
  const auto values = [&entry](const char* name) {
    return GetPropertyValues(name, entry.properties);
  };
  QueryPackageResult record;
  record.packageXmlFile = entry.xmlFile;
  record.identificationCode = value(PropertyName::identificationCode);
  record.buildNumber = value(PropertyName::buildNumber);
  record.description = value(PropertyName::description);
  record.updateSelection = value(PropertyName::updateSelection);
  record.rebootRequired = value(PropertyName::rebootRequired);
  record.severity = value(PropertyName::severity);
  record.category = value(PropertyName::category);
  record.payload = value(PropertyName::payload);
  record.type = value(PropertyName::type);
  record.Version = value(PropertyName::Version);
  record.applicableDeviceId = values(PropertyName::applicableDeviceId);
  record.preReq = values(PropertyName::preReq);
  record.coReq = values(PropertyName::coReq);
  record.kovuXmlFile = kovuXmlFile;
  record.kovuName = kovuName;
  return record;
}

}  // namespace Vornik
