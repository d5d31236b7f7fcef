#include "output/query_json.h"

#include <cstdint>
#include <utility>
#include <variant>

#include "model/filter_table.h"

namespace Vornik::Cli {

namespace {

Json ValueOf(bool on) { return on; }

Json ValueOf(const std::vector<std::string>& texts) { return texts; }

Json ValueOf(const std::vector<UpdateType>& updateTypes) {
  return ArrayOf(updateTypes, [](UpdateType type) { return static_cast<std::int32_t>(type); });
}

Json DriverFileObject(const QueryPackageResult::DriverFile& file) {
  return {{"name", file.name}, {"version", file.version}, {"classification", file.classification}};
}

}  // namespace

Json RecordObject(const QueryPackageResult& record) {
  Json object{{"packageXmlFile", record.packageXmlFile},
              {"identificationCode", record.identificationCode},
              {"driverFiles", ArrayOf(record.driverFiles, DriverFileObject)},
              {"buildNumber", record.buildNumber},
              {"description", record.description},
              {"updateSelection", record.updateSelection},
              {"rebootRequired", record.rebootRequired},
              {"severity", record.severity},
              {"category", record.category},
              {"payload", record.payload},
              {"type", record.type},
              {"Version", record.Version},
              {"applicableDeviceId", record.applicableDeviceId},
              {"preReq", record.preReq},
              {"coReq", record.coReq},
              {"kovuXmlFile", record.kovuXmlFile},
              {"kovuName", record.kovuName},
              {"supersedesId", record.supersedesId},
              {"supersededById", record.supersededById}};
  for (const Filter& filter : Filters()) {
    if (filter.slot != nullptr) object[filter.slotName] = record.*filter.slot;
  }
  return object;
}

Json SettingsObject(const QuerySettings& settings) {
  Json object{{"folder", settings.folder},
              {"machineType", settings.machineType},
              {"osValue", static_cast<std::uint32_t>(settings.osValue)},
              {"arcValue", static_cast<std::uint32_t>(settings.arcValue)}};
  for (const Filter* filter : FiltersWithSetting()) {
    const FilterSetting& setting = filter->setting.value();
    object[setting.name] =
        std::visit([&settings](auto member) { return ValueOf(settings.*member); }, setting.member);
  }
  return object;
}

Json QueryDocument(const QuerySettings& settings, const Json& returnCode, Json records) {
  return {{"schemaVersion", querySchemaVersion},
          {"query", SettingsObject(settings)},
          {"returnCode", returnCode},
          {"records", std::move(records)}};
}

}  // namespace Vornik::Cli
