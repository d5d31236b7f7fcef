#include "plain_files.h"

#include <algorithm>

#include "descriptors.h"
#include "plain_properties.h"

namespace Vornik::Testing {

namespace {

using Kind = PlainFile::Kind;

constexpr int lineOfFirstInstance = 3;

void FillPack(RandomRepository& random, PlainFile& file) {
  RandomPick& pick = random.Pick();
  for (std::size_t left = 1 + pick.Below(3); left != 0; --left) {
    file.instances.push_back(pick.OneIn(15) ? SupXmlProperties() : random.Package());
  }
  if (pick.OneIn(8)) return;
  SupXmlProperties own = random.PackLevel();
  if (!pick.OneIn(5)) own.push_back({"xmlFilename", "string", {file.name}});
  const auto place = static_cast<std::ptrdiff_t>(pick.Below(file.instances.size() + 1));
  file.instances.insert(file.instances.begin() + place, own);
}

Descriptor DescriptorOf(const SupXmlProperties& properties) {
  Descriptor descriptor;
  for (const SupXmlProperty& property : properties) {
    if (property.values.size() == 1) {
      descriptor.Set(property.name, property.values[0]);
    } else {
      descriptor.Set(property.name, property.values);
    }
  }
  return descriptor;
}

std::string InstancesOf(const PlainFile& file) {
  std::string text;
  for (const SupXmlProperties& properties : file.instances) {
    text += DescriptorOf(properties).Instance();
  }
  return text;
}

std::string PackOf(const PlainFile& file) {
  std::vector<Descriptor> instances;
  for (const SupXmlProperties& properties : file.instances) {
    instances.push_back(DescriptorOf(properties));
  }
  return Pack(instances);
}

}  // namespace

PlainFile RandomPlainFile(RandomRepository& random, const std::string& name) {
  RandomPick& pick = random.Pick();
  PlainFile file{name, Kind::Individual, {}};
  if (pick.OneIn(2)) file.kind = Kind::Pack;
  if (pick.OneIn(12)) {
    file.kind = pick.Of<Kind>({Kind::Neither, Kind::BrokenIndividual, Kind::BrokenPack,
                               Kind::RootlessIndividual, Kind::RootlessPack});
  }
  if (file.kind == Kind::Pack) {
    FillPack(random, file);
  } else {
    file.instances = {pick.OneIn(20) ? SupXmlProperties() : random.Package()};
  }
  return file;
}

std::string TextOf(const PlainFile& file) {
  switch (file.kind) {
    case Kind::Individual:
      return DescriptorOf(file.instances.at(0)).Individual();
    case Kind::Pack:
      return PackOf(file);
    case Kind::BrokenIndividual:
      return "<CIM><SystemUpdateElement>" + InstancesOf(file);
    case Kind::BrokenPack:
      return "<CIM><ORXQDL_SystemUpdateProduct>" + InstancesOf(file);
    case Kind::RootlessIndividual:
      return "<!-- SystemUpdateElement -->";
    case Kind::RootlessPack:
      return "<!-- ORXQDL_SystemUpdateProduct -->";
    case Kind::Neither:
      return "<CIM>" + InstancesOf(file) + "</CIM>";
    case Kind::Folder:
      break;
  }
  return "";
}

PlainFile AsRead(PlainFile file) {
  for (SupXmlProperties& properties : file.instances) {
    for (SupXmlProperty& property : properties) {
      auto& values = property.values;
      values.erase(std::remove(values.begin(), values.end(), ""), values.end());
    }
  }
  return file;
}

int PlainLineOf(const PlainFile& file, std::size_t instance, const std::string& property,
                bool isList) {
  int line = lineOfFirstInstance;
  for (std::size_t i = 0; i < instance; ++i) {
    line += static_cast<int>(file.instances[i].size()) + 2;
  }
  int lineOfValue = 0;
  int lineOfLast = 0;
  int next = line;
  for (const SupXmlProperty& one : file.instances[instance]) {
    ++next;
    if (!PlainSameName(one.name, property)) continue;
    lineOfLast = next;
    if (!one.values.empty()) lineOfValue = next;
  }
  if (!isList && lineOfValue != 0) return lineOfValue;
  return lineOfLast != 0 ? lineOfLast : line;
}

}  // namespace Vornik::Testing
