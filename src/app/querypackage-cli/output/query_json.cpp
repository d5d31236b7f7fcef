#include "output/json_output.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <utility>

namespace Vornik {

namespace {

using Json = nlohmann::ordered_json;

Json NumbersOf(const std::vector<UpdateType>& updateTypes) {
  Json numbers = Json::array();
  for (const UpdateType type : updateTypes) numbers.push_back(static_cast<std::int32_t>(type));
  return numbers;
}

Json QueryObject(const Cli::QuerySettings& query) {
  return {{"folder", query.folder},
          {"machineType", query.machineType},
          {"osValue", static_cast<std::uint32_t>(query.osValue)},
          {"arcValue", static_cast<std::uint32_t>(query.arcValue)},
          {"updateTypes", NumbersOf(query.updateTypes)},
          {"includePackageIds", query.includePackageIds},
          {"excludePackageIds", query.excludePackageIds},
          {"kovuFilter", query.kovuFilter},
          {"sepFilter", query.sepFilter},
          {"payloadExistFilter", query.payloadExistFilter},
          {"supersedeFilter", query.supersedeFilter}};
}

Json DriverFileArray(const std::vector<QueryPackageResult::DriverFile>& files) {
  Json array = Json::array();
  for (const QueryPackageResult::DriverFile& file : files) {
    array.push_back(Json{
        {"name", file.name}, {"version", file.version}, {"classification", file.classification}});
  }
  return array;
}

Json RecordObject(const QueryPackageResult& record) {
  return {{"packageXmlFile", record.packageXmlFile},
          {"identificationCode", record.identificationCode},
          {"driverFiles", DriverFileArray(record.driverFiles)},
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
          {"supersededById", record.supersededById},
          {"platformFilterStatus", record.platformFilterStatus},
          {"kovuFilterStatus", record.kovuFilterStatus},
          {"sepFilterStatus", record.sepFilterStatus},
          {"payloadExistFilterStatus", record.payloadExistFilterStatus},
          {"supersedeFilterStatus", record.supersedeFilterStatus},
          {"includeIdFilterStatus", record.includeIdFilterStatus},
          {"excludeIdFilterStatus", record.excludeIdFilterStatus},
          {"updateTypeFilterStatus", record.updateTypeFilterStatus}};
}

}  // namespace

std::string Cli::JsonDocument(const QuerySettings& query, int returnCode,
                              const std::vector<QueryPackageResult>& records) {
  Json array = Json::array();
  for (const QueryPackageResult& record : records) array.push_back(RecordObject(record));
  const Json document{
      {"query", QueryObject(query)}, {"returnCode", returnCode}, {"records", std::move(array)}};
  constexpr int indent = 2;
  constexpr bool asciiOnly = true;
  return document.dump(indent, ' ', asciiOnly, Json::error_handler_t::replace) + '\n';
}

}  // namespace Vornik
