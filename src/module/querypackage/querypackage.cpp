// The facade: every call goes to the implementation object, if there is one.
#include <new>
#include <utility>

#include "QueryPackage.h"
#include "querypackageimp.h"

namespace Vornik {

QueryPackageResult::QueryPackageResult() = default;
QueryPackageResult::QueryPackageResult(const QueryPackageResult&) = default;
QueryPackageResult::QueryPackageResult(QueryPackageResult&&) noexcept = default;
QueryPackageResult& QueryPackageResult::operator=(const QueryPackageResult&) = default;
QueryPackageResult& QueryPackageResult::operator=(QueryPackageResult&&) noexcept = default;
QueryPackageResult::~QueryPackageResult() = default;

QueryPackage::QueryPackage() {
  try {
    imp_ = std::make_unique<QueryPackageImp>();
  } catch (const std::bad_alloc&) {
    // Without it the object stays usable, but inert.
  }
}

QueryPackage::~QueryPackage() = default;

void QueryPackage::SetXMLPackageFolder(const std::string& folder) {
  if (imp_) imp_->xmlPackageFolder = folder;
}

void QueryPackage::SetPlatform(OsValue osValue, ArcValue arcValue, std::string machineType) {
  if (!imp_) return;
  imp_->osValue = osValue;
  imp_->arcValue = arcValue;
  imp_->machineType = std::move(machineType);
}

void QueryPackage::SetKovuFilter(bool on) {
  if (imp_) imp_->kovuFilter = on;
}

void QueryPackage::SetSepFilter(bool on) {
  if (imp_) imp_->sepFilter = on;
}

void QueryPackage::SetPayloadExistFilter(bool on) {
  if (imp_) imp_->payloadExistFilter = on;
}

void QueryPackage::SetSupersedeFilter(bool on) {
  if (imp_) imp_->supersedeFilter = on;
}

void QueryPackage::SetUpdateTypes(const std::vector<UpdateType>& updateTypes) {
  if (imp_) imp_->updateTypes = updateTypes;
}

void QueryPackage::SetIncludePackageIDs(const std::vector<std::string>& packageIds) {
  if (imp_) imp_->includePackageIds = packageIds;
}

void QueryPackage::SetExcludePackageIDs(const std::vector<std::string>& packageIds) {
  if (imp_) imp_->excludePackageIds = packageIds;
}

void QueryPackage::SetQueryCallback(IQueryPackageCallback* callback) {
  if (imp_) imp_->queryCallback = callback;
}

int QueryPackage::RunQuery(std::vector<QueryPackageResult>& results) {
  return imp_ ? imp_->RunQuery(results) : QueryCode::Completed;
}

}  // namespace Vornik
