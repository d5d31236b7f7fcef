#include "repository_generator.h"

#include <fmt/format.h>

#include <fstream>

#include "text/paths.h"

namespace Vornik::Benchmarks {

namespace {

std::string FileNameOf(std::size_t number) { return CodeOf(number) + ".xml"; }

std::string PayloadOf(std::size_t number) { return CodeOf(number) + ".exe"; }

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary);
  out << bytes;
}

std::size_t FamilyOf(std::size_t number, DriverShape shape) {
  switch (shape) {
    case DriverShape::Families:
      return number / packagesPerFamily;
    case DriverShape::Hundreds:
      return number / 100;
    case DriverShape::OneAllDistinct:
    case DriverShape::OneAllEqual:
    case DriverShape::OneOfTen:
      break;
  }
  return 0;
}

std::size_t VersionOf(std::size_t number, DriverShape shape) {
  switch (shape) {
    case DriverShape::Families:
      return number % packagesPerFamily;
    case DriverShape::Hundreds:
      return number * 37 % 100;  // in no order
    case DriverShape::OneAllDistinct:
      return number * 7'919 % 1'000'003;  // in no order
    case DriverShape::OneAllEqual:
      return 0;
    case DriverShape::OneOfTen:
      return number * 7 % 10;
  }
  return 0;
}

std::string VersionTextOf(std::size_t number, DriverShape shape) {
  const std::size_t minor = shape == DriverShape::Families ? number % 10 : 0;
  return fmt::format("{}.{}", VersionOf(number, shape) + 1, minor);
}

constexpr char packClass[] = "ORXQDL_SystemUpdateProduct";
constexpr char packageClass[] = "ORXQDL_SystemUpdateElement";

std::string InstanceOf(const SupXmlProperties& properties, const char* className) {
  std::string text = fmt::format("<INSTANCE CLASSNAME=\"{}\">\n", className);
  for (const SupXmlProperty& property : properties) {
    std::string values;
    for (std::string value : property.values) {
      for (std::size_t at = 0; (at = value.find('&', at)) != std::string::npos; ++at) {
        value.replace(at, 1, "&amp;");
      }
      values += fmt::format("      <VALUE>{}</VALUE>\n", value);
    }
    text += fmt::format(
        "  <PROPERTY.ARRAY NAME=\"{}\" TYPE=\"{}\">\n    <VALUE.ARRAY>\n{}    "
        "</VALUE.ARRAY>\n  </PROPERTY.ARRAY>\n",
        property.name, property.type, values);
  }
  return text + "</INSTANCE>\n";
}

constexpr char head[] = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM>\n";
constexpr char tail[] = "</CIM>\n";

// The pack's own instance: it names no file.
SupXmlProperties PackPropertiesOf(std::size_t pack) {
  return {{"identificationCode", "string", {fmt::format("orx_pack_{:03}", pack)}},
          {"applicableMachineTypes", "string", {"[1234]"}},
          {"applicableOperatingSystems", "string", {"10"}}};
}

}  // namespace

std::string CodeOf(std::size_t number) { return fmt::format("orx_drv_package_{:06}", number); }

SupXmlProperties PropertiesOf(std::size_t number, DriverShape shape) {
  const std::size_t family = FamilyOf(number, shape);
  const std::size_t version = VersionOf(number, shape);
  const auto one = [](const char* name, std::string value) {
    return SupXmlProperty{name, "string", {std::move(value)}};
  };
  const auto list = [](const char* name, std::vector<std::string> values) {
    return SupXmlProperty{name, "string", std::move(values)};
  };
  SupXmlProperties properties{
      one("identificationCode", CodeOf(number)),
      one("xmlFilename", FileNameOf(number)),
      one("payload", PayloadOf(number)),
      one("buildNumber", fmt::format("build {}", number)),
      one("description", fmt::format("Driver of family {}. {}", family, std::string(900, 'd'))),
      one("updateSelection", "true"),
      one("rebootRequired", "false"),
      one("severity", "2"),
      one("category", fmt::format("Driver family {}", family)),
      one("type", std::to_string(number % 5)),
      one("Version", VersionTextOf(number, shape)),
      list("driverFiles", {fmt::format("family{}.sys-#{}.0", family, version + 1),
                           fmt::format("package{}.dll-#{}.0", number, version + 1)}),
      list("driverFilesClassification", {"kernel", "library"}),
      list("applicableDeviceId", {"PCI\\VEN_0001&DEV_0001", "PCI\\VEN_0001&DEV_0002"}),
      list("orderedMachineTypeList", {"5678", "1234", "1235"}),
      list("orderedOSList", {"11", "10", "10"}),
      list("orderedOSArchitectureList", {"9", "9", "9"}),
      list("preReq", {}),
      list("coReq", {}),
  };
  if (shape == DriverShape::Families && version > 0) {
    properties.push_back(list("supersede", {CodeOf(number - 1)}));
  }
  return properties;
}

std::string DescriptorOf(std::size_t number, DriverShape shape) {
  return head + InstanceOf(PropertiesOf(number, shape), packageClass) + tail;
}

void WriteRepository(const std::string& folder, std::size_t packages, DriverShape shape) {
  for (std::size_t i = 0; i < packages; ++i) {
    WriteFile(PathInFolder(folder, FileNameOf(i)), DescriptorOf(i, shape));
    WriteFile(PathInFolder(folder, PayloadOf(i)), "payload");
  }
}

void WritePack(const std::string& folder, std::size_t pack, std::size_t first,
               std::size_t packages) {
  std::string text = head;
  text += InstanceOf(PackPropertiesOf(pack), packClass);
  for (std::size_t i = 0; i < packages; ++i) {
    text += InstanceOf(PropertiesOf(first + i), packageClass);
  }
  WriteFile(PathInFolder(folder, fmt::format("pack_{:03}.xml", pack)), text + tail);
}

}  // namespace Vornik::Benchmarks
