#include "lint/checks/platform_entries.h"

#include <algorithm>

#include "model/literals.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

std::uint32_t CodeOf(const std::string& text) {
  return static_cast<std::uint32_t>(ParseDecimal(text));
}

bool Meets(std::uint32_t listed, std::uint32_t wanted) {
  return listed == anyCode || wanted == anyCode || listed == wanted;
}

}  // namespace

std::vector<PlatformEntry> PlatformEntriesOf(const SupXmlProperties& properties) {
  const auto types = GetPropertyValues(PropertyName::orderedMachineTypeList, properties);
  const auto systems = GetPropertyValues(PropertyName::orderedOSList, properties);
  const auto architectures = GetPropertyValues(PropertyName::orderedOSArchitectureList, properties);
  std::vector<PlatformEntry> entries;
  for (std::size_t i = 0; i < std::min({types.size(), systems.size(), architectures.size()}); ++i) {
    entries.push_back({types[i], CodeOf(systems[i]), CodeOf(architectures[i])});
  }
  return entries;
}

bool Suits(const PlatformEntry& entry, std::uint32_t system, std::uint32_t architecture) {
  return Meets(entry.system, system) && Meets(entry.architecture, architecture);
}

}  // namespace Vornik::Cli
