#include "plain_filters.h"

#include "plain_properties.h"

namespace Vornik::Testing {

namespace {

bool FitsNumber(const std::string& text, std::uint32_t target) {
  const auto number = static_cast<std::uint32_t>(PlainNumber(text));
  return number == 0 || target == 0 || number == target;
}

}  // namespace

bool PlainFitsPlatform(const QueryPackageImp& query, const SupXmlProperties& properties) {
  const auto machineTypes = PlainValues("orderedMachineTypeList", properties);
  const auto systems = PlainValues("orderedOSList", properties);
  const auto architectures = PlainValues("orderedOSArchitectureList", properties);
  for (std::size_t i = 0; i < machineTypes.size() && i < systems.size() && i < architectures.size();
       ++i) {
    if (machineTypes[i] == query.machineType &&
        FitsNumber(systems[i], static_cast<std::uint32_t>(query.osValue)) &&
        FitsNumber(architectures[i], static_cast<std::uint32_t>(query.arcValue))) {
      return true;
    }
  }
  return false;
}

bool PlainRequestsType(const QueryPackageImp& query, int type) {
  for (const UpdateType requested : query.updateTypes) {
    const int number = static_cast<int>(requested);
    if (type == 99 || number == 99 || type == number) return true;
  }
  return false;
}

}  // namespace Vornik::Testing
